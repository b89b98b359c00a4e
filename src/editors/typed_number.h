#pragma once

#include <string>

#include "foundation/text.h"

// What a field shows of a number: nothing when it was never set.
inline std::string numberOrEmpty(int number) {
    return number == -1 ? "" : zelkova::numberToText(number);
}
