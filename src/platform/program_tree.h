#pragma once
// Where the folders that the program works in stand: beside the executable, or in a tree of the user's own.

#include <filesystem>
#include <string>

namespace platform {

// Copies what is shipped in `from` (its folders cnf, eft, hlp, snd and tmp) to `to`. A file that is missing
// there comes (again, when it was deleted); one that nobody has changed since it came follows `from`; one
// that was changed, or is write-protected, stays as it is. `to`/.shipped remembers what came. "" when all
// went well, else what first stood in the way (UTF-8); what could be copied is there all the same, no file is
// left half written.
std::string followTree(const std::filesystem::path& from, const std::filesystem::path& to);

struct ProgramTree {
    std::filesystem::path bin;     // beside which cnf, log and the others stand; it need not exist itself
    std::filesystem::path shipped; // the tree that it follows; empty where it follows none
    std::string problem;           // why the user's own tree could not be brought up to date; "" when it was
};

// A program with a tree of folders beside it that it may write works there. Any other is installed for all
// users: it works in <userData>/kdl, which follows the tree beside it or else <prefix>/share/kdl.
ProgramTree findProgramTree(const std::filesystem::path& program, const std::filesystem::path& userData);

// Finds the tree of this process (user data: XDG_DATA_HOME, else ~/.local/share) and makes relative paths
// count from there. Before anything is opened.
ProgramTree settleProgramTree();

} // namespace platform
