// kdl-stage <shipped tree> <staged tree>
// Stages what is shipped by the rules that an installed program brings the user's own tree up to date with:
// what was changed in the staged tree stays, but for the half of the settings that is the delivery's.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

#include "data/accesser_application.h"
#include "platform/files.h"
#include "platform/program_tree.h"

namespace {

// None where the name has no place in Shift-JIS.
std::optional<std::string> settingsOf(const char* tree) {
    return platform::programPath(std::filesystem::absolute(tree) / "cnf/Config.xml");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s <shipped tree> <staged tree>\n", argv[0]);
        return EXIT_FAILURE;
    }
    const std::string problem = platform::followTree(argv[1], argv[2]);
    const auto shipped = settingsOf(argv[1]), staged = settingsOf(argv[2]);
    if (shipped && staged) deliverFundamental(*shipped, *staged);
    if (problem.empty()) return EXIT_SUCCESS;
    std::fprintf(stderr, "%s\n", problem.c_str());
    return EXIT_FAILURE;
}
