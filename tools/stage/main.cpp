// kdl-stage <shipped tree> <staged tree>
// Stages what is shipped by the rule that an installed program brings the user's own tree up to date with:
// what was changed in the staged tree stays.

#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/program_tree.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s <shipped tree> <staged tree>\n", argv[0]);
        return EXIT_FAILURE;
    }
    const std::string problem = platform::followTree(argv[1], argv[2]);
    if (problem.empty()) return EXIT_SUCCESS;
    std::fprintf(stderr, "%s\n", problem.c_str());
    return EXIT_FAILURE;
}
