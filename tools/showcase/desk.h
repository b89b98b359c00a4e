#pragma once
// What steps of a road look at.

#include <functional>
#include <string>

#include "platform/types.h"

namespace showcase {

// The show stands in the state of that name, and no request to the terminal is open.
bool inState(const std::string& name);
// The innermost dialog, when it is of that name; no window otherwise.
platform::WindowHandle openDialog(const std::string& name);
std::function<bool()> dialogIs(const char* name);
// No dialog is open, and no session.
bool deskIsFree();

} // namespace showcase
