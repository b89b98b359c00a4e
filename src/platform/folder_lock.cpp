#include "platform/folder_lock.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "platform/files.h"

namespace platform {

std::optional<FolderLock> FolderLock::take(std::string_view folder, Kind kind) {
    FolderLock lock(::open(nativePath(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const int mode = (kind == Kind::Shared ? LOCK_SH : LOCK_EX) | LOCK_NB;
    if (lock.descriptor_ >= 0 && ::flock(lock.descriptor_, mode) != 0 && errno == EWOULDBLOCK)
        return std::nullopt;
    return lock;
}

FolderLock::FolderLock(FolderLock&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

FolderLock::~FolderLock() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

} // namespace platform
