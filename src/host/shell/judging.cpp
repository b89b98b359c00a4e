#include "host/shell/judging.h"

#include "console/player_board.h"
#include "data/labels.h"
#include "host/state/current_quest.h"
#include "host/state/effects.h"
#include "host/state/host_log.h"
#include "host/state/host_state.h"
#include "host/state/requests.h"
#include "host/state/scoring.h"

namespace {

DataUserInfo& requester() {
    return host().userList[static_cast<std::size_t>(host().requestUserId)];
}

void logAnswer(const char* answer) {
    zelkova::DataPairsList pairs;
    pairs.add("ANSWER", answer);
    writeLog(1000007, pairs);
}

bool judgeRight(bool cheer) {
    HostState& state = host();
    logAnswer("correct");
    if (!accepts(EV_CORRECT)) return false;
    playEffect(state.effectMedia, state.dataApplication.getEfcOk());
    if (cheer) playEffect(state.bgmMedia, state.dataApplication.getEfcApplause());
    state.kdlState->changeState(EV_CORRECT);
    // A steal is settled when the answers have been shown.
    const int points = state.dataSession.getSteal() == stealNone ? currentPoints() : 0;
    requestAnsRes(true, points);
    addScore(requester(), points);
    return true;
}

bool judgeWrong() {
    HostState& state = host();
    logAnswer("incorrect");
    if (!accepts(EV_INCORRECT)) return false;
    playEffect(state.effectMedia, state.dataApplication.getEfcNg());
    state.kdlState->changeState(EV_INCORRECT);
    applyFalseStart(state.dataSession, requester());
    const int points = wrongAnswerPoints(state.dataSession);
    requestAnsRes(false, points);
    addScore(requester(), points);
    return true;
}

bool withdraw(int event) {
    if (!accepts(event)) return false;
    host().kdlState->changeState(event);
    notifyStatus();
    return true;
}

bool act(Verdict verdict) {
    switch (verdict) {
    case Verdict::Right:
        return judgeRight(false);
    case Verdict::RightWithCheer:
        return judgeRight(true);
    case Verdict::Wrong:
    case Verdict::TimeUp:
        return judgeWrong();
    case Verdict::Pause:
        return withdraw(EV_PAUSE);
    default:
        return withdraw(EV_STOP);
    }
}

const char* resultText(Verdict verdict) {
    switch (verdict) {
    case Verdict::Right:
    case Verdict::RightWithCheer:
        return "正解";
    case Verdict::Wrong:
    case Verdict::TimeUp:
        return "不正解";
    case Verdict::Pause:
        return "一時停";
    default:
        return "拒否";
    }
}

} // namespace

void applyVerdict(Verdict verdict) {
    if (!act(verdict)) return;
    refreshUserPane();
    zelkova::DataPairsList pairs;
    pairs.add("Quest", host().curQuestNumber);
    pairs.add("ANSWER", answerText());
    pairs.add("REQUESTER", requester().getName());
    pairs.add("RESULT", resultText(verdict));
    addScorePairs(pairs);
    writeLog(2000020, pairs);
}

void applySteal(int victim) {
    HostState& state = host();
    playEffect(state.effectMedia, state.dataApplication.getSteal());
    const int points = currentPoints();
    addScore(requester(), points);

    zelkova::DataPairsList pairs;
    pairs.add("QUEST", state.curQuestNumber);
    pairs.add("ANSWER", answerText());
    pairs.add("RESULT", "横取り");
    pairs.add("FROM_USER", requester().getName());
    if (victim >= 0 && victim < maxUsers) {
        DataUserInfo& loser = state.userList[static_cast<std::size_t>(victim)];
        addScore(loser, -std::int64_t{points});
        pairs.add("TO_USER", loser.getName());
    }
    addScorePairs(pairs);
    writeLog(2000020, pairs);
}
