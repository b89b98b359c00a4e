#pragma once
// Real time from one look to the next, for what counts time by ticks that may come late.

#include <cstdint>
#include <utility>

#include "platform/clock.h"

namespace zelkova {

class Stopwatch {
public:
    // Milliseconds since the look before; the first time, since the watch was made.
    int look() {
        const std::uint32_t now = platform::getTickCount();
        return static_cast<int>(now - std::exchange(last_, now));
    }

private:
    std::uint32_t last_ = platform::getTickCount();
};

} // namespace zelkova
