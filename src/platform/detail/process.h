#pragma once
// Programs as processes of the system.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace platform::detail {

struct Spawn {
    std::vector<std::string> command;  // the program and its arguments, in UTF-8
    bool ownSession = false;           // then no signal of the keyboard reaches it
    std::filesystem::path output = {}; // a new file for what it says; empty: where this program says it
};

// A program that was started: a name without "/" is looked for in the search path. It holds no file of this
// program but standard output and error, and goes on when this object ends.
class Process {
public:
    // None when there is no such program.
    static std::optional<Process> start(const Spawn& spawn);

    Process(Process&& other) noexcept;
    Process& operator=(Process&&) = delete;
    ~Process();

    // Becomes readable when the program ends; below 0 on a system that does not tell.
    int descriptor() const { return descriptor_; }
    // Waits so long at most.
    bool endsWithin(std::int64_t ms) const;
    // Waits for the end, and is asked for once: the exit's code, or -1 when a signal ended it.
    int exitCode() const;
    void interrupt() const; // asks it to end

private:
    explicit Process(pid_t id);

    pid_t id_;
    int descriptor_;
};

} // namespace platform::detail
