#pragma once
// What programs that work in one folder promise each other: some share it, or one has it alone.

#include <optional>
#include <string_view>

namespace platform {

// Holds as long as it lives and its process does, however that ends. Nothing is written, so it holds in a
// folder that is read-only too; programs started meanwhile do not inherit it.
class FolderLock {
public:
    enum class Kind { Shared, Exclusive };
    // At once: none when another lock on the folder does not go with this one. A folder that cannot be locked
    // (it is not there, or its file system has no locks) counts as free. Paths as in files.h.
    static std::optional<FolderLock> take(std::string_view folder, Kind kind);

    FolderLock(FolderLock&& other) noexcept;
    FolderLock& operator=(FolderLock&&) = delete;
    ~FolderLock();

private:
    explicit FolderLock(int descriptor) : descriptor_(descriptor) {}

    int descriptor_; // below 0: of nothing
};

} // namespace platform
