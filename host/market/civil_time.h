#pragma once

#include <string>

#include "papercore/units.h"

namespace market {

inline constexpr papercore::Instant kMinute = 60'000;
inline constexpr papercore::Instant kDay = 24 * 60 * kMinute;

/// Midnight of a day YYYYMMDD.
papercore::Instant MidnightOf(papercore::Day day);
papercore::Day DayOf(papercore::Instant time);

/// Monday to Friday. Holidays are not known here.
papercore::Day NextBusinessDay(papercore::Day day);
papercore::Day PreviousBusinessDay(papercore::Day day);

/// From 18:00 on the evening belongs to the next business day, and so does what follows of it
/// after midnight at a weekend.
papercore::Day TradingDayOf(papercore::Instant time);

/// The moment of a session's minute (after 00:00 of the evening before) on a trading day.
papercore::Instant MomentOf(papercore::Day trading_day, int minute);

/// "YYYY-MM-DD HH:MM:SS".
std::string TimeText(papercore::Instant time);

}  // namespace market
