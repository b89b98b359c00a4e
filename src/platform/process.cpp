#include "platform/detail/process.h"

#include <algorithm>
#include <csignal>
#include <limits>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform::detail {

namespace {

// What the system wants to know of a program that is started.
class Setup {
public:
    explicit Setup(const Spawn& spawn) {
        sigset_t none, all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setsigdefault(&attributes, &all);
        const int session = spawn.ownSession ? POSIX_SPAWN_SETSID : 0;
        posix_spawnattr_setflags(
            &attributes, static_cast<short>(session | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        if (!spawn.output.empty()) {
            posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, spawn.output.c_str(),
                                             O_WRONLY | O_CREAT | O_TRUNC, 0644);
            posix_spawn_file_actions_adddup2(&files, STDOUT_FILENO, STDERR_FILENO);
        }
        // A socket that lives on in an office program would keep its port taken.
        posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
    }
    ~Setup() {
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
    }
    Setup(const Setup&) = delete;
    Setup& operator=(const Setup&) = delete;

    posix_spawnattr_t attributes;
    posix_spawn_file_actions_t files;
};

} // namespace

std::optional<Process> Process::start(const Spawn& spawn) {
    std::vector<char*> arguments;
    for (const std::string& argument : spawn.command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const Setup setup(spawn);
    pid_t id = 0;
    if (posix_spawnp(&id, arguments[0], &setup.files, &setup.attributes, arguments.data(), environ) != 0)
        return std::nullopt;
    return Process(id);
}

// The C library's own declaration of this call cannot be linked from C++.
Process::Process(pid_t id) : id_(id), descriptor_(static_cast<int>(::syscall(SYS_pidfd_open, id, 0))) {}

Process::Process(Process&& other) noexcept
    : id_(other.id_), descriptor_(std::exchange(other.descriptor_, -1)) {}

Process::~Process() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

bool Process::endsWithin(std::int64_t ms) const {
    pollfd end{descriptor_, POLLIN, 0}; // one that is not there never becomes readable
    return ::poll(&end, 1,
                  static_cast<int>(std::clamp<std::int64_t>(ms, 0, std::numeric_limits<int>::max()))) > 0;
}

int Process::exitCode() const {
    siginfo_t end{};
    const bool told = ::waitid(P_PID, static_cast<id_t>(id_), &end, WEXITED) == 0;
    return told && end.si_code == CLD_EXITED ? end.si_status : -1;
}

void Process::interrupt() const {
    ::kill(id_, SIGTERM);
}

} // namespace platform::detail
