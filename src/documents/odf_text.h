#pragma once
// Text as a paragraph of an OpenDocument file can hold it.

#include <string>
#include <string_view>
#include <vector>

// A stretch of text, and the element before it; the first stretch has none.
struct TextPiece {
    const char* element;
    int count; // blanks that the element stands for, else 1
    std::string text;
};

// In a paragraph a run of white space counts as one blank, and as none at the start. What is more than that
// has elements of its own (OpenDocument 1.2, 6.1): blanks, tabs, line ends. Other control characters, which
// no XML file may hold, become blanks. At least one piece.
std::vector<TextPiece> textPieces(std::string_view text);
