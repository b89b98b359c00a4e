#pragma once
// Programs that are started and then left to themselves.

#include <functional>
#include <string>
#include <vector>

namespace platform::detail {

// Starts a program with its arguments, in UTF-8; a name without "/" is looked for in the search path. False
// when there is no such program. It runs in a session of its own, holds no file of this program but standard
// output and error, and goes on when this one ends.
//
// `failed` is called once, from the message loop, when the program ends with another code than 0, or by a
// signal, within ten seconds: then it has not done what it was started for.
bool startProgram(const std::vector<std::string>& command, std::function<void()> failed);
// The same without a message loop: the answer, to be asked for once, waits for the end that `failed` would
// tell of. False also when there is no such program.
std::function<bool()> startProgram(const std::vector<std::string>& command);

} // namespace platform::detail
