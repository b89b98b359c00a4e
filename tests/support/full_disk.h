#pragma once
// A disk that is full in the middle of a write.

#include <csignal>

#include <sys/resource.h>

namespace test_support {

// Does it while no file can grow beyond so many bytes.
template <class Action>
auto onFullDisk(rlim_t bytes, const Action& action) {
    rlimit old{};
    getrlimit(RLIMIT_FSIZE, &old);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{bytes, old.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const auto answer = action();
    setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    return answer;
}

} // namespace test_support
