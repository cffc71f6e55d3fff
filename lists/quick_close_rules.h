#pragma once

#include <cstddef>
#include <iterator>
#include <optional>
#include <string>

#include "plugin/contract/order_records.h"
#include "plugin/contract/parameter_records.h"
#include "plugin/contract/position_records.h"

// Closing a part of a position with one click.

namespace lists {

/// What a button closes of the lots that are available.
struct CloseRatio {
    double ratio;
    int percent;        ///< of the button's text
    bool at_least_one;  ///< closes a lot even if the part is less
};
inline constexpr CloseRatio kCloseRatios[] = {
    {0.01, 1, true}, {0.3, 30, false}, {0.5, 50, false}, {0.7, 70, false}, {1.0, 100, false},
};
inline constexpr std::size_t kCloseRatioCount = std::size(kCloseRatios);

/// What a button says and does.
struct CloseOffer {
    std::string text;
    bool enabled = false;
    std::optional<int> lots;  ///< none: the button keeps what it had
};
/// The part is cut to whole lots, never rounded.
CloseOffer OfferClose(int available, const CloseRatio& ratio);
/// Without a row.
CloseOffer NoCloseOffer(const CloseRatio& ratio);

/// An order that is ready to be confirmed and sent.
struct PreparedClose {
    std::string problem;  ///< for the status line; if there is one, nothing else counts
    CInsertOrderRequest request{};
    CTradeParam param{};
    unsigned char price_type = 0;
    bool is_close = false;  ///< the setting for closing orders counts too when it is confirmed
};

/// Works out the price and reads account and parameters as they are now. No volume is checked.
PreparedClose PrepareCloseTotal(const CZebPosition& position, int lots);
/// Closes this very lot. The price type does not go with it, and it is confirmed like any order.
PreparedClose PrepareCloseLot(const PositionGroup& lot, int lots);

}  // namespace lists
