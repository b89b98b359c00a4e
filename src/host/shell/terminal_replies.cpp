#include "host/shell/terminal_replies.h"

#include "console/answer_display.h"
#include "console/confirm_victory.h"
#include "console/console_pane.h"
#include "console/data_pane.h"
#include "console/player_board.h"
#include "data/labels.h"
#include "foundation/views/message_box.h"
#include "host/shell/judging.h"
#include "host/shell/session_commands.h"
#include "host/shell/timers.h"
#include "host/state/console_ids.h"
#include "host/state/current_quest.h"
#include "host/state/effects.h"
#include "host/state/history_record.h"
#include "host/state/host_log.h"
#include "host/state/host_state.h"
#include "host/state/intro_state.h"
#include "host/state/play_control.h"
#include "host/state/quest.h"
#include "host/state/requests.h"
#include "host/state/status_bar.h"
#include "platform/messages.h"
#include "platform/sound.h"
#include "protocol/define_vrp.h"
#include "protocol/messages.h"

namespace {

constexpr unsigned leadInTickMs = 500;
constexpr unsigned applauseDelayMs = 500;

// The session that a handler began with may be over when a dialog closes.
bool sessionStands(const IntroState* state) {
    return host().server && host().kdlState && host().kdlState->is(state);
}

void startLeadIn() {
    HostState& state = host();
    loadSound(state.effectMedia, state.dataApplication.getEfcQuestion());
    state.leadInEnd = state.effectMedia.getEnd();
    state.effectMedia.play();
    state.leadInWatch.begin(state.effectMedia);
    platform::setTimer(state.mainWindow, ids::leadInTimer, leadInTickMs);
    state.vrmStatus = 0;

    openQuestRecord();
    writeLog(2000019, {{"Quest", state.curQuestNumber}, {"Answer", answerText()}});
}

void startPlay() {
    HostState& state = host();
    stopSongs();
    startSongs();
    startPlayTimer();
    state.playElapsed = 0;
    state.songsStarted = true;
    state.vrmStatus = 0;
}

void onStatusReply(int code) {
    switch (code) {
    case DefineVrp::leadIn:
        startLeadIn();
        break;
    case DefineVrp::play:
        startPlay();
        break;
    case DefineVrp::stop:
        haltSongs();
        host().vrmStatus = 0;
        break;
    default:
        host().vrmStatus = 0;
        break;
    }
}

void onVerdictReply(int code) {
    host().vrmStatus = 0;
    if (code == DefineVrp::showAnswers) requestDspAns();
}

void onAnswersShown() {
    HostState& state = host();
    state.vrmStatus = 0;
    const int victim = dlgAnswerDisplay(state.mainWindow, state.requestUserId);
    if (!sessionStands(StateDsp::getInstance())) return;
    if (state.requestUserId != -1 && state.dataSession.getSteal() != stealNone) applySteal(victim);
    endCurrentQuestPenalties();
    refreshUserPane();
    requestRevision();
    completeQuestRecord();
}

bool enterNextQuest() {
    HostState& state = host();
    if (!guard(EV_NEXT)) return false;
    state.kdlState->changeState(EV_NEXT);
    initResource();
    showQuest(state.sessionList, state.curQuestNumber);
    redrawQuestList();
    checkAllSongs();
    return true;
}

std::string winners() {
    std::string names;
    for (const DataUserInfo& user : host().userList)
        if (user.getOrder() == 1) names += (names.empty() ? "" : "，") + user.getName();
    return names;
}

bool finishSession() {
    HostState& state = host();
    if (!guard(EV_FINISH)) return false;
    state.kdlState->changeState(EV_FINISH);
    warnOfQuest({});
    if (!state.dataApplication.getMasterOfCeremony()) {
        dlgConfirmVictory(state.mainWindow);
        if (!sessionStands(StateEnd::getInstance())) return false;
    }
    if (state.dataApplication.getEnableVectory())
        playEffect(state.bgmMedia, state.dataApplication.getEfcVectory());
    for (DataUserInfo& user : state.userList) {
        user.setType(typeEndResult);
        if (user.getOrder() == 1) user.setActionId(actionWinner);
    }
    requestRevision();
    showStatusBar(2000026);
    platform::setTimer(state.mainWindow, ids::applauseTimer, applauseDelayMs);
    writeLog(2000027, {{"USER", winners()}});
    return true;
}

void onRevisionReply() {
    HostState& state = host();
    state.vrmStatus = 0;
    if (!state.kdlState->is(StateDsp::getInstance())) return; // sent by the revision dialog or for the result
    ++state.curQuestNumber;
    if (state.questsLeftInPart > 0) --state.questsLeftInPart;
    const bool questFound =
        questToSessionInfo(state.curQuestNumber, state.dataSession, state.dataResourceList);
    if (!(questFound ? enterNextQuest() : finishSession())) return;
    if (state.totalQuestNumber == state.curQuestNumber && state.dataApplication.getEnableFinalBell())
        platform::soundDevice().playSound(state.dataApplication.getEfcFinalBell());
}

} // namespace

void onReply(const VRMessage& message) {
    HostState& state = host();
    const VRMResponse response(message);
    const std::string reply = response.getReply();
    if (reply == DefineVrp::MDS_CLOSE) {
        const LogRange branch("lpVrmResponse->getReply()==DefineVrp::MDS_CLOSE");
        state.vrmStatus = 0;
        dropTerminal(); // closing our end ourselves, we hear of no loss
    } else if (reply != state.requestMethod) {
        const LogRange branch("lpVrmResponse->getReply()!=requestMethod");
        // Closed first: behind the box the terminal may already answer again.
        state.vrmStatus = 0;
        zelkova::reportMessage(state.mainWindow, 4000004, {{"REPLY_METHOD", reply}});
    } else if (reply == DefineVrp::MDS_STATUSNOTIFY) {
        const LogRange branch("lpVrmResponse->getReply()==DefineVrp::MDS_STATUSNOTIFY");
        onStatusReply(response.getCode());
    } else if (reply == DefineVrp::MDS_ANSRES) {
        const LogRange branch("lpVrmResponse->getReply()==DefineVrp::MDS_ANSRES");
        onVerdictReply(response.getCode());
    } else if (reply == DefineVrp::MDS_DSPANS) {
        const LogRange branch("lpVrmResponse->getReply()==DefineVrp::MDS_DSPANS");
        onAnswersShown();
    } else if (reply == DefineVrp::MDS_REVISION) {
        const LogRange branch("lpVrmResponse->getReply()==DefineVrp::MDS_REVISION");
        onRevisionReply();
    }
}
