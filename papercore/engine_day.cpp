#include <algorithm>

#include "papercore/engine.h"
#include "papercore/funds.h"

// The end of a trading day.

namespace papercore {
namespace {

Price SettlementOf(const DayEnd& end, const std::string& contract) {
    for (const DayEnd::Settlement& settlement : end.settlements) {
        if (settlement.contract != contract) continue;
        return settlement.price <= kHighestPrice ? settlement.price : 0;
    }
    return 0;
}

}  // namespace

void Engine::OnDayEnd(const DayEnd& end) {
    // A day that was settled already is not settled again.
    if (end.trading_day < state_.day) return;
    EndDay(end);
    CheckSums();
}

/// The market went on to another day and nobody said how the last one ended: what is known of the
/// prices then has to do.
void Engine::ChangeDay(const Quote& quote) {
    if (state_.lots.empty() && state_.orders.empty()) {
        Record(DayBegun{quote.trading_day});
        return;
    }
    DayEnd end;
    end.time = quote.time;
    end.trading_day = state_.day;
    end.next_trading_day = quote.trading_day;
    end.settlements.push_back({quote.contract, quote.previous_settlement});
    EndDay(end);
}

void Engine::EndDay(const DayEnd& end) {
    std::vector<OrderId> working;
    for (const auto& [id, order] : state_.orders) {
        if (order.IsWorking()) working.push_back(id);
    }
    for (const OrderId id : working) {
        EndOrder(id, OrderStatus::kCancelled, "收盘自动撤单", end.time);
    }
    DaySettled fact;
    fact.day = end.trading_day;
    fact.next_day = end.next_trading_day > 0 ? end.next_trading_day : end.trading_day;
    for (const DayEnd::Settlement& settlement : end.settlements) {
        const Price price = SettlementOf(end, settlement.contract);
        if (price > 0) fact.settlements[settlement.contract] = price;
    }
    for (const auto& [id, lot] : state_.lots) {
        fact.lots.push_back(Mark(lot, end));
        if (!lot.has_stop) continue;
        const bool lives_on = lot.stop.for_good && !lot.stop.triggered;
        (lives_on ? fact.stops_asleep : fact.stops_ended).push_back(id);
    }
    Record(fact);
    stops_.Clear();
    stop_orders_.clear();
}

/// The margin is the next day's; the deferred fee counts every calendar day until then.
DaySettled::Marked Engine::Mark(const Lot& lot, const DayEnd& end) const {
    DaySettled::Marked marked;
    marked.lot = lot.id;
    marked.settlement = SettlementOf(end, lot.contract);
    if (marked.settlement <= 0) marked.settlement = PresentPrice(lot);
    marked.profit = ProfitOf(lot.side, lot.unit, lot.hold_price, marked.settlement, lot.volume);
    marked.margin = lot.margin;
    const ContractTerms* today = terms_.Find(lot.contract, end.trading_day);
    const ContractTerms* next = terms_.Find(lot.contract, end.next_trading_day);
    if (today) {
        const Day from = state_.day > 0 ? state_.day : end.trading_day;
        const int days = CalendarDays(from, end.next_trading_day);
        marked.deferred = DeferredFee(*today, lot, marked.settlement, days);
    }
    if (next) marked.margin = MarginOf(*next, marked.settlement, lot.unit, lot.volume);
    return marked;
}

}  // namespace papercore
