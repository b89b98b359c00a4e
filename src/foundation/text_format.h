#pragma once
// Reads a text by a format in the style of printf: "%", an optional flag ("0", "+", "-", "#"), an optional
// width, without a flag an optional "-" and greatest width, and a conversion.
//
//   width   none: one character or more    w: at most w    w-m: from w to m
//           0w: exactly w                  +w, -w: from 1 to w    #: whatever is there, also nothing
//   d i u o an optional sign and digits, blanks before them allowed and counted
//   s       any bytes up to the format's next character
//   %       a literal "%"
//
// A width of 0 is an error, and no text fits such a format. The whole text has to be used up.

#include <string>
#include <string_view>
#include <vector>

namespace zelkova {

bool matchFormat(std::string_view format, std::string_view text);
// In addition hands back what each item took; `tokens` is emptied when the text does not fit.
bool scanFormat(std::string_view format, std::string_view text, std::vector<std::string>& tokens);

} // namespace zelkova
