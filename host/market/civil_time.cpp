#include "host/market/civil_time.h"

#include <chrono>
#include <cstdio>

namespace market {
namespace {

using papercore::Day;
using papercore::Instant;

constexpr Instant kHour = 60 * kMinute;

std::int64_t FloorDays(Instant time) { return time / kDay - (time % kDay < 0 ? 1 : 0); }

bool IsWeekend(std::int64_t days) {
    const std::int64_t weekday = ((days + 4) % 7 + 7) % 7;
    return weekday == 0 || weekday == 6;
}

Day Towards(Day day, Instant step) {
    Instant time = MidnightOf(day) + step;
    while (IsWeekend(FloorDays(time))) time += step;
    return DayOf(time);
}

}  // namespace

Instant MidnightOf(Day day) {
    const std::chrono::year_month_day date{
        std::chrono::year{day / 10000}, std::chrono::month(static_cast<unsigned>(day / 100 % 100)),
        std::chrono::day(static_cast<unsigned>(day % 100))};
    return Instant{std::chrono::sys_days{date}.time_since_epoch().count()} * kDay;
}

Day DayOf(Instant time) {
    const std::chrono::days days{FloorDays(time)};
    const std::chrono::year_month_day date{std::chrono::sys_days{days}};
    return int{date.year()} * 10000 + static_cast<int>(unsigned{date.month()} * 100) +
           static_cast<int>(unsigned{date.day()});
}

Day NextBusinessDay(Day day) { return Towards(day, kDay); }

Day PreviousBusinessDay(Day day) { return Towards(day, -kDay); }

Day TradingDayOf(Instant time) {
    const Day day = DayOf(time);
    const bool evening = time - MidnightOf(day) >= 18 * kHour;
    return evening || IsWeekend(FloorDays(time)) ? NextBusinessDay(day) : day;
}

Instant MomentOf(Day trading_day, int minute) {
    constexpr int kMorning = 24 * 60 + 6 * 60;
    if (minute >= kMorning) return MidnightOf(trading_day) + minute * kMinute - kDay;
    return MidnightOf(PreviousBusinessDay(trading_day)) + minute * kMinute;
}

std::string TimeText(Instant time) {
    const Day day = DayOf(time);
    const auto seconds = static_cast<int>((time - MidnightOf(day)) / 1000);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", day / 10000, day / 100 % 100,
                  day % 100, seconds / 3600, seconds / 60 % 60, seconds % 60);
    return text;
}

}  // namespace market
