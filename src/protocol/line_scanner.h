#pragma once
// Finds the last complete line of a growing text without looking at any byte twice.

#include <cstddef>
#include <string_view>

class LineScanner {
public:
    // Goes on where the last scan ended; `text` starts with the text of that scan.
    void scan(std::string_view text);
    // The last line that ended in CRLF, as splitting the whole text there would give it; "" before the first.
    std::string_view lastLine(std::string_view text) const { return text.substr(lineStart_, lineSize_); }

private:
    std::size_t next_ = 0;      // first byte that is not yet understood
    std::size_t openStart_ = 0; // of the line that has no end yet
    std::size_t lineStart_ = 0, lineSize_ = 0;
};
