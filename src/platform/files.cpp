#include "platform/files.h"

#include <algorithm>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

#include "platform/detail/folder_names.h"
#include "platform/detail/program_folder.h"
#include "platform/detail/protection.h"
#include "platform/detail/qt_text.h"
#include "platform/detail/replacement.h"
#include "platform/text.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

// UTF-8 with "/" for every separator. Trail bytes are no separators once the text is UTF-8.
std::string withSlashes(std::string_view path) {
    std::string text = sjisToUtf8(path);
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

// From the root, without detours.
bool isPlain(std::string_view path) {
    return path.starts_with('/') && path.find("//") == path.npos && path.find("/.") == path.npos;
}

fs::path absolute(std::string_view path) {
    const fs::path text = withSlashes(path);
    return (text.is_absolute() ? text : detail::programFolder() / text).lexically_normal();
}

// The path with each name in the case in which it stands on the disk.
fs::path inCaseOfDisk(const fs::path& exact) {
    std::error_code failure;
    if (fs::exists(exact, failure) || !exact.has_relative_path()) return exact;
    const fs::path folder = inCaseOfDisk(exact.parent_path());
    const fs::path other = detail::entryIgnoringCase(folder, exact.filename());
    return folder / (other.empty() ? exact.filename() : other);
}

// Empty while it is that of the executable.
fs::path& chosenFolder() {
    static fs::path folder;
    return folder;
}

} // namespace

namespace detail {

fs::path executable() {
    std::error_code failure;
    const fs::path program = fs::read_symlink("/proc/self/exe", failure);
    return failure ? fs::path("/") : program;
}

fs::path programFolder() {
    return chosenFolder().empty() ? executable().parent_path() : chosenFolder();
}

void setProgramFolder(const fs::path& folder) {
    chosenFolder() = folder;
}

bool isWriteProtected(const fs::path& file) {
    struct stat found {};
    if (::stat(file.c_str(), &found) != 0) return false;
    return (found.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 || ::access(file.c_str(), W_OK) != 0;
}

} // namespace detail

fs::path nativePath(std::string_view path) {
    if (path.empty()) return {};
    return inCaseOfDisk(absolute(path));
}

std::optional<std::string> programPath(const fs::path& path) {
    const std::string text = path.native();
    const std::string converted = utf8ToSjis(text);
    if (sjisToUtf8(converted) != text) return std::nullopt;
    return converted;
}

bool pathExists(std::string_view path) {
    if (path.empty()) return false;
    // Asked of every song of a catalogue: most are there under the very name.
    if (const std::string text = withSlashes(path); isPlain(text) && ::access(text.c_str(), F_OK) == 0)
        return true;
    std::error_code failure;
    return fs::exists(nativePath(path), failure);
}

bool isFile(std::string_view path) {
    std::error_code failure;
    return !path.empty() && fs::is_regular_file(nativePath(path), failure);
}

std::string fullPath(std::string_view path) {
    if (path.empty()) return {};
    // Where the program's own folder has no name in the code page the path stays relative; it is still found,
    // since every look-up starts from that folder.
    return programPath(absolute(path))
        .value_or(utf8ToSjis(fs::path(withSlashes(path)).lexically_normal().native()));
}

std::optional<FileStamp> fileStamp(std::string_view path) {
    struct stat found {};
    if (path.empty() || ::stat(nativePath(path).c_str(), &found) != 0) return std::nullopt;
    return FileStamp{found.st_dev, found.st_ino, static_cast<std::uint64_t>(found.st_size),
                     found.st_mtim.tv_sec * std::int64_t{1000000000} + found.st_mtim.tv_nsec};
}

std::optional<std::string> readFile(std::string_view path) {
    if (!isFile(path)) return std::nullopt;
    std::ifstream file(nativePath(path), std::ios::binary);
    if (!file) return std::nullopt;
    std::string bytes;
    char block[65536];
    while (file.read(block, sizeof block) || file.gcount() > 0) {
        bytes.append(block, static_cast<std::size_t>(file.gcount()));
        if (bytes.size() > largestFile) return std::nullopt;
    }
    if (file.bad()) return std::nullopt;
    return bytes;
}

bool replaceFile(std::string_view path, std::string_view bytes) {
    if (path.empty()) return false;
    fs::path target = nativePath(path);
    std::error_code failure;
    // A link stays a link: what it points at is replaced.
    if (fs::is_symlink(target, failure)) target = fs::weakly_canonical(target, failure);
    if (fs::is_directory(target, failure) || detail::isWriteProtected(target)) return false;
    return !detail::replaceBytes(target, bytes);
}

bool makeFolder(std::string_view path) {
    if (path.empty()) return false;
    const fs::path native = nativePath(path);
    std::error_code failure;
    fs::create_directories(native, failure);
    return fs::is_directory(native, failure);
}

std::vector<FolderEntry> listFolder(std::string_view path) {
    std::vector<FolderEntry> entries;
    std::error_code failure;
    const fs::path native = nativePath(path);
    if (native.empty()) return entries;
    for (fs::directory_iterator entry(native, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        // A name outside the code page cannot be told to the program, nor handed back by it.
        const auto name = programPath(entry->path().filename());
        if (!name) continue;
        std::error_code unknown;
        const bool folder = entry->is_directory(unknown);
        const std::uintmax_t size = folder ? 0 : entry->file_size(unknown);
        entries.push_back({*name, folder, unknown ? 0 : size});
    }
    std::ranges::sort(entries, [](const FolderEntry& a, const FolderEntry& b) {
        const int order = detail::toQt(a.name).compare(detail::toQt(b.name), Qt::CaseInsensitive);
        return order != 0 ? order < 0 : a.name < b.name;
    });
    return entries;
}

} // namespace platform
