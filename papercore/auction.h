#pragma once

#include <vector>

#include "papercore/matcher.h"

namespace papercore {

/// What somebody would buy or sell when the auction ends. Order 0: the market.
struct Interest {
    Side side = Side::kBuy;
    Price price = 0;
    std::int64_t volume = 0;
    OrderId order = 0;
};

/// Price 0: nothing trades.
struct AuctionResult {
    Price price = 0;
    std::int64_t volume = 0;
    std::vector<Fill> fills;  ///< of own orders, all at the price
};

/// Uncrosses an auction at the price of most volume; among those at the smallest remainder, then
/// nearest to the reference (0: none), then lowest. Better prices are served first, at the same
/// price the market before own orders, own orders in the order in which they are given. Own orders
/// never trade with each other.
AuctionResult Uncross(const std::vector<Interest>& interests, Price reference);

}  // namespace papercore
