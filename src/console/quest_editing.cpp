#include "console/quest_editing.h"

#include "console/console_pane.h"
#include "console/data_pane.h"
#include "data/session_plan.h"
#include "foundation/views/message_box.h"
#include "host/state/host_state.h"
#include "host/state/play_control.h"
#include "host/state/quest.h"
#include "host/state/requests.h"

namespace {

void showStages() {
    fillQuestList();
    redrawQuestList();
    host().allQuestNumber = questCount(host().sessionList);
}

// The current quest as its stage now says. A quest that is being played or judged plays on as it began, and
// the change counts from the next one.
void refreshQuest() {
    HostState& state = host();
    if (!mayEditQuest()) return;
    showQuest(state.sessionList, state.curQuestNumber);
    questToSessionInfo(state.curQuestNumber, state.dataSession, state.dataResourceList);
    initResource();
}

// The answer may be put right under a quest that is being played or judged; points, players and spans stay. A
// song that was removed keeps its name.
void correctNames(const std::vector<DataResource>& songs) {
    std::vector<DataResource>& playing = host().dataResourceList;
    for (std::size_t i = 0; i < playing.size() && i < songs.size(); ++i) {
        if (songs[i].getNo() != playing[i].getNo()) continue;
        playing[i].setTitle(songs[i].getTitle());
        playing[i].setArtist(songs[i].getArtist());
    }
    showSongs(host().dataSession, playing);
}

} // namespace

void editStageOfQuest(int quest) {
    HostState& state = host();
    if (!mayEditQuest() || quest < 1 || !state.questEditors.stage) return;
    const auto place = findQuest(state.sessionList, quest);
    if (!place) return;
    DataSession stage = state.sessionList[place->stage];
    if (state.questEditors.stage(state.mainWindow, stage) != 1) return;
    if (place->stage >= state.sessionList.size()) return; // the session ended under the editor
    state.sessionList[place->stage] = stage;
    refreshQuest();
}

void editSongsOfQuest(int quest) {
    HostState& state = host();
    if (!mayEditQuest() || quest < 1 || !state.questEditors.songs) return;
    const auto place = findQuest(state.sessionList, quest);
    if (!place) return;
    std::vector<DataSession> stages = state.sessionList;
    const int result = state.questEditors.songs(state.mainWindow, stages, place->stage);
    const bool taken = result == songsComplete || result == songsRepeated || result == songsShared;
    if (taken && place->stage < state.sessionList.size()) {
        state.sessionList[place->stage] = stages[place->stage];
        showStages();
        refreshQuest();
        return;
    }
    showChangedSongs(); // the catalogue can be edited from there
    if (result != songsMissing && result != songsUnfit) return;
    zelkova::DataPairsList pairs;
    pairs.add("STAGE", stages[place->stage].getName());
    pairs.add("RESULT", result);
    zelkova::reportMessage(state.mainWindow, 4000007, pairs);
}

void editSong(int number) {
    HostState& state = host();
    if (!mayEditQuest() || number < 1 || !state.questEditors.song) return;
    state.questEditors.song(state.mainWindow, number);
    showChangedSongs();
}

void showChangedSongs() {
    HostState& state = host();
    if (state.curQuestNumber == 0) return;
    showStages();
    DataSession stage;
    std::vector<DataResource> songs;
    // A quest whose songs are what they were is left alone: it may be paused.
    if (!questToSessionInfo(state.curQuestNumber, stage, songs) || songs == state.dataResourceList) return;
    if (mayEditQuest())
        refreshQuest();
    else
        correctNames(songs);
}
