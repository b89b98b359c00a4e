#include "documents/zip_entries.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <ctime>
#include <filesystem>

#include "documents/dir.h"
#include "foundation/path.h"
#include "platform/files.h"

namespace ZIPFile {

namespace fs = std::filesystem;
using ZipHeader = ZIPFileHeader::ZIPHeadEnc::ZipHeader;

namespace {

void takeTime(const fs::path& path, ZipHeader& entry) {
    std::error_code failure;
    const fs::file_time_type changed = fs::last_write_time(path, failure);
    if (failure) return;
    const auto system = std::chrono::file_clock::to_sys(changed);
    const std::time_t seconds =
        std::chrono::system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(system));
    const std::tm* const local = std::localtime(&seconds);
    if (!local) return;
    entry.year = local->tm_year + 1900;
    entry.month = local->tm_mon + 1;
    entry.day = local->tm_mday;
    entry.hour = local->tm_hour;
    entry.minute = local->tm_min;
    entry.second = local->tm_sec;
}

// What a killed program leaves behind of a file that it was replacing: the file's name, a dot, and six
// letters or digits.
bool isLeftover(const fs::path& file) {
    const std::string letters = file.extension().string();
    const auto plain = [](unsigned char byte) { return byte < 0x80 && std::isalnum(byte); };
    std::error_code failure;
    return letters.size() == 7 && std::all_of(letters.begin() + 1, letters.end(), plain) &&
           fs::is_regular_file(file.parent_path() / file.stem(), failure);
}

void collect(const std::string& path, const fs::path& leftOut, std::vector<ZipHeader>& entries) {
    const fs::path native = platform::nativePath(path);
    std::error_code failure;
    const fs::file_status status = fs::status(native, failure);
    ZipHeader entry;
    entry.name = path;
    if (fs::is_regular_file(status)) {
        if (fs::equivalent(native, leftOut, failure) || isLeftover(native)) return;
        const std::uintmax_t size = fs::file_size(native, failure);
        if (failure) return;
        takeTime(native, entry);
        entry.compressedSize = entry.uncompressedSize = static_cast<std::int64_t>(size);
        entries.push_back(entry);
    } else if (fs::is_directory(status)) {
        const Utility::Dir folder(path);
        for (const std::string& name : folder.names()) {
            const std::string inside = folder.path() + "/" + name;
            const fs::path nativeInside = platform::nativePath(inside);
            if (!fs::is_symlink(nativeInside, failure) || !fs::is_directory(nativeInside, failure))
                collect(inside, leftOut, entries);
        }
        // Not by the names: one that the code page cannot write is left out, but its folder is not empty.
        if (!fs::is_empty(native, failure) || failure) return;
        takeTime(native, entry);
        entry.name += "/";
        entry.uncompressedSize = ZipHeader::directory;
        entries.push_back(entry);
    }
}

// One form for all paths, so that they can be compared.
std::string normalized(std::string_view path) {
    return zelkova::normalizePath(zelkova::removeBackslash(path));
}

} // namespace

std::vector<ZipHeader> collectEntries(std::string_view path, std::string_view leftOut) {
    std::vector<ZipHeader> entries;
    collect(normalized(path), platform::nativePath(leftOut), entries);
    return entries;
}

std::string nameInArchive(const ZipHeader& entry) {
    const std::string base = normalized(entry.basePath) + "/";
    return entry.name.starts_with(base) ? entry.name.substr(base.size()) : entry.name;
}

} // namespace ZIPFile
