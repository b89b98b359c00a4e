#pragma once
// The dialog after a quest's answer is on the terminal's screen: who was right, what was right, the answers
// to hear, and in a stage with a steal whose points the winner takes.

#include "platform/types.h"

// With OK the index of the victim in a stage with a steal (-1 when nobody was chosen), 1 in any other stage;
// -2 when the dialog was closed in another way. `requestUserId` is the winner's index, -1 when nobody was
// right.
int dlgAnswerDisplay(platform::WindowHandle owner, int requestUserId);
