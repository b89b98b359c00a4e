#pragma once
// The desktop around the program: opening files with their programs, where the program lies.

#include <string>

namespace platform {

// Hands the file, folder or address to the desktop's program for it. False when there is none.
bool shellOpen(const std::string& target);
bool shellExplore(const std::string& folder);
// Starts that very program on one file and does not wait for it. `program` is a path or a name that the
// search path knows. False when it cannot be started.
bool shellRun(const std::string& program, const std::string& file);

// Full path of the running program.
std::string moduleFileName();

} // namespace platform
