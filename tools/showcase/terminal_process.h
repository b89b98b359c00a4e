#pragma once
// The demonstration terminal as a process of its own, playing a script.

#include <filesystem>

#include <sys/types.h>

namespace showcase {

class TerminalProcess {
public:
    // Its output goes to the log file.
    TerminalProcess(const std::filesystem::path& program, const std::filesystem::path& script,
                    const std::filesystem::path& log);
    ~TerminalProcess(); // ends it if it still runs
    TerminalProcess(const TerminalProcess&) = delete;
    TerminalProcess& operator=(const TerminalProcess&) = delete;

    // Waits for its end, ten seconds at most; its exit code, or -1.
    int exitCode();

private:
    pid_t process_;
};

} // namespace showcase
