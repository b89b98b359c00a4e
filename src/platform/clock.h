#pragma once
// The clock behind timers, tick counts, the local time and the silent sound device.

#include <cstdint>
#include <functional>

namespace platform {

// A calendar time; the field order is that of the date records in the program's files.
struct SystemTime {
    std::uint16_t year = 0, month = 0, dayOfWeek = 0, day = 0; // month 1 to 12, dayOfWeek 0 = Sunday
    std::uint16_t hour = 0, minute = 0, second = 0, millisecond = 0;
    friend bool operator==(const SystemTime&, const SystemTime&) = default;
};

// Milliseconds since an arbitrary start; wraps at 2^32, so compare by unsigned difference.
std::uint32_t getTickCount();

// The local time of day.
SystemTime getLocalTime();

// While one of these lives, time stands still but for advance(): timers fire only there (and in
// waitMessage), in order of their due time, each seeing the clock at its due time. At most one at a time.
// The local time starts at the given moment.
class ManualClock {
public:
    explicit ManualClock(SystemTime start = {2026, 3, 0, 1, 19, 0, 0, 0});
    ~ManualClock();
    ManualClock(const ManualClock&) = delete;
    ManualClock& operator=(const ManualClock&) = delete;

    // Moves time forward, delivering the ticks that fall due on the way and every message they post.
    void advance(std::uint32_t milliseconds);
    // Moves time forward, step by step as advance does, until the condition holds; false when it does
    // not hold after `limitMs` of the clock's time.
    bool advanceUntil(const std::function<bool()>& condition, std::uint32_t limitMs);
};

} // namespace platform
