#pragma once
// Text helpers. All text is Shift-JIS (CP932) bytes; offsets and counts are bytes, and nothing here ever
// takes the second byte of a double-byte character for a character of its own.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"

namespace zelkova {

using platform::sjisToUnicode;
using platform::sjisToUtf16;
using platform::unicodeToSjis;
using platform::utf16ToSjis;
// As a wide text of the C++ library.
std::wstring sjisToWide(std::string_view text);

inline constexpr std::size_t npos = std::string::npos;

constexpr bool isLeadByte(unsigned char byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}
// What stands at the offset: 0 a single-byte character, 1 a lead byte, 2 a trail byte, -1 outside the text.
int byteKind(std::string_view text, std::size_t offset);

// Fold single-byte letters only.
std::string toUpperSjis(std::string_view text);
std::string toLowerSjis(std::string_view text);
// Takes blanks, tabs, CR and LF off both ends; a full-width blank stays.
std::string trim(std::string_view text);

// First match at or after `start` that begins on a character boundary; npos when none or when `what` is
// empty.
std::size_t findText(std::string_view text, std::string_view what, std::size_t start = 0);
// Last match at or before `start`.
std::size_t findTextReverse(std::string_view text, std::string_view what, std::size_t start = npos);
std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);

// Empty pieces are kept; a text without the separator is one piece.
std::vector<std::string> split(std::string_view text, std::string_view separator);
// The piece at `index` as in split; false, and `piece` unchanged, when there is none.
bool firstToken(std::string_view text, std::string_view separator, int index, std::string& piece);

// The decimal number that the trimmed text starts with, after an optional sign; 0 when there is none. A
// number that does not fit gives the nearest one that does.
std::int32_t stringToInt(std::string_view text);
// With `plus` 1 a positive number starts with "+".
std::string numberToText(std::int32_t number, int plus = 0);
// Numbers as one text, with "," between them; no number is an empty text.
std::string joinNumbers(const std::vector<std::int32_t>& numbers);
std::vector<std::int32_t> splitNumbers(std::string_view text);
// "1,234,567"
std::string numberWithCommas(std::int32_t number);
// "(1,234Byte)"
std::string formatSize(std::int32_t size);

// Byte-wise and case-sensitive, over the whole text: "?" is any byte, "*" any run of bytes (also an empty
// one), "#" takes the meaning off a "?" or "*" behind it.
bool wildcardMatch(std::string_view text, std::string_view pattern);

} // namespace zelkova
