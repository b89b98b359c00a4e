#include "host/state/scoring.h"

#include <algorithm>
#include <limits>

#include "data/labels.h"

namespace {

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

void addScore(DataUserInfo& user, std::int64_t points) {
    user.setScore(saturated(user.getScore() + points));
}
