#include "showcase/terminal_process.h"

#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace showcase {

TerminalProcess::TerminalProcess(const std::filesystem::path& program, const std::filesystem::path& script,
                                 const std::filesystem::path& log)
    : process_(fork()) {
    if (process_ != 0) return;
    const int out = ::open(log.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(out, STDOUT_FILENO);
    dup2(out, STDERR_FILENO);
    execl(program.c_str(), program.c_str(), "--script", script.c_str(), nullptr);
    _exit(127);
}

TerminalProcess::~TerminalProcess() {
    if (process_ <= 0) return;
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
}

int TerminalProcess::exitCode() {
    if (process_ <= 0) return -1;
    for (int tries = 0; tries < 100; ++tries) {
        int status = 0;
        if (waitpid(process_, &status, WNOHANG) == process_) {
            process_ = 0;
            return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        }
        usleep(100'000);
    }
    return -1;
}

} // namespace showcase
