#pragma once
// The container of WMA files: Advanced Systems Format, revision 01.20.

#include "platform/sound/file_window.h"

namespace platform::sound {

bool isAsf(FileWindow& file);

} // namespace platform::sound
