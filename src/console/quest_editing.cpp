#include "console/quest_editing.h"

#include "console/console_pane.h"
#include "host/state/host_state.h"
#include "host/state/not_yet.h"
#include "host/state/play_control.h"
#include "host/state/quest.h"
#include "host/state/requests.h"

namespace {

// Stands for an editor that is still to come.
void announce() {
    if (mayEditQuest()) notYet();
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

void editSongsOfQuest(int) {
    announce();
}

void editSong(int) {
    announce();
}
