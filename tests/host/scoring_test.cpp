#include "host/state/scoring.h"

#include <gtest/gtest.h>

#include "data/labels.h"

namespace {

DataSession stageWith(int handsType, int hands, int deduction = 1, int steal = -1) {
    DataSession stage;
    stage.setHandsType(handsType);
    stage.setHands(hands);
    stage.setDeduction(deduction);
    stage.setSteal(steal);
    return stage;
}

DataUserInfo userAt(int score, int right = userTakesPart) {
    DataUserInfo user;
    user.setScore(score);
    user.setAnswerRight(right);
    return user;
}

std::vector<DataUserInfo> usersAt(std::initializer_list<int> scores) {
    std::vector<DataUserInfo> users;
    for (const int score : scores)
        users.push_back(userAt(score));
    return users;
}

std::vector<int> ordersOf(std::vector<DataUserInfo> users) {
    calcOrder(users);
    std::vector<int> orders;
    for (const DataUserInfo& user : users)
        orders.push_back(user.getOrder());
    return orders;
}

} // namespace

TEST(Scoring, FalseStartCountsUntilTheStageLimit) {
    for (const int kind : {+handsInStage, +handsInQuest}) {
        const DataSession stage = stageWith(kind, 2);
        DataUserInfo user = userAt(0);
        applyFalseStart(stage, user);
        EXPECT_EQ(user.getHands(), 1);
        EXPECT_EQ(user.getAnswerRight(), userTakesPart);
        applyFalseStart(stage, user);
        EXPECT_EQ(user.getHands(), 2);
        EXPECT_EQ(user.getAnswerRight(), userFalseStart);
    }
}

TEST(Scoring, RestSitsOutAndDoesNotCount) {
    DataUserInfo user = userAt(0);
    applyFalseStart(stageWith(handsRest, 2), user);
    EXPECT_EQ(user.getHands(), 0);
    EXPECT_EQ(user.getRest(), 2);
    EXPECT_EQ(user.getAnswerRight(), userFalseStart);
}

TEST(Scoring, NoRuleAndLimitZero) {
    DataUserInfo free = userAt(0);
    applyFalseStart(stageWith(-1, 1), free);
    EXPECT_EQ(free.getHands(), 0);
    EXPECT_EQ(free.getAnswerRight(), userTakesPart);

    DataUserInfo out = userAt(0);
    applyFalseStart(stageWith(handsInQuest, 0), out); // out at the first error
    EXPECT_EQ(out.getAnswerRight(), userFalseStart);
}

TEST(Scoring, EndOfQuest) {
    const struct {
        const char* what;
        int handsType, hands, rest, right;
        bool stageEnds;
        int wantHands, wantRest, wantRight;
    } cases[] = {
        {"in a stage: waits for the stage's end", handsInStage, 2, 0, userFalseStart, false, 2, 0,
         userFalseStart},
        {"in a stage: comes back at its end", handsInStage, 2, 0, userFalseStart, true, 0, 0, userTakesPart},
        {"in a quest: comes back", handsInQuest, 1, 0, userFalseStart, false, 0, 0, userTakesPart},
        {"rest 1: plays the next quest", handsRest, 0, 1, userFalseStart, false, 0, 0, userTakesPart},
        {"rest 2: sits out one more", handsRest, 0, 2, userFalseStart, false, 0, 1, userFalseStart},
        {"no rule: stays out", -1, 1, 0, userFalseStart, true, 1, 0, userFalseStart},
        {"below the limit: the count is carried over", handsInQuest, 1, 0, userTakesPart, true, 1, 0,
         userTakesPart},
        {"taken out by the host: stays", handsInQuest, 1, 0, userOut, true, 1, 0, userOut},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<DataUserInfo> users{userAt(0, c.right)};
        users[0].setHands(c.hands);
        users[0].setRest(c.rest);
        endQuestPenalties(stageWith(c.handsType, 2), c.stageEnds, users);
        EXPECT_EQ(users[0].getHands(), c.wantHands);
        EXPECT_EQ(users[0].getRest(), c.wantRest);
        EXPECT_EQ(users[0].getAnswerRight(), c.wantRight);
    }
}

TEST(Scoring, DeductionAboveZeroIsNone) {
    EXPECT_EQ(wrongAnswerPoints(stageWith(-1, 0, -5)), -5);
    EXPECT_EQ(wrongAnswerPoints(stageWith(-1, 0, 0)), 0);
    EXPECT_EQ(wrongAnswerPoints(stageWith(-1, 0, 1)), 0);
    EXPECT_EQ(wrongAnswerPoints(stageWith(-1, 0, 5)), 0);
}

TEST(Scoring, RanksAreDenseAndTiesShare) {
    EXPECT_EQ(ordersOf(usersAt({30, 30, 20})), (std::vector{1, 1, 2}));
    EXPECT_EQ(ordersOf(usersAt({50, 30, 30, 10})), (std::vector{1, 2, 2, 3}));
    EXPECT_EQ(ordersOf(usersAt({-10, -20, 0})), (std::vector{2, 3, 1}));
    EXPECT_EQ(ordersOf(usersAt({0, 0, 0, 0})), (std::vector{1, 1, 1, 1}));
    EXPECT_EQ(ordersOf({userAt(90, userUnset), userAt(5, userOut), userAt(7, userFalseStart)}),
              (std::vector{0, 2, 1}));
}

TEST(Scoring, PointsToTurnTheResultRound) {
    EXPECT_EQ(pointsToTurnRound(usersAt({30, -10, 5})), 41);
    EXPECT_EQ(pointsToTurnRound(usersAt({30})), 1);
    EXPECT_EQ(pointsToTurnRound({userAt(30, userUnset)}), 0);
    EXPECT_EQ(pointsToTurnRound({}), 0);
}
