#pragma once
// The folder that the dialogs for session files open in.

#include <string>

// Where the settings say that the session files are, else the folder of the settings themselves. A full path.
std::string sessionFolder();
