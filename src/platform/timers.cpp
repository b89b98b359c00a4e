#include <algorithm>

#include "platform/detail/timers.h"

namespace platform::detail {

namespace {

constexpr unsigned shortestPeriodMs = 10;

}

void Timers::set(WindowHandle window, unsigned id, unsigned periodMs, std::int64_t now) {
    kill(window, id);
    const std::int64_t period = std::max(periodMs, shortestPeriodMs);
    timers_.push_back({window, id, period, now + period});
}

void Timers::kill(WindowHandle window, unsigned id) {
    std::erase_if(timers_, [&](const Timer& timer) { return timer.window == window && timer.id == id; });
}

void Timers::forgetWindow(WindowHandle window) {
    std::erase_if(timers_, [&](const Timer& timer) { return timer.window == window; });
}

std::optional<std::int64_t> Timers::nextDue() const {
    const auto first = std::ranges::min_element(timers_, {}, &Timer::due);
    if (first == timers_.end()) return std::nullopt;
    return first->due;
}

std::optional<Message> Timers::takeDue(std::int64_t now) {
    const auto first = std::ranges::min_element(timers_, {}, &Timer::due);
    if (first == timers_.end() || first->due > now) return std::nullopt;
    first->due += ((now - first->due) / first->period + 1) * first->period;
    return Message{first->window, WM_TIMER, first->id, 0};
}

void Timers::shift(std::int64_t ms) {
    for (Timer& timer : timers_)
        timer.due += ms;
}

} // namespace platform::detail
