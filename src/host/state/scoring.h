#pragma once
// All arithmetic of points, false starts, rests and ranks. Sums that do not fit stop at the nearest number
// that does.

#include <cstdint>
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

// Dense ranks into `order`; users without a state get 0.
void calcOrder(std::vector<DataUserInfo>& users);

// Points that the last needs to pass the first: highest less lowest plus 1; 0 when there is no user.
int pointsToTurnRound(const std::vector<DataUserInfo>& users);

void addScore(DataUserInfo& user, std::int64_t points);
