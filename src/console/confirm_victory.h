#pragma once
// The dialog with which the host holds the announcement of the result back.

#include "platform/types.h"

// 1 for OK, 0 otherwise. Uses, and at the end closes, the host's players for effects and background music.
int dlgConfirmVictory(platform::WindowHandle owner);
