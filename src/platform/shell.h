#pragma once
// The desktop around the program: opening files with their programs, where the program lies.

#include <functional>
#include <string>

namespace platform {

// Tells that nothing was opened. It is called at most once: before the request returns when there is no
// program to hand the thing to, or later from the message loop, when that program ends with a failure soon
// after its start.
using NotOpened = std::function<void()>;

// Hands the file, folder or address to the desktop's program for it, without waiting.
void shellOpen(const std::string& target, const NotOpened& notOpened);
// The same for a program that is about to end: the answer, to be asked for once, waits until it is known
// whether the target was opened, for ten seconds at most.
std::function<bool()> shellOpenAtEnd(const std::string& target);
// Starts that very program on one file and does not wait for it. `program` is a path or a name that the
// search path knows.
void shellRun(const std::string& program, const std::string& file, const NotOpened& notOpened);

// Full path of the running program.
std::string moduleFileName();

} // namespace platform
