#pragma once
// Files and folders. Paths are Shift-JIS, with "/" or "\" as separators (a trail byte 0x5C is no separator).
// As on the system that the files come from, names ignore case: where the exact name is not there, the first
// entry that differs only in case is taken.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// The path as this system writes it, after the look-up without regard to case.
std::filesystem::path nativePath(std::string_view path);
// Back to Shift-JIS with "/" separators; none when a character has no place in the code page.
std::optional<std::string> programPath(const std::filesystem::path& path);

bool pathExists(std::string_view path); // files and folders
// A folder is none, nor is a pipe or a device, where reading may wait or go on without end.
bool isFile(std::string_view path);
// Absolute, "." and ".." resolved by text alone (the disk is not asked), "/" separators. Relative paths count
// from the program's folder.
std::string fullPath(std::string_view path);

inline constexpr std::size_t largestFile = 256 * 1024 * 1024;
// The whole file. None for what is no file, cannot be read, or is larger than that.
std::optional<std::string> readFile(std::string_view path);
// Replaces the file: writes a neighbour, flushes it to the disk and renames it. On failure the old file is
// whole and the answer is false; so it is with a file that is write-protected.
bool replaceFile(std::string_view path, std::string_view bytes);
bool makeFolder(std::string_view path); // with its parents; true when it is there afterwards

// Tells one state of a file from the next without reading it.
struct FileStamp {
    std::uint64_t device = 0, number = 0, size = 0;
    std::int64_t changed = 0; // nanoseconds
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
    // The same file, perhaps in another state, and whatever name or link leads to it.
    bool isSameFile(const FileStamp& other) const { return device == other.device && number == other.number; }
};
std::optional<FileStamp> fileStamp(std::string_view path); // none when there is no such file

struct FolderEntry {
    std::string name; // Shift-JIS
    bool folder = false;
    std::uintmax_t size = 0;
};
// By name, case ignored; "." and ".." left out.
std::vector<FolderEntry> listFolder(std::string_view path);

} // namespace platform
