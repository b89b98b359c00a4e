#pragma once
// What a verdict of the answer request dialog does: state, sound, score, message to the terminal.

#include "console/answer_request.h"

// For the user in requestUserId. Refused (and nothing done) when the session has ended meanwhile.
void applyVerdict(Verdict verdict);

// Applies a steal after the answers were shown: the points of the console go to the winner and come off the
// victim, -1 when there is none.
void applySteal(int victim);
