#pragma once
// Threads that nobody waits for, since the library they are in may never answer; only the end of the program
// gives them a moment to finish.

#include <functional>

namespace platform::sound {

// False, and the work is not done, when the system has no thread left.
bool runInBackground(std::function<void()> work);

// Waits at most so long for all of them; true when none is left.
bool waitForBackground(int waitMs);

} // namespace platform::sound
