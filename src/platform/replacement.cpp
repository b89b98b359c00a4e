#include "platform/detail/replacement.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform::detail {

namespace fs = std::filesystem;

namespace {

// Of the call that has just answered so.
std::error_code failureUnless(bool done) {
    return done ? std::error_code() : std::error_code(errno, std::generic_category());
}

std::error_code writeWhole(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return failureUnless(false);
        if (written == 0) return std::make_error_code(std::errc::io_error);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

void flushFolder(const fs::path& folder) {
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    ::fsync(descriptor);
    ::close(descriptor);
}

// Of a new file. Asked for before main, while no other thread makes files: the question changes the answer
// for a moment.
const mode_t usualMode = [] {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}();

} // namespace

Replacement::Replacement(const fs::path& target) : target_(target) {
    std::string name = target.native() + ".XXXXXX";
    descriptor_ = ::mkostemp(name.data(), O_CLOEXEC);
    failure_ = failureUnless(descriptor_ >= 0);
    if (!failure_) neighbour_ = std::move(name);
}

Replacement::~Replacement() {
    if (descriptor_ >= 0) ::close(descriptor_);
    if (!neighbour_.empty()) ::unlink(neighbour_.c_str());
}

std::error_code Replacement::take() {
    if (failure_) return failure_;
    if (::fsync(descriptor_) != 0 || ::close(std::exchange(descriptor_, -1)) != 0 ||
        ::rename(neighbour_.c_str(), target_.c_str()) != 0)
        return failureUnless(false);
    neighbour_.clear();
    flushFolder(target_.parent_path());
    return {};
}

std::error_code replaceBytes(const fs::path& target, std::string_view bytes) {
    struct stat old {};
    const mode_t mode = ::stat(target.c_str(), &old) == 0 ? old.st_mode & 07777 : usualMode;
    Replacement replacement(target);
    if (replacement.failure()) return replacement.failure();
    if (::fchmod(replacement.descriptor(), mode) != 0) return failureUnless(false);
    if (const std::error_code failure = writeWhole(replacement.descriptor(), bytes)) return failure;
    return replacement.take();
}

} // namespace platform::detail
