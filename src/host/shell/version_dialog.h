#pragma once
// What the program is and who made it.

#include "data/data_application.h"
#include "platform/types.h"

void dlgVersion(platform::WindowHandle owner, const DataApplication& settings);
