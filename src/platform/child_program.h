#pragma once
// A program that works for this one and ends with it.

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace platform {

namespace detail {
class Process;
}

class ChildProgram {
public:
    // The program and its arguments, in UTF-8. What it says goes to that file, which is made anew.
    ChildProgram(const std::vector<std::string>& command, const std::filesystem::path& output);
    ~ChildProgram(); // asks it to end if it still runs, and waits for that
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    // Waits for its end, so long at most: its exit's code; -1 when it could not be started, still runs, or
    // was ended by a signal.
    int exitCode(int ms);

private:
    std::unique_ptr<detail::Process> process_; // none once it has ended
    int code_ = -1;
};

} // namespace platform
