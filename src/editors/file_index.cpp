#include "editors/file_index.h"

#include "foundation/path.h"
#include "foundation/text.h"
#include "platform/files.h"

namespace {

// For paths of the same key.
bool isSameFile(const std::string& path, const std::string& other) {
    return path == other || !platform::isFile(path) ||
           platform::nativePath(path) == platform::nativePath(other);
}

} // namespace

FileIndex::FileIndex(const AccesserResource& catalogue) : catalogue_(catalogue) {
    for (const DataResource& song : catalogue.all())
        note(song);
}

int FileIndex::find(const std::string& path) const {
    const std::string key = keyOf(path);
    int lowest = 0;
    DataResource song;
    const auto [first, last] = numbers_.equal_range(key);
    for (auto entry = first; entry != last; ++entry) {
        const bool isLower = lowest == 0 || entry->second < lowest;
        if (isLower && catalogue_.get(entry->second, song) && keyOf(song.getFileName()) == key &&
            isSameFile(path, song.getFileName()))
            lowest = entry->second;
    }
    return lowest;
}

void FileIndex::note(int number) {
    DataResource song;
    if (catalogue_.get(number, song)) note(song);
}

std::string FileIndex::keyOf(const std::string& path) {
    return zelkova::toLowerSjis(zelkova::normalizePath(path));
}
