#pragma once
// The question before a file takes the place of what others have written into it.

#include <string>

// Asks, over whatever dialog is open, whether a file that somebody else has changed may be replaced. No is
// the answer that Enter gives. Logged.
bool mayOverwrite(const std::string& file);
