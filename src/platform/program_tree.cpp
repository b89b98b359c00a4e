#include "platform/program_tree.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <string_view>
#include <system_error>

#include <unistd.h>

#include "platform/detail/program_folder.h"
#include "platform/detail/protection.h"
#include "platform/detail/replacement.h"

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr const char* shippedFolders[] = {"cnf", "eft", "hlp", "snd", "tmp"};
constexpr std::string_view recordName = ".shipped";

// Size and time tell whether a file is still the one that came.
struct Stamp {
    std::uintmax_t size = 0;
    fs::file_time_type::rep time = 0;
    friend bool operator==(const Stamp&, const Stamp&) = default;
};

Stamp stampOf(const fs::path& file, std::error_code& failure) {
    const std::uintmax_t size = fs::file_size(file, failure);
    if (failure) return {};
    return {size, fs::last_write_time(file, failure).time_since_epoch().count()};
}

using Stamps = std::map<std::string, Stamp>; // by path inside the tree

Stamps readStamps(const fs::path& record) {
    Stamps stamps;
    std::ifstream in(record);
    Stamp stamp;
    std::string path;
    while (in >> stamp.size >> stamp.time && in.ignore() && std::getline(in, path))
        stamps[path] = stamp;
    return stamps;
}

std::error_code writeStamps(const fs::path& record, const Stamps& stamps) {
    std::ostringstream text;
    for (const auto& [path, stamp] : stamps)
        text << stamp.size << ' ' << stamp.time << ' ' << path << '\n';
    return detail::replaceBytes(record, text.view());
}

std::error_code copyWithTime(const fs::path& from, const fs::path& to) {
    std::error_code failure;
    fs::create_directories(to.parent_path(), failure);
    if (failure) return failure;
    const auto changed = fs::last_write_time(from, failure);
    if (failure) return failure;
    detail::Replacement copy(to);
    failure = copy.failure();
    if (!failure) fs::copy_file(from, copy.neighbour(), fs::copy_options::overwrite_existing, failure);
    // What is shipped may be read-only; the user's own file is not.
    if (!failure) fs::permissions(copy.neighbour(), fs::perms::owner_write, fs::perm_options::add, failure);
    if (!failure) fs::last_write_time(copy.neighbour(), changed, failure);
    return failure ? failure : copy.take();
}

bool haveEqualBytes(const fs::path& one, const fs::path& other) {
    std::ifstream a(one, std::ios::binary), b(other, std::ios::binary);
    char ofOne[65536], ofOther[65536];
    do {
        a.read(ofOne, sizeof ofOne);
        b.read(ofOther, sizeof ofOther);
        if (!std::equal(ofOne, ofOne + a.gcount(), ofOther, ofOther + b.gcount())) return false;
    } while (a && b);
    return a.eof() && b.eof();
}

std::error_code followFile(const fs::path& from, const fs::path& to, const std::string& path,
                           Stamps& stamps) {
    std::error_code failure;
    const Stamp shipped = stampOf(from, failure);
    if (failure) return failure;
    const bool there = fs::exists(to, failure);
    const Stamp own = there ? stampOf(to, failure) : Stamp();
    if (failure) return failure;
    if (there) {
        const auto came = stamps.find(path);
        // A start that was cut off has left files, but no record of them.
        if (came == stamps.end() && own.size == shipped.size && haveEqualBytes(from, to)) stamps[path] = own;
        const bool untouched = came != stamps.end() && came->second == own;
        if (!untouched || own == shipped || detail::isWriteProtected(to)) return {};
    }
    failure = copyWithTime(from, to);
    if (!failure) stamps[path] = shipped;
    return failure;
}

bool isWritable(const fs::path& folder) {
    return ::access(folder.c_str(), W_OK) == 0;
}

fs::path userDataFolder() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data && *data == '/') return data;
    const char* home = std::getenv("HOME");
    return fs::path(home ? home : "/") / ".local/share";
}

} // namespace

std::string followTree(const fs::path& from, const fs::path& to) {
    std::string problem;
    const auto tell = [&problem](const std::error_code& failure, const fs::path& file) {
        if (failure && problem.empty()) problem = file.native() + ": " + failure.message();
    };
    const fs::path record = to / recordName;
    const Stamps before = readStamps(record);
    Stamps stamps = before;
    for (const char* folder : shippedFolders) {
        std::error_code failure;
        fs::recursive_directory_iterator entry(from / folder, failure);
        if (failure == std::errc::no_such_file_or_directory) continue; // no tree needs all of them
        for (; !failure && entry != fs::end(entry); entry.increment(failure)) {
            std::error_code unknown;
            const bool file = entry->is_regular_file(unknown);
            tell(unknown, entry->path());
            if (!file) continue;
            const std::string path = entry->path().lexically_relative(from).native();
            tell(followFile(entry->path(), to / path, path, stamps), to / path);
        }
        tell(failure, from / folder);
    }
    if (stamps != before) tell(writeStamps(record, stamps), record);
    return problem;
}

ProgramTree findProgramTree(const fs::path& program, const fs::path& userData) {
    const fs::path beside = program.parent_path().parent_path();
    std::error_code ignored;
    const bool hasTree = fs::is_directory(beside / "cnf", ignored);
    if (hasTree && isWritable(beside / "cnf")) return {program.parent_path(), {}, ""};
    const fs::path own = userData / "kdl";
    const fs::path shipped = hasTree ? beside : beside / "share/kdl";
    return {own / "bin", shipped, followTree(shipped, own)};
}

ProgramTree settleProgramTree() {
    ProgramTree tree = findProgramTree(detail::executable(), userDataFolder());
    detail::setProgramFolder(tree.bin);
    return tree;
}

} // namespace platform
