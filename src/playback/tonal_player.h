#pragma once
// The player window: a small jukebox over the catalogue, which stands apart from the show.

#include "platform/types.h"

// Runs until the user closes it. Volume and speed are kept for the next time.
void dlgTonalPlayer(platform::WindowHandle owner);
