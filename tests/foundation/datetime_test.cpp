#include "foundation/datetime.h"

#include <gtest/gtest.h>

namespace zelkova {
namespace {

TEST(DateTime, ReadsItsThreeFormsAndNoOther) {
    const struct {
        const char *text, *read;
    } cases[] = {
        {"2011/02/03", "2011/02/03 00:00:00.0"},
        {"2011/02/03 04:05:06", "2011/02/03 04:05:06.0"},
        {"2011/02/03 04:05:06.7", "2011/02/03 04:05:06.7"},
        {"", "0000/00/00 00:00:00.0"},
        {" ", "0000/00/00 00:00:00.0"},
        {"2011-02-03", "0000/00/00 00:00:00.0"},
        {"2011/02/03 garbage", "0000/00/00 00:00:00.0"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(DateTime(c.text).toString(), c.read) << c.text;
    EXPECT_EQ(DateTime().toString(DateTime::dateOnly), "0000/00/00");
    EXPECT_EQ(DateTime("2011/02/03 04:05:06.7").toString(DateTime::withTime), "2011/02/03 04:05:06");
    EXPECT_EQ(DateTime("2011/02/03").toString(4), "");
}

TEST(DateTime, GoesThroughTheDateRecord) {
    const platform::SystemTime record{2026, 3, 4, 5, 6, 7, 8, 9};
    EXPECT_EQ(DateTime(record).toSystemTime(), record);
    EXPECT_EQ(DateTime(record).toString(), "2026/03/05 06:07:08.9");
}

TEST(DateTime, CountsDays) {
    EXPECT_EQ(daysBetween(2012, 2, 28, 2012, 2, 29), 1);
    EXPECT_EQ(daysBetween(2012, 2, 29, 2012, 3, 1), 1);
    EXPECT_EQ(daysBetween(2011, 2, 28, 2011, 3, 1), 1);
    EXPECT_EQ(daysBetween(1900, 2, 28, 1900, 3, 1), 1) << "no leap year";
    EXPECT_EQ(daysBetween(2000, 1, 1, 2001, 1, 1), 366);
    EXPECT_EQ(daysBetween(DateTime("2012/12/31"), DateTime("2013/01/01")), 1);
    EXPECT_EQ(dayOfWeek(2011, 2, 3), 4);
    EXPECT_EQ(dayOfWeek(2000, 1, 1), 6);
    EXPECT_GE(dayOfWeek(0, 0, 0), 0);
}

TEST(DateTime, CountsSeconds) {
    const auto between = [](const char* first, const char* second) {
        return secondsBetween(DateTime(first), DateTime(second));
    };
    EXPECT_EQ(between("2011/01/01 23:59:50", "2011/01/02 00:00:10"), 20);
    EXPECT_EQ(between("2011/01/02 00:00:10", "2011/01/01 23:59:50"), -20);
    EXPECT_EQ(between("2011/01/01 10:00:00", "2011/01/01 09:29:30"), -1830);
    EXPECT_EQ(between("1900/01/01 00:00:00", "2100/01/01 00:00:00"), 73049LL * 86400);
}

} // namespace
} // namespace zelkova
