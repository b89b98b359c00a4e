// kdl-makeborder <styles.xml>
// Draws the certificate's border anew in that file: after a change of its measures,
// build/…/kdl-makeborder dist/tmp/certificateWork/styles.xml

#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>

#include "makeborder/border.h"
#include "platform/files.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: kdl-makeborder <styles.xml>\n");
        return 2;
    }
    try {
        const auto file = platform::programPath(std::filesystem::absolute(argv[1]));
        const auto text = file ? platform::readFile(*file) : std::nullopt;
        if (!text) throw std::runtime_error("it cannot be read");
        if (!platform::replaceFile(*file, makeborder::withBorder(*text)))
            throw std::runtime_error("it cannot be written");
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s: %s\n", argv[1], fault.what());
        return 1;
    }
}
