#include "papercore/facts.h"

#include <algorithm>
#include <iterator>

namespace papercore {
namespace {

/// No account comes near these; a damaged file may, and its sums must not wrap.
constexpr Fen kMostMoney = 10'000'000'000'000'000;
constexpr std::int64_t kMostLots = 1'000'000'000;
constexpr std::int32_t kMostNumber = 2'000'000'000;
constexpr TradeId kMostTrades = 1'000'000'000'000'000;

bool IsMoney(Fen amount) { return amount >= -kMostMoney && amount <= kMostMoney; }
bool IsCharge(Fen amount) { return amount >= 0 && amount <= kMostMoney; }
bool IsVolume(std::int64_t volume) { return volume > 0 && volume <= kMostLots; }

Order* WorkingOrder(State& state, OrderId id) {
    const auto found = state.orders.find(id);
    return found != state.orders.end() && found->second.IsWorking() ? &found->second : nullptr;
}

Lot* FindLot(State& state, LotId id) {
    const auto found = state.lots.find(id);
    return found != state.lots.end() ? &found->second : nullptr;
}

void Unfreeze(State& state, Order& order) {
    for (const FrozenSlice& slice : order.closing) {
        if (Lot* lot = FindLot(state, slice.lot)) lot->frozen -= slice.volume;
    }
    order.closing.clear();
    order.opening = 0;
    order.frozen_margin = 0;
    order.frozen_fee = 0;
}

bool AnyWorking(const State& state) {
    return std::any_of(state.orders.begin(), state.orders.end(),
                       [](const auto& entry) { return entry.second.IsWorking(); });
}

/// Orders and trades of the day that is over make room for the next one's.
void RollDay(State& state, Day day) {
    state.history.insert(state.history.end(), std::make_move_iterator(state.trades.begin()),
                         std::make_move_iterator(state.trades.end()));
    state.trades.clear();
    state.orders.clear();
    state.ledger.fees_today = 0;
    state.day = day;
}

bool Do(State& state, const AccountCreated& fact) {
    if (!state.login.account.empty() || fact.login.account.empty()) return false;
    if (!IsCharge(fact.starting_funds)) return false;
    state.login = fact.login;
    state.ledger.deposits += fact.starting_funds;
    return true;
}

bool Do(State& state, const PasswordChanged& fact) {
    if (state.login.account.empty()) return false;
    state.login.salt = fact.salt;
    state.login.hash = fact.hash;
    return true;
}

bool Do(State& state, const SessionOpened& fact) {
    if (fact.session <= state.sessions || fact.session > kMostNumber) return false;
    state.sessions = fact.session;
    return true;
}

bool Do(State& state, const MoneyMoved& fact) {
    if (!IsMoney(fact.amount)) return false;
    if (fact.amount >= 0) {
        state.ledger.deposits += fact.amount;
    } else {
        state.ledger.withdrawals -= fact.amount;
    }
    return true;
}

bool Do(State& state, const DayBegun& fact) {
    if (AnyWorking(state)) return false;
    RollDay(state, fact.day);
    return true;
}

/// Every slice lies in what its lot has free, and none of its lots is named twice.
bool CanFreeze(State& state, const Order& order) {
    std::int64_t closing = 0;
    for (auto slice = order.closing.begin(); slice != order.closing.end(); ++slice) {
        const Lot* lot = FindLot(state, slice->lot);
        if (!lot || lot->side == order.side || lot->contract != order.contract) return false;
        if (!IsVolume(slice->volume) || slice->volume > lot->volume - lot->frozen) return false;
        const auto same = [&](const FrozenSlice& other) { return other.lot == slice->lot; };
        if (std::any_of(std::next(slice), order.closing.end(), same)) return false;
        closing += slice->volume;
    }
    return order.opening >= 0 && order.opening == order.volume - closing;
}

bool Do(State& state, const OrderAccepted& fact) {
    const Order& order = fact.order;
    if (order.id <= state.last_order || order.id > kMostNumber) return false;
    if (!order.IsWorking()) return false;
    if (!IsVolume(order.volume) || order.filled != 0) return false;
    if (!IsCharge(order.frozen_margin) || !IsCharge(order.frozen_fee)) return false;
    if (!CanFreeze(state, order)) return false;
    for (const FrozenSlice& slice : order.closing) state.lots[slice.lot].frozen += slice.volume;
    state.last_order = order.id;
    state.orders.emplace(order.id, order);
    return true;
}

bool Do(State& state, const OrderEnded& fact) {
    Order* order = WorkingOrder(state, fact.order);
    if (!order || fact.status == OrderStatus::kWorking) return false;
    Unfreeze(state, *order);
    order->status = fact.status;
    order->remark = fact.remark;
    return true;
}

bool Do(State& state, const OrderBecameLimit& fact) {
    Order* order = WorkingOrder(state, fact.order);
    if (!order || fact.limit <= 0) return false;
    if (!IsCharge(fact.frozen_margin) || !IsCharge(fact.frozen_fee)) return false;
    order->kind = OrderKind::kLimit;
    order->limit = fact.limit;
    order->frozen_margin = fact.frozen_margin;
    order->frozen_fee = fact.frozen_fee;
    return true;
}

/// The slices of a fill are the first ones of its order; only the last may leave something.
bool CanClose(State& state, const Order& order, const OrderFilled& fact) {
    if (fact.closed.size() > order.closing.size()) return false;
    std::int64_t volume = fact.opened.id != 0 ? fact.opened.volume : 0;
    for (std::size_t i = 0; i < fact.closed.size(); ++i) {
        const OrderFilled::Closed& closed = fact.closed[i];
        const FrozenSlice& slice = order.closing[i];
        const bool last = i + 1 == fact.closed.size();
        if (closed.lot != slice.lot || !IsVolume(closed.volume)) return false;
        if (!IsMoney(closed.realised)) return false;
        if (last ? closed.volume > slice.volume : closed.volume != slice.volume) return false;
        const Lot* lot = FindLot(state, closed.lot);
        if (!lot || closed.volume > lot->frozen || closed.volume > lot->volume) return false;
        if (closed.margin_released < 0 || closed.margin_released > lot->margin) return false;
        volume += closed.volume;
    }
    return volume == fact.volume;
}

bool CanOpen(const State& state, const Order& order, const Lot& lot) {
    return lot.id > state.last_lot && lot.id <= kMostNumber && IsVolume(lot.volume) &&
           lot.volume <= order.opening && lot.frozen == 0 && IsCharge(lot.margin);
}

bool CanFill(State& state, const Order& order, const OrderFilled& fact) {
    if (fact.volume <= 0 || fact.volume > order.Remaining()) return false;
    if (!IsCharge(fact.frozen_margin) || !IsCharge(fact.frozen_fee)) return false;
    if (!IsCharge(fact.fee)) return false;
    TradeId last = state.last_trade;
    for (const Trade& trade : fact.trades) {
        if (trade.id <= last || trade.id > kMostTrades) return false;
        if (!IsMoney(trade.fee) || !IsMoney(trade.realised)) return false;
        last = trade.id;
    }
    if (fact.opened.id != 0 && !CanOpen(state, order, fact.opened)) return false;
    return CanClose(state, order, fact);
}

void CloseSlice(State& state, Order& order, const OrderFilled::Closed& closed) {
    Lot& lot = state.lots[closed.lot];
    lot.volume -= closed.volume;
    lot.frozen -= closed.volume;
    lot.margin -= closed.margin_released;
    if (lot.volume == 0) state.lots.erase(closed.lot);
    state.ledger.realised += closed.realised;
    FrozenSlice& slice = order.closing.front();
    slice.volume -= closed.volume;
    if (slice.volume == 0) order.closing.erase(order.closing.begin());
}

bool Do(State& state, const OrderFilled& fact) {
    Order* order = WorkingOrder(state, fact.order);
    if (!order || !CanFill(state, *order, fact)) return false;
    for (const OrderFilled::Closed& closed : fact.closed) CloseSlice(state, *order, closed);
    if (fact.opened.id != 0) {
        state.last_lot = fact.opened.id;
        state.lots.emplace(fact.opened.id, fact.opened);
        order->opening -= fact.opened.volume;
    }
    for (const Trade& trade : fact.trades) {
        state.last_trade = trade.id;
        state.trades.push_back(trade);
    }
    state.ledger.fees += fact.fee;
    state.ledger.fees_today += fact.fee;
    order->filled += fact.volume;
    order->frozen_margin = fact.frozen_margin;
    order->frozen_fee = fact.frozen_fee;
    if (order->Remaining() == 0) order->status = OrderStatus::kFilled;
    return true;
}

bool Do(State& state, const PresetSet& fact) {
    state.presets[fact.key] = fact.record;
    return true;
}

bool Do(State& state, const LotStopSet& fact) {
    Lot* lot = FindLot(state, fact.lot);
    if (!lot) return false;
    lot->has_stop = fact.active;
    lot->stop = fact.active ? fact.stop : LotStop{};
    return true;
}

bool Do(State& state, const StopTriggered& fact) {
    Lot* lot = FindLot(state, fact.lot);
    if (!lot || !lot->has_stop || lot->stop.triggered) return false;
    lot->stop.triggered = true;
    return true;
}

bool Do(State& state, const FloatBaseMoved& fact) {
    Lot* lot = FindLot(state, fact.lot);
    if (!lot || !lot->has_stop) return false;
    lot->stop.float_base = fact.base;
    return true;
}

bool Do(State& state, const StopsWoken& fact) {
    for (const LotId id : fact.lots) {
        if (!FindLot(state, id)) return false;
    }
    for (const LotId id : fact.lots) state.lots[id].stop.asleep = false;
    return true;
}

bool Do(State& state, const TradeParamSet& fact) {
    state.trade_param = fact.bytes;
    state.trade_param_set = true;
    return true;
}

bool KnowsLots(State& state, const DaySettled& fact) {
    const auto known = [&state](LotId id) { return FindLot(state, id) != nullptr; };
    return std::all_of(fact.lots.begin(), fact.lots.end(),
                       [&](const DaySettled::Marked& marked) {
                           return known(marked.lot) && IsCharge(marked.margin) &&
                                  IsMoney(marked.profit) && IsMoney(marked.deferred);
                       }) &&
           std::all_of(fact.stops_ended.begin(), fact.stops_ended.end(), known) &&
           std::all_of(fact.stops_asleep.begin(), fact.stops_asleep.end(), known);
}

bool Do(State& state, const DaySettled& fact) {
    if (AnyWorking(state) || !KnowsLots(state, fact)) return false;
    for (const DaySettled::Marked& marked : fact.lots) {
        Lot& lot = state.lots[marked.lot];
        lot.hold_price = marked.settlement;
        lot.margin = marked.margin;
        state.ledger.settled += marked.profit;
        state.ledger.deferred += marked.deferred;
    }
    for (const auto& [contract, price] : fact.settlements) state.settlements[contract] = price;
    for (const LotId id : fact.stops_ended) {
        state.lots[id].has_stop = false;
        state.lots[id].stop = {};
    }
    for (const LotId id : fact.stops_asleep) state.lots[id].stop.asleep = true;
    RollDay(state, fact.next_day);
    return true;
}

}  // namespace

bool Apply(State& state, const Fact& fact) {
    return std::visit([&state](const auto& one) { return Do(state, one); }, fact);
}

}  // namespace papercore
