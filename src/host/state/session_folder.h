#pragma once
#include <string>

// Where the settings say that the session files are, else the folder of the settings themselves. A full path.
std::string sessionFolder();
