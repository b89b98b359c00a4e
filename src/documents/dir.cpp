#include "documents/dir.h"

#include <algorithm>
#include <filesystem>

#include "foundation/path.h"
#include "foundation/text.h"
#include "platform/files.h"

namespace Utility {

Dir::Dir(std::string_view path) : path_(zelkova::replaceAll(path, "\\", "/")) {
    std::error_code failure;
    if (std::filesystem::is_regular_file(platform::nativePath(path_), failure))
        path_ = zelkova::getFolder(path_);
    for (const platform::FolderEntry& entry : platform::listFolder(path_))
        names_.push_back(entry.name);
    std::ranges::sort(names_);
}

} // namespace Utility
