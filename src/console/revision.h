#pragma once
// The dialog in which the host corrects the users by hand: names, states, scores, false starts and rests.

#include "platform/types.h"

// 1 when the users were written, 0 otherwise. Only fields that were changed in the dialog are written, so
// what the terminal says about the users meanwhile stands. A session that ended under the dialog keeps its
// cleared users.
int dlgRevision(platform::WindowHandle owner);
