#pragma once
// Which of the desktop's programs takes which files.

#include <string>

namespace platform {

// Full path of the program that the desktop opens files of the extension with (".doc"); "" when there is
// none, or its path has no place in the code page.
std::string programFor(const std::string& extension);

} // namespace platform
