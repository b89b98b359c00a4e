#pragma once
// The timers of all windows. They hold no tick that waits: a tick is made when it is asked for, so there is
// never more than one of a timer and none after its end.

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/messages.h"

namespace platform::detail {

class Timers {
public:
    void set(WindowHandle window, unsigned id, unsigned periodMs, std::int64_t now);
    void kill(WindowHandle window, unsigned id);
    void forgetWindow(WindowHandle window);

    std::optional<std::int64_t> nextDue() const;
    // The tick that has been due longest, if any is due. The timer keeps its phase (a late tick does not
    // delay those that follow) and drops the ticks that it missed.
    std::optional<Message> takeDue(std::int64_t now);
    void shift(std::int64_t ms);

private:
    struct Timer {
        WindowHandle window;
        unsigned id;
        std::int64_t period, due;
    };
    std::vector<Timer> timers_; // in the order of their start, which decides between equal due times
};

} // namespace platform::detail
