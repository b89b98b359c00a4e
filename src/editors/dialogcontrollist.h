#pragma once

#include "platform/types.h"

// The way into the music catalogue: adding files, searching, the list of all songs.
void dialogControlList(platform::WindowHandle owner);
