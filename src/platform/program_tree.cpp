#include "platform/program_tree.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <string_view>
#include <system_error>

#include <unistd.h>

#include "platform/detail/program_folder.h"
#include "platform/detail/protection.h"

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

Stamp stampOf(const fs::path& file) {
    return {fs::file_size(file), fs::last_write_time(file).time_since_epoch().count()};
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

// A neighbour that takes the file's place when it is whole.
class Replacement {
public:
    explicit Replacement(const fs::path& target)
        : target_(target), neighbour_(target.native() + "." + std::to_string(::getpid())) {}
    ~Replacement() {
        std::error_code ignored;
        fs::remove(neighbour_, ignored);
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    const fs::path& path() const { return neighbour_; }
    void finish() const { fs::rename(neighbour_, target_); }

private:
    const fs::path target_, neighbour_;
};

void writeStamps(const fs::path& record, const Stamps& stamps) {
    const Replacement replacement(record);
    std::ofstream out(replacement.path());
    for (const auto& [path, stamp] : stamps)
        out << stamp.size << ' ' << stamp.time << ' ' << path << '\n';
    out.close();
    if (!out) throw fs::filesystem_error("cannot write", record, std::make_error_code(std::errc::io_error));
    replacement.finish();
}

void copyWithTime(const fs::path& from, const fs::path& to) {
    fs::create_directories(to.parent_path());
    const Replacement replacement(to);
    fs::copy_file(from, replacement.path());
    // What is shipped may be read-only; the user's own file is not.
    fs::permissions(replacement.path(), fs::perms::owner_write, fs::perm_options::add);
    fs::last_write_time(replacement.path(), fs::last_write_time(from));
    replacement.finish();
}

bool haveEqualBytes(const fs::path& one, const fs::path& other) {
    if (fs::file_size(one) != fs::file_size(other)) return false;
    std::ifstream a(one, std::ios::binary), b(other, std::ios::binary);
    using Bytes = std::istreambuf_iterator<char>;
    return a && b && std::equal(Bytes(a), Bytes(), Bytes(b));
}

void followFile(const fs::path& from, const fs::path& to, const std::string& path, Stamps& stamps) {
    const Stamp shipped = stampOf(from);
    if (fs::exists(to)) {
        const auto came = stamps.find(path);
        // A start that was cut off has left files, but no record of them.
        if (came == stamps.end() && haveEqualBytes(from, to)) stamps[path] = stampOf(to);
        const bool untouched = came != stamps.end() && came->second == stampOf(to);
        if (!untouched || came->second == shipped || detail::isWriteProtected(to)) return;
    }
    copyWithTime(from, to);
    stamps[path] = shipped;
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
    const auto attempt = [&problem](const auto& step) {
        try {
            step();
        } catch (const fs::filesystem_error& failure) {
            problem = failure.what();
        }
    };
    const fs::path record = to / recordName;
    Stamps stamps = readStamps(record);
    for (const char* folder : shippedFolders) {
        if (!fs::is_directory(from / folder)) continue;
        attempt([&] {
            for (const auto& entry : fs::recursive_directory_iterator(from / folder)) {
                if (!entry.is_regular_file()) continue;
                const std::string path = entry.path().lexically_relative(from).native();
                attempt([&] { followFile(entry.path(), to / path, path, stamps); });
            }
        });
    }
    attempt([&] { writeStamps(record, stamps); });
    return problem;
}

ProgramTree findProgramTree(const fs::path& program, const fs::path& userData) {
    const fs::path beside = program.parent_path().parent_path();
    const bool hasTree = fs::is_directory(beside / "cnf");
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
