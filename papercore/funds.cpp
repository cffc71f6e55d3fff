#include "papercore/funds.h"

#include <algorithm>

namespace papercore {
namespace {

constexpr Ppm kWhole = 1'000'000;

/// No amount goes beyond this, so that sums of absurd prices don't wrap.
constexpr Fen kMostMoney = 100'000'000'000'000'000;

Fen Times(Fen amount, std::int64_t count) {
    Fen product = 0;
    const bool wraps = __builtin_mul_overflow(amount, count, &product);
    if (wraps) return (amount < 0) == (count < 0) ? kMostMoney : -kMostMoney;
    return std::clamp(product, -kMostMoney, kMostMoney);
}

/// Days since 0000-03-01; a year that begins in March has its leap day at the end.
int DayNumber(Day day) {
    int year = day / 10000;
    int month = day / 100 % 100;
    if (month <= 2) {
        month += 12;
        --year;
    }
    return 365 * year + year / 4 - year / 100 + year / 400 + (153 * (month - 3) + 2) / 5 +
           day % 100;
}

/// The worst price that buyers are shown, the best one that sellers are.
Price HighestShown(const std::array<Level, kLevels>& levels) {
    Price highest = 0;
    for (const Level& level : levels) highest = std::max(highest, level.price);
    return highest;
}

}  // namespace

Fen LotValue(Price price, int unit) {
    return std::clamp(Turnover(price, unit, 1), -kMostMoney, kMostMoney);
}

Fen MarginOf(const ContractTerms& terms, Price price, int unit, std::int64_t volume) {
    return Times(Share(LotValue(price, unit), terms.margin), volume);
}

Fen FeeOf(const ContractTerms& terms, FeeKind kind, Price price, int unit, std::int64_t volume) {
    const Ppm rate = kind == FeeKind::kOpen    ? terms.fee_open
                     : kind == FeeKind::kClose ? terms.fee_close
                                               : terms.fee_close_today;
    return Times(Share(LotValue(price, unit), rate), volume);
}

FeeKind ClosingFee(const Lot& lot, Day today) {
    return lot.day == today ? FeeKind::kCloseToday : FeeKind::kClose;
}

Fen ProfitOf(Side side, int unit, Price from, Price to, std::int64_t volume) {
    const Fen gain = LotValue(to, unit) - LotValue(from, unit);
    return Times(side == Side::kBuy ? gain : -gain, volume);
}

Fen DeferredFee(const ContractTerms& terms, const Lot& lot, Price settlement, int days) {
    if (terms.IsSpot() || terms.deferred_direction == DeferredDirection::kNobodyPays) return 0;
    const Fen daily = Share(LotValue(settlement, lot.unit), terms.deferred);
    const Fen fee = Times(Times(daily, days), lot.volume);
    const bool long_pays = terms.deferred_direction == DeferredDirection::kLongPays;
    return long_pays == (lot.side == Side::kBuy) ? fee : -fee;
}

Price FreezePrice(const Quote& quote, Side side, Price limit) {
    const bool shows_prices = quote.phase == MarketPhase::kContinuous;
    if (side == Side::kBuy) {
        return limit > 0 || !shows_prices ? limit : HighestShown(quote.ask);
    }
    return shows_prices ? std::max(limit, HighestShown(quote.bid)) : limit;
}

Frozen FreezeOf(const State& state, const ContractTerms& terms, const Order& order, Price price) {
    Frozen frozen;
    frozen.margin = MarginOf(terms, price, terms.unit, order.opening);
    frozen.fee = FeeOf(terms, FeeKind::kOpen, price, terms.unit, order.opening);
    for (const FrozenSlice& slice : order.closing) {
        const Lot& lot = state.lots.at(slice.lot);
        frozen.fee += FeeOf(terms, ClosingFee(lot, state.day), price, lot.unit, slice.volume);
    }
    return frozen;
}

PriceLimits LimitsOf(const ContractTerms& terms, const Quote& quote) {
    PriceLimits limits{quote.lower_limit, quote.upper_limit};
    const Price base = terms.IsSpot() ? quote.previous_close : quote.previous_settlement;
    if (base <= 0 || terms.limit <= 0 || terms.tick <= 0) return limits;
    if (limits.lower <= 0) {
        const Price lowest = Share(base, kWhole - std::min(terms.limit, kWhole));
        limits.lower = (lowest + terms.tick - 1) / terms.tick * terms.tick;
    }
    if (limits.upper <= 0)
        limits.upper = Share(base, kWhole + terms.limit) / terms.tick * terms.tick;
    return limits;
}

int CalendarDays(Day from, Day to) {
    if (from <= 0 || to <= 0) return 0;
    return std::max(0, DayNumber(to) - DayNumber(from));
}

}  // namespace papercore
