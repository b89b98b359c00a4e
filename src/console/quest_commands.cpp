#include "console/quest_commands.h"

#include "console/player_board.h"
#include "console/quest_editing.h"
#include "console/revision.h"
#include "data/labels.h"
#include "host/state/console_ids.h"
#include "host/state/current_quest.h"
#include "host/state/host_log.h"
#include "host/state/host_state.h"
#include "host/state/play_control.h"
#include "host/state/requests.h"
#include "platform/controls.h"
#include "platform/messages.h"
#include "platform/sound.h"

namespace {

platform::Control control(int id) {
    return {host().consolePane, id};
}

// The last 20 seconds played whole would leave no time to guess, so the choice of one drops the other.
bool endPlayedWhole() {
    return platform::getSelection(control(ids::range)) == rangeEnd &&
           platform::getSelection(control(ids::interval)) == playTimeWholeRange;
}

void liftTimeLimit() {
    platform::setSelection(control(ids::interval), playTimeEndless);
    host().dataSession.setInterval(playTimeEndless);
}

void raiseEvent(int event) {
    if (!guard(event)) return;
    host().kdlState->changeState(event);
    notifyStatus();
}

} // namespace

void chooseRange() {
    if (endPlayedWhole()) liftTimeLimit();
    host().dataSession.setRange(platform::getSelection(control(ids::range)));
    initResource();
}

void chooseInterval() {
    if (endPlayedWhole())
        liftTimeLimit();
    else
        host().dataSession.setInterval(platform::getSelection(control(ids::interval)));
    initResource();
}

void chooseSpeed() {
    host().dataSession.setSpeed(platform::getSelection(control(ids::speed)));
    initResource();
}

void takeShownPlaySettings() {
    DataSession& stage = host().dataSession;
    stage.setRange(platform::getSelection(control(ids::range)));
    stage.setInterval(platform::getSelection(control(ids::interval)));
    stage.setSpeed(platform::getSelection(control(ids::speed)));
}

void changeStage() {
    editStageOfQuest(host().curQuestNumber);
}

void changeSongs() {
    editSongsOfQuest(host().curQuestNumber);
}

void startQuest() {
    if (!guard(EV_QUEST_START)) return;
    takeShownPlaySettings();
    initResource();
    host().kdlState->changeState(EV_QUEST_START);
    notifyStatus();
}

void replayQuest() {
    if (!guard(EV_PLAY)) return;
    redrawRandomStarts();
    enterPlay();
}

void stopQuest() {
    raiseEvent(EV_STOP);
}

void pauseQuest() {
    raiseEvent(EV_PAUSE);
}

void giveUpQuest() {
    if (!guard(EV_NO_CORRECT)) return;
    HostState& state = host();
    state.kdlState->changeState(EV_NO_CORRECT);
    platform::soundDevice().playSound(state.dataApplication.getEfcUnknown());
    requestDspAns();
    state.requestUserId = -1;

    zelkova::DataPairsList pairs;
    pairs.add("QUEST", state.curQuestNumber);
    pairs.add("ANSWER", answerText());
    pairs.add("RESULT", "正解者なし");
    addScorePairs(pairs);
    writeLog(2000020, pairs);
}

void skipQuest() {
    if (!guard(EV_SKIP)) return;
    // The walk to the place where a quest ends, without sound, notice or score.
    for (const int event : {EV_SKIP, EV_QUEST_START, EV_PLAY, EV_ANSWER_REQUEST, EV_CORRECT})
        host().kdlState->changeState(event);
    endCurrentQuestPenalties();
    refreshUserPane();
    requestRevision();
}

void returnToPreviousQuest() {
    if (host().curQuestNumber < 2 || !guard(EV_SKIP)) return;
    host().curQuestNumber -= 2; // the skip adds 1
    platform::sendMessage(host().consolePane, platform::WM_COMMAND, ids::skip);
}

void reviseUsers() {
    if (dlgRevision(host().mainWindow) == 1 && host().connectionFlg) requestRevision();
}
