#pragma once

#include "papercore/contract_terms.h"
#include "papercore/quote.h"
#include "papercore/state.h"

// What things cost, each formula once: the preview of the largest order, what an order freezes,
// what a fill charges and what a report shows all come from here. A lot is the smallest thing
// there is, so that everything is rounded for one lot and multiplied: parts then always add up to
// the whole, however an order is filled.

namespace papercore {

/// Value of one lot at a price.
Fen LotValue(Price price, int unit);

/// Margin of `volume` lots; a spot contract's is its full price.
Fen MarginOf(const ContractTerms& terms, Price price, int unit, std::int64_t volume);

enum class FeeKind : std::uint8_t { kOpen, kClose, kCloseToday };
Fen FeeOf(const ContractTerms& terms, FeeKind kind, Price price, int unit, std::int64_t volume);

/// Which fee closes a lot on a day.
FeeKind ClosingFee(const Lot& lot, Day today);

/// Gain of a long position, loss of a short one, when the price goes from one to the other.
Fen ProfitOf(Side side, int unit, Price from, Price to, std::int64_t volume);

/// Deferred fee of a lot's holder over some calendar days: above 0 paid, below 0 received.
Fen DeferredFee(const ContractTerms& terms, const Lot& lot, Price settlement, int days);

/// The price that an order's money is reckoned at until it fills, never better for the account
/// than what its fill may bring: a buyer's limit, or the worst price shown to one without limit; a
/// seller's limit, or the best bid while that is higher. 0: the market shows nothing.
Price FreezePrice(const Quote& quote, Side side, Price limit);

/// What an order's rest freezes at a price.
struct Frozen {
    Fen margin = 0;
    Fen fee = 0;
    Fen Total() const { return margin + fee; }
};
Frozen FreezeOf(const State& state, const ContractTerms& terms, const Order& order, Price price);

struct PriceLimits {
    Price lower = 0;  ///< 0: none
    Price upper = 0;
};
/// The day's limits: the market's own where it shows them, else the rate of the terms around the
/// previous settlement (spot: the previous close), rounded inwards to the tick.
PriceLimits LimitsOf(const ContractTerms& terms, const Quote& quote);

/// Days from one date to the other; 0 when it isn't later, or when one is no date.
int CalendarDays(Day from, Day to);

}  // namespace papercore
