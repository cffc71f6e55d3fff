#pragma once

#include <string>

#include "papercore/quote.h"
#include "papercore/state.h"

// What the front end asks of the engine, and what it is told.

namespace papercore {

/// What a request came to, in words for the user (GBK). Code 0: done.
struct Answer {
    int code = 0;
    std::string text;
    OrderId order = 0;
};

inline constexpr int kRefused = 1;

/// Source of an order that goes by the net position, whatever its offset says.
inline constexpr int kSourceNet = 5;
/// Price code of a market order.
inline constexpr int kMarketPriceCode = 5;

/// An order as it is asked for; texts are bounded and clean by now.
struct OrderRequest {
    std::string exchange;
    std::string contract;
    std::string price;  ///< a number, or one of the price words
    std::string note;
    char direction = '0';
    char offset = '0';  ///< 0: net position
    char hedge = '1';
    char order_type = '0';
    std::int64_t volume = 0;
    LotId lot = 0;
    int source = 1;
    int price_code = 6;
    std::string bytes;  ///< of the request, kept as given
};

/// Figures of the account at the present prices.
struct Funds {
    Fen balance = 0;  ///< equity with holding profit
    Fen margin = 0;
    Fen frozen = 0;  ///< margin and fees of working orders
    Fen available = 0;
    Fen commission = 0;      ///< today's
    Fen open_profit = 0;     ///< from the open prices
    Fen holding_profit = 0;  ///< from the hold prices
};

}  // namespace papercore
