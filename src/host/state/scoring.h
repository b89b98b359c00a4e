#pragma once
// All arithmetic of points, false starts, rests and ranks. Sums that do not fit stop at the nearest number
// that does.

#include <string>
#include <vector>

#include "data/data_session.h"
#include "data/data_user_info.h"

// The false-start rule of the stage, for a wrong answer of this user.
void applyFalseStart(const DataSession& stage, DataUserInfo& user);

// What a wrong answer adds to the score, and the Score of its verdict: the deduction when it is 0 or below,
// otherwise 0.
int wrongAnswerPoints(const DataSession& stage);

// The end-of-quest rule for every user in state お手つき. `stageEnds`: the next quest belongs to a stage of
// another name, or there is none.
void endQuestPenalties(const DataSession& stage, bool stageEnds, std::vector<DataUserInfo>& users);

// The same for the current quest of the open session.
void endCurrentQuestPenalties();

// Dense ranks into `order`; users without a state get 0.
void calcOrder(std::vector<DataUserInfo>& users);

// Points that the last needs to pass the first: highest less lowest plus 1; 0 when there is no user.
int pointsToTurnRound(const std::vector<DataUserInfo>& users);

// The three lines at most of the console's penalty label, "なし" without any rule.
std::string penaltyText(const DataSession& stage);

// The false-start rule in a sentence; empty when there is none.
std::string falseStartText(const DataSession& stage);

void addScore(DataUserInfo& user, std::int64_t points);

// The points that count for a right answer now: what stands in the console's 得点 box.
int currentPoints();
