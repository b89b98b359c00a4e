#pragma once
// The one mapping between the program's Shift-JIS (CP932, with the NEC and IBM rows) and Unicode.

#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

// A byte or pair without a mapping gives U+3013.
std::u16string sjisToUtf16(std::string_view text);
// A unit without a mapping gives "?".
std::string utf16ToSjis(std::u16string_view units);
std::string sjisToUtf8(std::string_view text);
std::string utf8ToSjis(std::string_view text);

// One character. 0 when the code lies outside the code page's ranges, U+3013 for an empty place in it.
char16_t sjisToUnicode(std::uint16_t code);
// 0 when the unit has no mapping.
std::uint16_t unicodeToSjis(char16_t unit);

} // namespace platform
