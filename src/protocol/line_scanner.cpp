#include "protocol/line_scanner.h"

#include "foundation/text.h"

void LineScanner::scan(std::string_view text) {
    // A CR or the first half of a double-byte character at the end waits for the byte behind it.
    while (next_ + 1 < text.size()) {
        if (text[next_] == '\r' && text[next_ + 1] == '\n') {
            lineStart_ = openStart_;
            lineSize_ = next_ - openStart_;
            next_ += 2;
            openStart_ = next_;
        } else {
            next_ += zelkova::isLeadByte(static_cast<unsigned char>(text[next_])) ? 2 : 1;
        }
    }
}
