#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "foundation/text.h"

// What a field shows of a number: nothing when it was never set.
inline std::string numberOrEmpty(int number) {
    return number == -1 ? "" : zelkova::numberToText(number);
}

// None where the text is not wholly a number. Full-width digits, signs and blanks, which a Japanese keyboard
// gives, stand for the half-width ones; a number that does not fit gives the nearest one that does.
std::optional<std::int32_t> typedNumber(std::string_view text);
