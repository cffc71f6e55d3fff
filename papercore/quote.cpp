#include "papercore/quote.h"

#include <algorithm>

namespace papercore {
namespace {

bool IsPrice(Price price) { return price >= 0 && price <= kHighestPrice; }

bool ArePrices(const std::array<Level, kLevels>& levels) {
    return std::all_of(levels.begin(), levels.end(),
                       [](const Level& level) { return IsPrice(level.price); });
}

}  // namespace

bool IsSane(const Quote& quote) {
    return IsPrice(quote.last) && IsPrice(quote.trade_price) && IsPrice(quote.upper_limit) &&
           IsPrice(quote.lower_limit) && IsPrice(quote.previous_close) &&
           IsPrice(quote.previous_settlement) && ArePrices(quote.bid) && ArePrices(quote.ask);
}

}  // namespace papercore
