#pragma once
// The quest that is being played, as the host's state and console hold it.

#include <string>

#include "foundation/data_pairs.h"

// "<1>:title(artist) <2>:title(artist)" for its songs.
std::string answerText();

// Title and artist of each of its songs.
zelkova::DataPairsList questAnswers();

// The points that count for a right answer now: what stands in the console's 得点 box.
int currentPoints();

// The end-of-quest rule for all users.
void endCurrentQuestPenalties();

// Appends SCORE1 to SCORE4, the users' present scores.
void addScorePairs(zelkova::DataPairsList& pairs);
