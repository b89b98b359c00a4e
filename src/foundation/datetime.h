#pragma once
// Calendar values. No time zone and no clock: callers take the local time from the platform.

#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/object.h"
#include "platform/clock.h"

namespace zelkova {

class DateTime : public Type {
public:
    // Selectors of the text forms. The millisecond has no padding.
    static constexpr int withMilliseconds = 1; // "%04d/%02d/%02d %02d:%02d:%02d.%d"
    static constexpr int withTime = 2;         // "%04d/%02d/%02d %02d:%02d:%02d"
    static constexpr int dateOnly = 3;         // "%04d/%02d/%02d"

    DateTime() = default;
    explicit DateTime(const platform::SystemTime& time);
    // Any of the three forms; a text of another form gives a cleared value.
    explicit DateTime(std::string_view text);

    int getYear() const { return year_; }
    int getMonth() const { return month_; }
    int getDay() const { return day_; }
    int getDayOfWeek() const { return dayOfWeek_; }
    int getHour() const { return hour_; }
    int getMinute() const { return minute_; }
    int getSecond() const { return second_; }
    int getMillisecond() const { return millisecond_; }
    void setYear(int value) { year_ = value; }
    void setMonth(int value) { month_ = value; }
    void setDay(int value) { day_ = value; }
    void setDayOfWeek(int value) { dayOfWeek_ = value; }
    void setHour(int value) { hour_ = value; }
    void setMinute(int value) { minute_ = value; }
    void setSecond(int value) { second_ = value; }
    void setMillisecond(int value) { millisecond_ = value; }

    void clear() override { *this = DateTime(); }
    using Type::toString;
    std::string toString() const override { return toString(withMilliseconds); }
    // "" for a selector that is not one of the three.
    std::string toString(int selector) const;
    platform::SystemTime toSystemTime() const;

private:
    int year_ = 0, month_ = 0, day_ = 0, dayOfWeek_ = 0, hour_ = 0, minute_ = 0, second_ = 0,
        millisecond_ = 0;
};

// A count of days that grows by 1 from each day of the Gregorian calendar to the next.
int dayNumber(int year, int month, int day);
// 0 is Sunday.
int dayOfWeek(int year, int month, int day);
int daysBetween(int year1, int month1, int day1, int year2, int month2, int day2);
int daysBetween(const DateTime& first, const DateTime& second);
int secondsOfDay(int hour, int minute, int second);
std::int64_t secondsBetween(const DateTime& first, const DateTime& second);

} // namespace zelkova
