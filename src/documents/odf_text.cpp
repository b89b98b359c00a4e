#include "documents/odf_text.h"

#include <algorithm>

namespace {

bool isControl(char byte) {
    return static_cast<unsigned char>(byte) < ' ' && byte != '\t' && byte != '\n' && byte != '\r';
}

} // namespace

std::vector<TextPiece> textPieces(std::string_view given) {
    std::string text(given);
    std::ranges::replace_if(text, isControl, ' ');
    std::vector<TextPiece> pieces = {{nullptr, 0, ""}};
    for (std::size_t i = 0; i < text.size();) {
        std::string& stretch = pieces.back().text;
        const std::size_t blanks = std::min(text.find_first_not_of(' ', i), text.size()) - i;
        // Behind anything a run has its first blank as a letter: so it is right also for a reader that counts
        // the line end which stands before the element in an indented file.
        const std::size_t plain = stretch.empty() && pieces.size() == 1 ? 0 : 1;
        if (blanks > plain) {
            stretch.append(plain, ' ');
            pieces.push_back({"text:s", static_cast<int>(blanks - plain), ""});
            i += blanks;
        } else if (text[i] == '\t') {
            pieces.push_back({"text:tab", 1, ""});
            ++i;
        } else if (text[i] == '\r' || text[i] == '\n') {
            pieces.push_back({"text:line-break", 1, ""});
            i += text.compare(i, 2, "\r\n") == 0 ? 2 : 1;
        } else {
            stretch += text[i++];
        }
    }
    return pieces;
}
