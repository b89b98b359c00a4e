#pragma once
// Programs that a test runs to their end.
#include <cstdio>
#include <string>

#include <sys/wait.h>

namespace test_support {

struct EndedProgram {
    int code = -1; // of the exit; -1 when a signal ended it
    std::string said;
};

// The command as a shell understands it, its standard error beside its output.
inline EndedProgram runProgram(const std::string& command) {
    EndedProgram ended;
    std::FILE* const program = ::popen((command + " 2>&1").c_str(), "r");
    for (int c; (c = std::fgetc(program)) != EOF;)
        ended.said += static_cast<char>(c);
    const int status = ::pclose(program);
    if (WIFEXITED(status)) ended.code = WEXITSTATUS(status);
    return ended;
}

} // namespace test_support
