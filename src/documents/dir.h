#pragma once
// A folder with the names in it.

#include <string>
#include <string_view>
#include <vector>

namespace Utility {

// Paths are Shift-JIS. Names come byte-wise in order, folders among files, without "." and "..".
class Dir {
public:
    // The path of a file stands for its folder. An empty path lists nothing, as one that is not there does.
    explicit Dir(std::string_view path);

    const std::string& path() const { return path_; } // every separator as "/"
    const std::vector<std::string>& names() const { return names_; }

private:
    std::string path_;
    std::vector<std::string> names_;
};

} // namespace Utility
