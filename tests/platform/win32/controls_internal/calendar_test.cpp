#include "platform/win32/controls/calendar.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace winbase {
namespace {

SYSTEMTIME Day(int year, int month, int day) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    return time;
}

std::string Text(const SYSTEMTIME& time) {
    char text[40];
    std::snprintf(text, sizeof text, "%d-%02d-%02d/%d", time.wYear, time.wMonth, time.wDay,
                  time.wDayOfWeek);
    return text;
}

TEST(CalendarDays, KnowLeapYearsAndWeekdays) {
    EXPECT_EQ(29, DaysInMonth(2024, 2));
    EXPECT_EQ(28, DaysInMonth(1900, 2));
    EXPECT_EQ(29, DaysInMonth(2000, 2));
    EXPECT_EQ(31, DaysInMonth(2023, 12));
    EXPECT_EQ(4, WeekdayOf(2024, 2, 29));
    EXPECT_EQ(6, WeekdayOf(2000, 1, 1));
    EXPECT_EQ(1, WeekdayOf(1601, 1, 1));
}

TEST(CalendarDays, RefuseWhatIsNoDay) {
    EXPECT_TRUE(IsValidTime(Day(2024, 2, 29)));
    EXPECT_FALSE(IsValidTime(Day(2023, 2, 29)));
    EXPECT_FALSE(IsValidTime(Day(2024, 13, 1)));
    EXPECT_FALSE(IsValidTime(Day(2024, 0, 1)));
    EXPECT_FALSE(IsValidTime(Day(1600, 1, 1)));
    SYSTEMTIME late = Day(2024, 1, 1);
    late.wHour = 24;
    EXPECT_FALSE(IsValidTime(late));
}

TEST(CalendarDays, MonthsKeepTheDayWithinTheMonth) {
    const struct {
        SYSTEMTIME from;
        int months;
        const char* to;
    } kCases[] = {{Day(2024, 1, 31), 1, "2024-02-29/4"},  {Day(2024, 2, 29), 12, "2025-02-28/5"},
                  {Day(2024, 1, 15), -1, "2023-12-15/5"}, {Day(2024, 12, 1), 1, "2025-01-01/3"},
                  {Day(1601, 1, 1), -1, "1601-01-01/1"},  {Day(9999, 12, 31), 5, "9999-12-31/5"}};
    for (const auto& one : kCases) {
        SYSTEMTIME time = one.from;
        AddMonths(time, one.months);
        EXPECT_EQ(one.to, Text(time));
    }
}

TEST(CalendarDays, DaysCrossMonthsAndYears) {
    SYSTEMTIME time = Day(2023, 12, 31);
    AddDays(time, 1);
    EXPECT_EQ("2024-01-01/1", Text(time));
    AddDays(time, -366);
    EXPECT_EQ("2022-12-31/6", Text(time));
    EXPECT_LT(CompareDays(Day(2023, 12, 31), Day(2024, 1, 1)), 0);
    EXPECT_EQ(0, CompareDays(Day(2024, 1, 1), Day(2024, 1, 1)));
}

// Stepping must end at the first and the last day that there are.
TEST(CalendarDays, TheEndsOfTimeAreReached) {
    SYSTEMTIME first = Day(1601, 1, 1);
    AddDays(first, -40);
    EXPECT_TRUE(IsValidTime(first)) << Text(first);
    SYSTEMTIME last = Day(9999, 12, 31);
    AddDays(last, 40);
    EXPECT_TRUE(IsValidTime(last)) << Text(last);
}

}  // namespace
}  // namespace winbase
