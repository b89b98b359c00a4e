// kdl-makeborder <styles.xml>
// Draws the certificate's border anew in that file: after a change of its measures,
// build/…/kdl-makeborder dist/tmp/certificateWork/styles.xml

#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>

#include "makeborder/border.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: kdl-makeborder <styles.xml>\n");
        return 2;
    }
    try {
        std::ifstream in(argv[1], std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(in), {}};
        const std::string drawn = makeborder::withBorder(text);
        in.close();
        std::ofstream out(argv[1], std::ios::binary);
        if (!(out << drawn).flush()) throw std::runtime_error("it cannot be written");
    } catch (const std::exception& fault) {
        std::fprintf(stderr, "%s: %s\n", argv[1], fault.what());
        return 1;
    }
}
