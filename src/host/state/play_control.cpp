#include "host/state/play_control.h"

#include <algorithm>
#include <vector>

#include "data/labels.h"
#include "foundation/text.h"
#include "host/state/console_ids.h"
#include "host/state/host_log.h"
#include "host/state/host_state.h"
#include "host/state/play_span.h"
#include "host/state/quest.h"
#include "host/state/requests.h"
#include "host/state/song_play.h"
#include "host/state/status_bar.h"
#include "platform/controls.h"
#include "platform/messages.h"

namespace {

// What keeps a song from sounding as the stage wants it; empty when nothing does.
std::string trouble(const DataResource& song, bool opened, int range) {
    if (song.getFileName().empty()) return "楽曲が登録されていません。";
    if (!opened) return "音楽ファイルを開けません。(" + song.getFileName() + ")";
    if (positionFactor(song.getFileType()) == 0)
        return "再生できない形式の楽曲です。(" + song.getTitle() + ")";
    if ((range == rangeRandom || range == rangeEnd) && song.getLength() < questEdge)
        return "曲が短いため、先頭から再生します。(" + song.getTitle() + ")";
    return {};
}

bool isChecked(int song) {
    return songCount(host().dataSession) == 1 ||
           platform::isChecked(host().questCheck[static_cast<std::size_t>(song)]);
}

// The songs of the current quest that play.
std::vector<SongPlay> checkedSongs() {
    HostState& state = host();
    std::vector<SongPlay> songs;
    for (int i = 0; i < songCount(state.dataSession); ++i) {
        const auto index = static_cast<std::size_t>(i);
        if (isChecked(i))
            songs.push_back({&state.questMedia[index], state.playStart[index], state.playEnd[index]});
    }
    return songs;
}

} // namespace

void initResource() {
    HostState& state = host();
    if (state.playersLent) return;
    const DataSession& stage = state.dataSession;
    std::string warning;
    if (state.dataResourceList.empty()) warning = "楽曲の数が足りません。";
    if (stage.getMulti() != songCount(stage)) warning = "同時演奏数が正しくありません。";

    for (int i = 0; i < songCount(stage); ++i) {
        const auto index = static_cast<std::size_t>(i);
        const DataResource song =
            index < state.dataResourceList.size() ? state.dataResourceList[index] : DataResource();
        const SongPlay play = loadSong(state.questMedia[index], song, stage, state.masterVolume);
        state.playStart[index] = play.start;
        state.playEnd[index] = play.end;
        if (warning.empty()) warning = trouble(song, play.opened, stage.getRange());
    }
    setPlayLimit();
    warnOfQuest(warning);
}

void setPlayLimit() {
    host().playLimit = playLimitOf(host().dataSession);
}

void redrawRandomStarts() {
    HostState& state = host();
    if (state.dataSession.getRange() != rangeRandom) return;
    for (std::size_t i = 0; i < state.dataResourceList.size() && i < state.playStart.size(); ++i) {
        const DataResource& song = state.dataResourceList[i];
        const auto start = static_cast<int>(playSpan(song, rangeRandom).start);
        state.playStart[i] = toMilliseconds(start, song.getFileType());
        zelkova::DataPairsList pairs;
        pairs.add("MESSAGE",
                  "min=0, max=" + zelkova::numberToText(std::max(song.getLength(), questEdge) - questEdge) +
                      " start=" + zelkova::numberToText(start));
        writeDebug(pairs);
    }
}

bool checkPlayStop() {
    HostState& state = host();
    const std::vector<SongPlay> songs = checkedSongs();
    if (areStarting(songs)) state.playElapsed = 0;
    return isPlayOver(songs, state.dataSession.getSpeed(), state.playLimit, state.playElapsed);
}

void enterPlay() {
    HostState& state = host();
    state.songsStarted = false;
    state.playElapsed = 0;
    state.kdlState->changeState(EV_PLAY);
    notifyStatus();
}

void startSongs() {
    startSongs(checkedSongs());
}

void stopSongs() {
    for (zelkova::Media& media : host().questMedia)
        media.stop();
}

void haltSongs() {
    stopSongs();
    platform::killTimer(host().mainWindow, ids::playTimer);
    host().playElapsed = 0;
    host().songsStarted = false;
}

void showProgress() {
    HostState& state = host();
    if (state.dataResourceList.empty()) return;
    const auto [position, length] = progressOf(state.dataResourceList[0], state.questMedia[0]);
    platform::setText({state.consolePane, ids::playPosition},
                      zelkova::numberToText(position) + "/" + zelkova::numberToText(length));
    platform::setPosition({state.consolePane, ids::playBar}, position);
}

void setPlayerVolumes(int level) {
    HostState& state = host();
    for (zelkova::Media& media : state.questMedia)
        media.setVolume(level * 10);
    state.effectMedia.setVolume(level * 10);
    state.bgmMedia.setVolume(level * 10);
    zelkova::setMasterVolume(level);
}

void applyMasterVolume(int level) {
    HostState& state = host();
    state.masterVolume = level;
    setPlayerVolumes(level);
    platform::setPosition({state.consolePane, ids::volume}, level);
    platform::setText({state.consolePane, ids::volumeText}, zelkova::numberToText(level));
}
