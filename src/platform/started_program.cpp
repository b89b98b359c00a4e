#include "platform/detail/started_program.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <algorithm>
#include <csignal>
#include <memory>
#include <optional>

#include "platform/detail/delivery.h"
#include "platform/detail/time_source.h"

namespace platform::detail {

namespace {

// An opener that has no program for a file tells so in a moment; an editor that is closed after a while, with
// whatever code, has shown its file.
constexpr std::int64_t startMs = 10'000;

// What the system wants to know of a program that is started.
class Setup {
public:
    Setup() {
        sigset_t none, all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setsigdefault(&attributes, &all);
        posix_spawnattr_setflags(&attributes,
                                 POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
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

std::optional<pid_t> spawn(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const Setup setup;
    pid_t id = 0;
    if (posix_spawnp(&id, arguments[0], &setup.files, &setup.attributes, arguments.data(), environ) != 0)
        return std::nullopt;
    return id;
}

// A running program as a descriptor, which becomes readable when the program ends.
struct Running {
    // The C library's own declaration of this call cannot be linked from C++.
    explicit Running(pid_t id) : descriptor(static_cast<int>(::syscall(SYS_pidfd_open, id, 0))) {}
    ~Running() {
        if (descriptor >= 0) ::close(descriptor);
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    bool endedWell() const {
        siginfo_t end{};
        return ::waitid(P_PIDFD, static_cast<id_t>(descriptor), &end, WEXITED) == 0 &&
               end.si_code == CLD_EXITED && end.si_status == 0;
    }

    const int descriptor;
};

} // namespace

bool startProgram(const std::vector<std::string>& command, std::function<void()> failed) {
    const auto id = spawn(command);
    if (!id) return false;
    const auto running = std::make_shared<const Running>(*id);
    if (running->descriptor < 0) return true; // a system that does not tell

    auto* const end =
        new QSocketNotifier(running->descriptor, QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(end, &QSocketNotifier::activated, end,
                     [end, running, failed = std::move(failed), latest = nowMs() + startMs] {
                         end->setEnabled(false);
                         end->deleteLater();
                         if (!running->endedWell() && nowMs() <= latest) enterProgram(failed);
                     });
    return true;
}

std::function<bool()> startProgram(const std::vector<std::string>& command) {
    const auto id = spawn(command);
    if (!id) return [] { return false; };
    return [running = std::make_shared<const Running>(*id), latest = nowMs() + startMs] {
        pollfd end{running->descriptor, POLLIN, 0}; // one that is not there never becomes readable
        const auto left = static_cast<int>(std::max<std::int64_t>(latest - nowMs(), 0));
        return ::poll(&end, 1, left) <= 0 || running->endedWell();
    };
}

} // namespace platform::detail
