#include "platform/clock.h"

#include <algorithm>
#include <cassert>
#include <chrono>
#include <ctime>
#include <optional>

#include "platform/detail/event_loop.h"
#include "platform/detail/time_source.h"

namespace platform {

namespace {

using std::chrono::milliseconds;
using LocalMoment = std::chrono::local_time<milliseconds>;

// How often a condition is looked at while no timer is due.
constexpr std::int64_t longestStepMs = 10;

struct FrozenTime {
    std::int64_t now, start;
    LocalMoment startOfDay;
};
std::optional<FrozenTime> frozen;

std::int64_t realNowMs() {
    return duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

LocalMoment toMoment(const SystemTime& time) {
    const std::chrono::year_month_day date{std::chrono::year(time.year), std::chrono::month(time.month),
                                           std::chrono::day(time.day)};
    return std::chrono::local_days(date) + std::chrono::hours(time.hour) + std::chrono::minutes(time.minute) +
           std::chrono::seconds(time.second) + milliseconds(time.millisecond);
}

SystemTime toSystemTime(LocalMoment moment) {
    const auto day = floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(moment - day);
    const auto field = [](auto value) { return static_cast<std::uint16_t>(value); };
    return {field(static_cast<int>(date.year())),
            field(static_cast<unsigned>(date.month())),
            field(std::chrono::weekday(day).c_encoding()),
            field(static_cast<unsigned>(date.day())),
            field(time.hours().count()),
            field(time.minutes().count()),
            field(time.seconds().count()),
            field(time.subseconds().count())};
}

} // namespace

namespace detail {

std::int64_t nowMs() {
    return frozen ? frozen->now : realNowMs();
}

bool timeStandsStill() {
    return frozen.has_value();
}

void moveTo(std::int64_t ms) {
    if (frozen) frozen->now = std::max(frozen->now, ms);
}

void freezeTime(const SystemTime& localTime) {
    const std::int64_t now = realNowMs();
    frozen = FrozenTime{now, now, toMoment(localTime)};
}

void thawTime() {
    frozen.reset();
}

} // namespace detail

std::uint32_t getTickCount() {
    return static_cast<std::uint32_t>(detail::nowMs());
}

SystemTime getLocalTime() {
    if (frozen) return toSystemTime(frozen->startOfDay + milliseconds(frozen->now - frozen->start));
    const auto now = floor<milliseconds>(std::chrono::system_clock::now());
    const auto second = floor<std::chrono::seconds>(now);
    const std::time_t stamp = std::chrono::system_clock::to_time_t(second);
    std::tm local{};
    localtime_r(&stamp, &local);
    const auto field = [](auto value) { return static_cast<std::uint16_t>(value); };
    return {field(local.tm_year + 1900), field(local.tm_mon + 1),      field(local.tm_wday),
            field(local.tm_mday),        field(local.tm_hour),         field(local.tm_min),
            field(local.tm_sec),         field((now - second).count())};
}

ManualClock::ManualClock(SystemTime start) {
    assert(!frozen && "one manual clock at a time");
    detail::freezeTime(start);
}

ManualClock::~ManualClock() {
    const std::int64_t lead = realNowMs() - detail::nowMs();
    detail::thawTime();
    detail::shiftTimers(lead);
}

void ManualClock::advance(std::uint32_t milliseconds) {
    const std::int64_t target = detail::nowMs() + milliseconds;
    detail::deliverWaiting();
    for (;;) {
        const auto due = detail::nextTimerDue();
        if (!due || *due > target || detail::quitWaits()) break;
        detail::moveTo(*due);
        detail::deliverDueTimer();
        detail::deliverWaiting();
    }
    detail::moveTo(target);
}

bool ManualClock::advanceUntil(const std::function<bool()>& condition, std::uint32_t limitMs) {
    const std::int64_t limit = detail::nowMs() + limitMs;
    detail::deliverWaiting();
    while (!condition()) {
        const std::int64_t now = detail::nowMs();
        if (now >= limit) return false;
        std::int64_t step = std::min(longestStepMs, limit - now);
        const auto due = detail::nextTimerDue();
        if (due && !detail::quitWaits()) step = std::clamp<std::int64_t>(*due - now, 0, step);
        advance(static_cast<std::uint32_t>(step));
    }
    return true;
}

} // namespace platform
