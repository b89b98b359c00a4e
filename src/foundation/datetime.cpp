#include "foundation/datetime.h"

#include <array>
#include <cstdio>
#include <iterator>
#include <vector>

#include "foundation/text.h"
#include "foundation/text_format.h"

namespace zelkova {

namespace {

constexpr std::array<const char*, 4> formats = {"", "%04d/%02d/%02d %02d:%02d:%02d.%d",
                                                "%04d/%02d/%02d %02d:%02d:%02d", "%04d/%02d/%02d"};

// January and February count as months 13 and 14 of the year before, so that a leap day ends its year.
void startYearInMarch(int& year, int& month) {
    if (month >= 3) return;
    year -= 1;
    month += 12;
}

int floorDivide(int value, int by) {
    return value / by - (value % by < 0 ? 1 : 0);
}

} // namespace

DateTime::DateTime(const platform::SystemTime& time)
    : year_(time.year), month_(time.month), day_(time.day), dayOfWeek_(time.dayOfWeek), hour_(time.hour),
      minute_(time.minute), second_(time.second), millisecond_(time.millisecond) {}

DateTime::DateTime(std::string_view text) {
    int* const fields[] = {&year_, &month_, &day_, &hour_, &minute_, &second_, &millisecond_};
    std::vector<std::string> values;
    values.reserve(std::size(fields)); // a catalogue parses a date for each song
    for (int selector = withMilliseconds; selector <= dateOnly && values.empty(); ++selector)
        scanFormat(formats[static_cast<std::size_t>(selector)], text, values);
    for (std::size_t i = 0; i < values.size(); ++i)
        *fields[i] = stringToInt(values[i]);
}

std::string DateTime::toString(int selector) const {
    if (selector < withMilliseconds || selector > dateOnly) return {};
    char text[96];
    switch (selector) {
    case withMilliseconds:
        std::snprintf(text, sizeof text, formats[withMilliseconds], year_, month_, day_, hour_, minute_,
                      second_, millisecond_);
        break;
    case withTime:
        std::snprintf(text, sizeof text, formats[withTime], year_, month_, day_, hour_, minute_, second_);
        break;
    default:
        std::snprintf(text, sizeof text, formats[dateOnly], year_, month_, day_);
    }
    return text;
}

platform::SystemTime DateTime::toSystemTime() const {
    const auto field = [](int value) { return static_cast<std::uint16_t>(value); };
    return {field(year_), field(month_),  field(dayOfWeek_), field(day_),
            field(hour_), field(minute_), field(second_),    field(millisecond_)};
}

int dayNumber(int year, int month, int day) {
    startYearInMarch(year, month);
    return 365 * year + year / 4 - year / 100 + year / 400 + (13 * month + 8) / 5 + 28 * month + day - 399;
}

int dayOfWeek(int year, int month, int day) {
    startYearInMarch(year, month);
    const int sum = year + floorDivide(year, 4) - floorDivide(year, 100) + floorDivide(year, 400) +
                    floorDivide(13 * month + 8, 5) + day;
    return sum - floorDivide(sum, 7) * 7;
}

int daysBetween(int year1, int month1, int day1, int year2, int month2, int day2) {
    return dayNumber(year2, month2, day2) - dayNumber(year1, month1, day1);
}

int daysBetween(const DateTime& first, const DateTime& second) {
    return daysBetween(first.getYear(), first.getMonth(), first.getDay(), second.getYear(), second.getMonth(),
                       second.getDay());
}

int secondsOfDay(int hour, int minute, int second) {
    return hour * 3600 + minute * 60 + second;
}

std::int64_t secondsBetween(const DateTime& first, const DateTime& second) {
    const auto clock = [](const DateTime& time) {
        return secondsOfDay(time.getHour(), time.getMinute(), time.getSecond());
    };
    // Borrowing a day for an earlier clock and adding it back come to the plain sum.
    return std::int64_t{daysBetween(first, second)} * 86400 + clock(second) - clock(first);
}

} // namespace zelkova
