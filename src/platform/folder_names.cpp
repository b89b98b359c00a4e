#include "platform/detail/folder_names.h"

#include <sys/stat.h>
#include <time.h>

#include <QString>
#include <map>
#include <optional>
#include <unordered_map>

namespace platform::detail {

namespace fs = std::filesystem;

namespace {

constexpr std::int64_t nanoseconds = 1'000'000'000;
// A folder that changed so shortly before it was read may have changed again with the same time stamp.
constexpr std::int64_t settleNs = 3 * nanoseconds;
constexpr std::size_t mostNames = 200'000; // kept of all folders together

std::int64_t inNanoseconds(const timespec& time) {
    return time.tv_sec * nanoseconds + time.tv_nsec;
}

// Which folder, and which state of it. Programs that restore a folder put its time of modification back too.
struct Stamp {
    dev_t device = 0;
    ino_t number = 0;
    std::int64_t modified = 0, changed = 0; // nanoseconds
    friend bool operator==(const Stamp&, const Stamp&) = default;
};

std::optional<Stamp> stampOf(const fs::path& folder) {
    struct stat found {};
    if (::stat(folder.c_str(), &found) != 0) return std::nullopt;
    return Stamp{found.st_dev, found.st_ino, inNanoseconds(found.st_mtim), inNanoseconds(found.st_ctim)};
}

bool hasSettled(const Stamp& stamp) {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    return stamp.modified + settleNs < inNanoseconds(now);
}

std::string foldCase(const fs::path& name) {
    const std::string& bytes = name.native();
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())).toCaseFolded().toStdString();
}

using Names = std::unordered_map<std::string, std::string>; // by the name without case

Names readNames(const fs::path& folder) {
    Names names;
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::string name = entry->path().filename().native();
        const auto [known, fresh] = names.try_emplace(foldCase(name), name);
        if (!fresh && name < known->second) known->second = name;
    }
    return names;
}

fs::path find(const Names& names, const fs::path& name) {
    const auto found = names.find(foldCase(name));
    return found == names.end() ? fs::path() : fs::path(found->second);
}

struct Listing {
    Stamp stamp;
    Names names;
};
std::map<std::string, Listing> listings; // by the folder's path
std::size_t namesKept = 0;

void keep(const fs::path& folder, const Stamp& stamp, Names names) {
    if (namesKept + names.size() > mostNames) {
        listings.clear();
        namesKept = 0;
    }
    if (names.size() > mostNames) return;
    Listing& listing = listings[folder.native()];
    namesKept += names.size() - listing.names.size();
    listing = {stamp, std::move(names)};
}

} // namespace

fs::path entryIgnoringCase(const fs::path& folder, const fs::path& name) {
    const std::optional<Stamp> stamp = stampOf(folder);
    if (!stamp) return {};
    const auto known = listings.find(folder.native());
    if (known != listings.end() && known->second.stamp == *stamp) return find(known->second.names, name);
    // Judged before reading: the clock goes on meanwhile.
    const bool settled = hasSettled(*stamp);
    Names names = readNames(folder);
    const fs::path found = find(names, name);
    if (settled) keep(folder, *stamp, std::move(names));
    return found;
}

} // namespace platform::detail
