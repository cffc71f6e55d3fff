#pragma once

#include <cstddef>

#include "papercore/quote.h"

// Quotes in the words of the market.

namespace papercore_tests {

inline papercore::Price Yuan(double price) { return papercore::PriceFromYuan(price); }

/// One update: `Market().Ask(300.00, 3).Bid(299.99, 5)`, levels best first.
class Market {
public:
    Market() {
        quote_.contract = "Au(T+D)";
        quote_.trading_day = 20240301;
    }

    Market& Bid(double price, std::int64_t volume) {
        quote_.bid.at(bids_++) = {Yuan(price), volume};
        return *this;
    }
    Market& Ask(double price, std::int64_t volume) {
        quote_.ask.at(asks_++) = {Yuan(price), volume};
        return *this;
    }
    Market& Traded(double price, std::int64_t volume) {
        quote_.trade_price = Yuan(price);
        quote_.trade_volume = volume;
        quote_.last = quote_.trade_price;
        return *this;
    }
    Market& Last(double price) {
        quote_.last = Yuan(price);
        return *this;
    }
    Market& Limits(double lower, double upper) {
        quote_.lower_limit = Yuan(lower);
        quote_.upper_limit = Yuan(upper);
        return *this;
    }
    Market& Auction() {
        quote_.phase = papercore::MarketPhase::kAuction;
        return *this;
    }
    Market& Closed() {
        quote_.phase = papercore::MarketPhase::kClosed;
        return *this;
    }
    Market& PreviousClose(double price) {
        quote_.previous_close = Yuan(price);
        return *this;
    }
    Market& Day(papercore::Day day) {
        quote_.trading_day = day;
        return *this;
    }

    operator papercore::Quote() const { return quote_; }  // NOLINT(google-explicit-constructor)

private:
    papercore::Quote quote_;
    std::size_t bids_ = 0;
    std::size_t asks_ = 0;
};

}  // namespace papercore_tests
