#include "host/state/scoring.h"

#include <algorithm>
#include <limits>

#include "data/labels.h"
#include "foundation/text.h"
#include "host/state/console_ids.h"
#include "host/state/host_state.h"
#include "host/state/quest.h"
#include "platform/controls.h"

namespace {

std::string bracketed(int number) {
    return "[" + zelkova::numberToText(number) + "]";
}

int saturated(std::int64_t number) {
    using Limits = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

void readmit(DataUserInfo& user) {
    user.setHands(0);
    user.setAnswerRight(userTakesPart);
}

} // namespace

void applyFalseStart(const DataSession& stage, DataUserInfo& user) {
    switch (stage.getHandsType()) {
    case handsInStage:
    case handsInQuest:
        user.setHands(saturated(std::int64_t{user.getHands()} + 1));
        if (user.getHands() >= stage.getHands()) user.setAnswerRight(userFalseStart);
        break;
    case handsRest:
        user.setRest(stage.getHands());
        user.setAnswerRight(userFalseStart);
        break;
    default:
        break;
    }
}

int wrongAnswerPoints(const DataSession& stage) {
    return std::min(stage.getDeduction(), 0);
}

void endQuestPenalties(const DataSession& stage, bool stageEnds, std::vector<DataUserInfo>& users) {
    for (DataUserInfo& user : users) {
        if (user.getAnswerRight() != userFalseStart) continue;
        switch (stage.getHandsType()) {
        case handsInStage:
            if (stageEnds) readmit(user);
            break;
        case handsInQuest:
            readmit(user);
            break;
        case handsRest:
            user.setRest(std::max(user.getRest(), 1) - 1);
            if (user.getRest() == 0) user.setAnswerRight(userTakesPart);
            break;
        default:
            break;
        }
    }
}

void endCurrentQuestPenalties() {
    HostState& state = host();
    const auto here = findQuest(state.sessionList, state.curQuestNumber);
    const auto next = findQuest(state.sessionList, state.curQuestNumber + 1);
    // Two neighbouring stages of one name count as one.
    const bool stageEnds =
        !here || !next ||
        state.sessionList[here->stage].getName() != state.sessionList[next->stage].getName();
    endQuestPenalties(state.dataSession, stageEnds, state.userList);
}

void calcOrder(std::vector<DataUserInfo>& users) {
    for (DataUserInfo& user : users)
        user.setOrder(0);
    for (int rank = 1;; ++rank) {
        int highest = std::numeric_limits<int>::min();
        bool found = false;
        for (const DataUserInfo& user : users) {
            if (user.getAnswerRight() == userUnset || user.getOrder() != 0) continue;
            highest = std::max(highest, user.getScore());
            found = true;
        }
        if (!found) return;
        for (DataUserInfo& user : users)
            if (user.getAnswerRight() != userUnset && user.getOrder() == 0 && user.getScore() == highest)
                user.setOrder(rank);
    }
}

int pointsToTurnRound(const std::vector<DataUserInfo>& users) {
    int highest = std::numeric_limits<int>::min(), lowest = std::numeric_limits<int>::max();
    for (const DataUserInfo& user : users) {
        if (user.getAnswerRight() == userUnset) continue;
        highest = std::max(highest, user.getScore());
        lowest = std::min(lowest, user.getScore());
    }
    return highest < lowest ? 0 : saturated(std::int64_t{highest} - lowest + 1);
}

std::string penaltyText(const DataSession& stage) {
    std::vector<std::string> lines;
    if (stage.getDeduction() != 1) lines.push_back("減点:" + bracketed(stage.getDeduction()));
    if (stage.getHandsType() != -1)
        lines.push_back("お手つき(" + handsTypeLabels.text(stage.getHandsType()) +
                        "):" + bracketed(stage.getHands()));
    if (stage.getSteal() != -1) lines.push_back("横取り:[" + stealLabels.text(stage.getSteal()) + "]");
    if (lines.empty()) return "なし";
    std::string text = lines[0];
    for (std::size_t i = 1; i < lines.size(); ++i)
        text += "\r\n" + lines[i];
    return text;
}

std::string falseStartText(const DataSession& stage) {
    const std::string count = bracketed(stage.getHands());
    switch (stage.getHandsType()) {
    case handsInStage:
        return "このステージ中に" + count + "回 お手つきした場合、このステージが完了するまでお休み。";
    case handsInQuest:
        return "この問題中に" + count + "回 お手つきした場合、この問題が完了するまでお休み。";
    case handsRest:
        return "１回でもお手つきした場合、次の" + count + "問はお休み。";
    default:
        return {};
    }
}

void addScore(DataUserInfo& user, std::int64_t points) {
    user.setScore(saturated(user.getScore() + points));
}

int currentPoints() {
    return zelkova::stringToInt(platform::getText({host().consolePane, ids::points}));
}
