#include "papercore/totals.h"

#include <map>

#include "papercore/funds.h"

namespace papercore {
namespace {

/// The order whose frozen money a fact changes; 0: none.
OrderId OrderOf(const Fact& fact) {
    if (const auto* accepted = std::get_if<OrderAccepted>(&fact)) return accepted->order.id;
    if (const auto* ended = std::get_if<OrderEnded>(&fact)) return ended->order;
    if (const auto* limit = std::get_if<OrderBecameLimit>(&fact)) return limit->order;
    if (const auto* filled = std::get_if<OrderFilled>(&fact)) return filled->order;
    return 0;
}

Fen FrozenBy(const State& state, OrderId id) {
    const auto found = state.orders.find(id);
    if (found == state.orders.end()) return 0;
    return found->second.frozen_margin + found->second.frozen_fee;
}

std::string BrokenOrder(const State& state, const Order& order,
                        std::map<LotId, std::int64_t>& frozen) {
    std::int64_t rest = order.opening;
    for (const FrozenSlice& slice : order.closing) {
        const auto lot = state.lots.find(slice.lot);
        if (lot == state.lots.end()) return "an order closes a lot that is gone";
        if (lot->second.side == order.side) return "an order closes a lot of its own side";
        if (slice.volume <= 0) return "an order closes nothing of a lot";
        frozen[slice.lot] += slice.volume;
        rest += slice.volume;
    }
    if (order.filled < 0 || order.filled > order.volume) return "an order filled beyond its volume";
    if (order.frozen_margin < 0 || order.frozen_fee < 0)
        return "an order freezes less than nothing";
    if (order.IsWorking()) return rest == order.Remaining() ? "" : "an order's rest is not divided";
    if (rest != 0) return "an order that ended holds something";
    if (order.frozen_margin != 0 || order.frozen_fee != 0)
        return "an order that ended freezes money";
    return {};
}

std::string BrokenLot(const Lot& lot, std::int64_t frozen) {
    if (lot.volume <= 0) return "a lot is empty";
    if (lot.frozen != frozen) return "a lot's frozen volume is not its orders'";
    if (lot.frozen > lot.volume) return "a lot is frozen beyond its volume";
    if (lot.margin < 0 || lot.margin % lot.volume != 0) return "a lot's margin can't be divided";
    return {};
}

std::string BrokenLedger(const State& state, const Totals& totals, Fen marked) {
    const Ledger& ledger = state.ledger;
    if (ledger.deposits < 0 || ledger.withdrawals < 0) return "money moved the wrong way";
    if (ledger.fees != totals.trade_fees) return "the fees are not those of the trades";
    // What closed lots gained since they opened, and open lots until their last settlement, is
    // what the ledger took in, whichever day it was.
    if (ledger.realised + ledger.settled != totals.trade_gain + marked) {
        return "the gains are not those of the trades and the settlements";
    }
    return {};
}

}  // namespace

Totals Totals::Of(const State& state) {
    Totals totals;
    for (const auto& [id, lot] : state.lots) totals.margin += lot.margin;
    for (const auto& [id, order] : state.orders) {
        totals.frozen += order.frozen_margin + order.frozen_fee;
    }
    for (const auto* trades : {&state.history, &state.trades}) {
        for (const Trade& trade : *trades) {
            totals.trade_fees += trade.fee;
            totals.trade_gain += trade.realised;
        }
    }
    return totals;
}

void Totals::Leave(const State& state, const Fact& fact) {
    frozen -= FrozenBy(state, OrderOf(fact));
    if (const auto* settled = std::get_if<DaySettled>(&fact)) {
        for (const DaySettled::Marked& marked : settled->lots) {
            margin += marked.margin - state.lots.at(marked.lot).margin;
        }
    }
}

void Totals::Enter(const State& state, const Fact& fact) {
    frozen += FrozenBy(state, OrderOf(fact));
    if (const auto* filled = std::get_if<OrderFilled>(&fact)) {
        margin += filled->opened.margin;
        for (const OrderFilled::Closed& closed : filled->closed) margin -= closed.margin_released;
        for (const Trade& trade : filled->trades) {
            trade_fees += trade.fee;
            trade_gain += trade.realised;
        }
    }
}

std::string BrokenSum(const State& state, const Totals& totals) {
    std::map<LotId, std::int64_t> frozen_lots;
    Fen frozen = 0;
    for (const auto& [id, order] : state.orders) {
        std::string broken = BrokenOrder(state, order, frozen_lots);
        if (!broken.empty()) return broken;
        frozen += order.frozen_margin + order.frozen_fee;
    }
    Fen margin = 0;
    Fen marked = 0;
    for (const auto& [id, lot] : state.lots) {
        std::string broken = BrokenLot(lot, frozen_lots[id]);
        if (!broken.empty()) return broken;
        margin += lot.margin;
        marked += ProfitOf(lot.side, lot.unit, lot.open_price, lot.hold_price, lot.volume);
    }
    if (frozen != totals.frozen) return "the frozen money is not that of the orders";
    if (margin != totals.margin) return "the margin is not that of the lots";
    return BrokenLedger(state, totals, marked);
}

}  // namespace papercore
