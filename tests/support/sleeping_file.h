#pragma once
// A file on a disk that sleeps.

#include <csignal>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

namespace test_support {

// Whoever opens the file waits until this object goes; its name, size and kind are told at once. It must be
// the only one that has the file open.
class SleepingFile {
public:
    explicit SleepingFile(const std::filesystem::path& path)
        : descriptor_(::open(path.c_str(), O_RDWR | O_CLOEXEC)) {
        // The system signals that somebody waits.
        ::fcntl(descriptor_, F_SETSIG, SIGURG);
        sleeps_ = ::fcntl(descriptor_, F_SETLEASE, F_WRLCK) == 0;
    }
    ~SleepingFile() { ::close(descriptor_); }
    SleepingFile(const SleepingFile&) = delete;
    SleepingFile& operator=(const SleepingFile&) = delete;

    bool sleeps() const { return sleeps_; } // not every file system can

private:
    const int descriptor_;
    bool sleeps_ = false;
};

} // namespace test_support
