#include "host/state/play_control.h"

#include <algorithm>
#include <array>

#include "data/labels.h"
#include "foundation/media.h"
#include "foundation/text.h"
#include "host/state/console_ids.h"
#include "host/state/effects.h"
#include "host/state/host_log.h"
#include "host/state/host_state.h"
#include "host/state/play_span.h"
#include "host/state/quest.h"
#include "host/state/requests.h"
#include "host/state/status_bar.h"
#include "platform/controls.h"
#include "platform/messages.h"

namespace {

enum : int { wholeRange = -1, noLimit = -2 };

constexpr std::array playLimits{250, 1000, 3000, 5000, 10000, 15000, +wholeRange, +noLimit}; // by `interval`
constexpr std::array mediaSpeeds{1000, 2000, 1500, 500, 750};                                // by `speed`

// Values outside a table count as its first entry.
template <std::size_t Size>
int entry(const std::array<int, Size>& table, int index) {
    return index >= 0 && index < static_cast<int>(Size) ? table[static_cast<std::size_t>(index)] : table[0];
}

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

} // namespace

void initResource() {
    HostState& state = host();
    const DataSession& stage = state.dataSession;
    std::string warning;
    if (state.dataResourceList.empty()) warning = "楽曲の数が足りません。";
    if (stage.getMulti() != songCount(stage)) warning = "同時演奏数が正しくありません。";

    for (int i = 0; i < songCount(stage); ++i) {
        const auto index = static_cast<std::size_t>(i);
        const DataResource song =
            index < state.dataResourceList.size() ? state.dataResourceList[index] : DataResource();
        zelkova::Media& media = state.questMedia[index];
        unloadSound(media);
        const bool opened = !song.getFileName().empty() && media.open(song.getFileName());

        const PlaySpan span = playSpan(song, stage.getRange());
        state.playStart[index] = toMilliseconds(span.start, song.getFileType());
        state.playEnd[index] = toMilliseconds(span.end, song.getFileType());
        if (song.getFileType() == fileTypeMp3) media.setSpeed(entry(mediaSpeeds, stage.getSpeed()));
        media.seek(state.playStart[index]);
        media.setVolume(state.masterVolume * 10);
        if (warning.empty()) warning = trouble(song, opened, stage.getRange());
    }
    setPlayLimit();
    state.questWarning = warning;
    showQuestWarning();
}

void setPlayLimit() {
    host().playLimit = entry(playLimits, host().dataSession.getInterval());
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
    const bool timeOver = state.playLimit >= 0 && state.playElapsed >= state.playLimit;
    bool anySounds = false;
    for (int i = 0; i < songCount(state.dataSession); ++i) {
        if (!isChecked(i)) continue;
        const auto index = static_cast<std::size_t>(i);
        zelkova::Media& media = state.questMedia[index];
        const int end = media.getEnd();
        if (end <= 0) continue; // did not open
        anySounds = true;
        const int position = media.getPosition();
        if (state.dataSession.getSpeed() == 0 && position >= end) return true;
        if (state.playLimit == noLimit) continue;
        if (timeOver || position >= state.playEnd[index]) return true;
    }
    if (anySounds) return false;
    return timeOver || state.playLimit == wholeRange;
}

void enterPlay() {
    HostState& state = host();
    state.songsStarted = false;
    state.playElapsed = 0;
    state.kdlState->changeState(EV_PLAY);
    notifyStatus();
}

void startSongs() {
    HostState& state = host();
    for (int i = 0; i < songCount(state.dataSession); ++i) {
        if (!isChecked(i)) continue;
        const auto index = static_cast<std::size_t>(i);
        state.questMedia[index].seek(state.playStart[index]);
    }
    // In one breath, so that they start together: the device lets the first that is ready wait for the
    // others.
    for (int i = 0; i < songCount(state.dataSession); ++i)
        if (isChecked(i)) state.questMedia[static_cast<std::size_t>(i)].play();
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
    const DataResource& song = state.dataResourceList[0];
    const int factor = positionFactor(song.getFileType());
    const int position = factor == 0 ? 0 : state.questMedia[0].getPosition() / factor;
    const int length = factor == 0 ? 0 : song.getLength();
    platform::setText({state.consolePane, ids::playPosition},
                      zelkova::numberToText(position) + "/" + zelkova::numberToText(length));
    platform::setPosition({state.consolePane, ids::playBar}, position);
}

void applyMasterVolume(int level) {
    HostState& state = host();
    state.masterVolume = level;
    for (zelkova::Media& media : state.questMedia)
        media.setVolume(level * 10);
    state.effectMedia.setVolume(level * 10);
    state.bgmMedia.setVolume(level * 10);
    zelkova::setMasterVolume(level);
    platform::setPosition({state.consolePane, ids::volume}, level);
    platform::setText({state.consolePane, ids::volumeText}, zelkova::numberToText(level));
}
