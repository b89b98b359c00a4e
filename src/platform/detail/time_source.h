#pragma once
// The milliseconds that timers count by. One count for both clocks: a manual clock starts where the real one
// stands, so what is due later is due later under either.

#include <cstdint>

#include "platform/clock.h"

namespace platform::detail {

std::int64_t nowMs();
bool timeStandsStill(); // a ManualClock lives

// Manual clock only; a moment that has passed changes nothing.
void moveTo(std::int64_t ms);

void freezeTime(const SystemTime& localTime);
void thawTime();

} // namespace platform::detail
