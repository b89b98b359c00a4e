#pragma once
// Files, folders and addresses for the desktop's own programs.

#include <string>

#include "platform/shell.h"
#include "platform/types.h"

namespace zelkova {

// Where the desktop has no program for it, the host is told where the thing is.
void openWithDesktop(platform::WindowHandle owner, const std::string& target,
                     bool (*way)(const std::string&) = platform::shellOpen);

// The message that tells so.
void reportNotOpened(platform::WindowHandle owner, const std::string& target);

} // namespace zelkova
