#pragma once

#include <array>
#include <string>
#include <vector>

#include "papercore/units.h"

namespace papercore {

inline constexpr int kLevels = 5;

struct Level {
    Price price = 0;
    std::int64_t volume = 0;
    friend bool operator==(const Level&, const Level&) = default;
};

enum class MarketPhase : std::uint8_t {
    kClosed,   ///< orders are refused
    kAuction,  ///< orders are collected; the book shows no prices to trade at
    kContinuous,
};

/// One update of one contract: what the market shows after it, and what was traded in it.
struct Quote {
    std::string contract;
    Instant time = 0;
    Day trading_day = 0;
    MarketPhase phase = MarketPhase::kContinuous;
    Price last = 0;
    Price open = 0;
    Price high = 0;
    Price low = 0;
    Price previous_close = 0;
    Price previous_settlement = 0;
    Price upper_limit = 0;  ///< 0: none known
    Price lower_limit = 0;
    std::int64_t volume = 0;  ///< lots since the trading day began
    std::int64_t open_interest = 0;
    Fen turnover = 0;                ///< since the trading day began
    std::array<Level, kLevels> bid;  ///< best first; price 0: no such level
    std::array<Level, kLevels> ask;
    Price trade_price = 0;          ///< of the trade that made this update
    std::int64_t trade_volume = 0;  ///< 0: no trade, only the book moved
};

/// Whether every price is one, 0 included.
bool IsSane(const Quote& quote);

/// The end of a trading day, with what positions are marked at.
struct DayEnd {
    struct Settlement {
        std::string contract;
        Price price = 0;
    };
    Instant time = 0;
    Day trading_day = 0;
    Day next_trading_day = 0;
    std::vector<Settlement> settlements;
};

}  // namespace papercore
