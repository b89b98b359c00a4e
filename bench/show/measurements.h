#pragma once
// The measurements. False when something went wrong on the way, which makes the figures worthless; a goal
// that is missed is only printed.

#include <string>

namespace bench {

bool measureBuzzes(bool withGstreamer);
bool measureLongSession();
bool measureStart();

// The other end of measureStart: runs the program in the folder until its window stands, tells what it saw on
// standard output and ends.
int startOnce(int argc, char** argv, const std::string& moduleFolder);

} // namespace bench
