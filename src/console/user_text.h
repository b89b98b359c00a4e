#pragma once
// The host's users by their index, as the dialogs name them. Empty for an index that no user has.

#include <string>

std::string userName(int index);
// "[2]name" for user 1.
std::string userLabel(int index);
