#pragma once
// Files that are not to be written.

#include <filesystem>

namespace platform::detail {

// A file that is there and that nobody may write, or that this user may not. The superuser, who may write
// everything, is held to the first as well: whoever took every permission away meant it. A file is replaced
// by renaming, for which the system asks the folder's permissions alone.
bool isWriteProtected(const std::filesystem::path& file);

} // namespace platform::detail
