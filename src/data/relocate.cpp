#include "data/relocate.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <system_error>

#include "foundation/text.h"
#include "platform/files.h"

namespace {

// Folders and name of a path from the file upward, in a form in which equal ones compare equal.
std::vector<std::string> partsUpward(std::string_view path) {
    std::vector<std::string> parts =
        zelkova::split(zelkova::replaceAll(zelkova::toLowerSjis(path), "\\", "/"), "/");
    std::ranges::reverse(parts);
    return parts;
}

struct Candidate {
    std::string path;
    std::vector<std::string> parts;
};
using Index = std::map<std::string, std::vector<Candidate>>; // by name

// Links to folders are not followed: they may lead in a circle.
Index indexFolder(const std::string& folder) {
    namespace fs = std::filesystem;
    Index index;
    std::error_code failure, ignored;
    fs::recursive_directory_iterator entry(platform::nativePath(folder),
                                           fs::directory_options::skip_permission_denied, failure);
    for (; !failure && entry != fs::recursive_directory_iterator(); entry.increment(failure)) {
        const std::optional<std::string> path = platform::programPath(entry->path());
        if (!path || !entry->is_regular_file(ignored)) continue;
        const std::vector<std::string> parts = partsUpward(*path);
        index[parts.front()].push_back({*path, parts});
    }
    return index;
}

std::ptrdiff_t agreement(const std::vector<std::string>& a, const std::vector<std::string>& b) {
    return std::ranges::mismatch(a, b).in1 - a.begin();
}

// The candidates that agree best with the old path.
std::vector<const Candidate*> best(const Index& index, const std::string& oldPath) {
    const std::vector<std::string> parts = partsUpward(oldPath);
    std::vector<const Candidate*> found;
    const auto sameName = index.find(parts.front());
    if (sameName == index.end()) return found;
    std::ptrdiff_t most = 0;
    for (const Candidate& candidate : sameName->second) {
        const std::ptrdiff_t here = agreement(parts, candidate.parts);
        if (here < most) continue;
        if (here > most) found.clear();
        most = here;
        found.push_back(&candidate);
    }
    return found;
}

} // namespace

Relocation relocateSongs(AccesserResource& catalogue, const std::string& folder) {
    const Index index = indexFolder(folder);
    Relocation result;
    for (DataResource& song : catalogue.all()) {
        const std::string& oldPath = song.getFileName();
        if (oldPath.empty() || platform::isFile(oldPath)) continue;
        const std::vector<const Candidate*> found = best(index, oldPath);
        if (found.size() == 1) {
            song.setFileName(found.front()->path);
            catalogue.update(song.getNo(), song);
            ++result.relocated;
        } else {
            (found.empty() ? result.unknown : result.unclear).push_back(oldPath);
        }
    }
    return result;
}
