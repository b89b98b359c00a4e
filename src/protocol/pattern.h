#pragma once
// The matcher for the protocol's two patterns. It works on bytes, and unlike the formats of
// foundation/text_format.h a field may take nothing.

#include <optional>
#include <string_view>
#include <vector>

// "%s" takes the bytes before the first occurrence of the byte that follows it in the pattern, at the
// pattern's end all that is left; "%d" takes blanks, an optional sign and at least one digit; every other
// byte stands for itself. The captures, which point into the text, when the whole text fits.
std::optional<std::vector<std::string_view>> matchPattern(std::string_view pattern, std::string_view text);
