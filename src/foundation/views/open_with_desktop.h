#pragma once
// Files, folders and addresses for the desktop's own programs.

#include <string>

#include "platform/types.h"

namespace zelkova {

// Where the desktop has no program for it, or that program fails, the host is told where the thing is: at
// once, or when it turns out. The owner may be gone by then.
void openWithDesktop(platform::WindowHandle owner, const std::string& target);

} // namespace zelkova
