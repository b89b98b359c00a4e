#pragma once
// Programs that the tests write themselves, as shell scripts.
#include <filesystem>
#include <fstream>
#include <string>

#include <stdlib.h>

namespace test_support {

inline void writeProgram(const std::filesystem::path& path, const std::string& lines) {
    std::ofstream(path) << "#!/bin/sh\n" << lines;
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
}

// While it lives, programs are looked for in that folder first, or nowhere else.
class SearchPath {
public:
    enum Rest { WithTheRest, Alone };
    explicit SearchPath(const std::filesystem::path& folder, Rest rest = WithTheRest)
        : before_(getenv("PATH")) {
        const std::string path = folder.string() + (rest == WithTheRest ? ":" + before_ : "");
        setenv("PATH", path.c_str(), 1);
    }
    ~SearchPath() { setenv("PATH", before_.c_str(), 1); }
    SearchPath(const SearchPath&) = delete;
    SearchPath& operator=(const SearchPath&) = delete;

private:
    const std::string before_;
};

} // namespace test_support
