#include <algorithm>
#include <cassert>
#include <utility>

#include "papercore/engine.h"
#include "papercore/funds.h"
#include "papercore/lot_stops.h"
#include "papercore/order_rules.h"
#include "papercore/texts.h"

// Orders and their fills.

namespace papercore {
namespace {

std::string Hands(std::int64_t volume) { return std::to_string(volume) + "手"; }

std::string ShortOfMoney(Fen needed, Fen there) {
    return "可用资金不足：需要 " + MoneyText(needed) + "，可用 " + MoneyText(there);
}

/// Offset of a trade that closes for an order.
char ClosingOffset(const Order& order) { return order.offset == '2' ? '2' : '1'; }

Trade TradeOf(const Order& order, const Fill& fill, Day day, Instant now) {
    Trade trade;
    trade.order = order.id;
    trade.day = day;
    trade.time = now;
    trade.contract = order.contract;
    trade.side = order.side;
    trade.hedge = order.hedge;
    trade.price = fill.price;
    return trade;
}

/// Takes one lot's part out of what an order closes.
OrderFilled::Closed CloseOne(const Lot& lot, std::int64_t volume, Price price) {
    OrderFilled::Closed closed;
    closed.lot = lot.id;
    closed.volume = volume;
    closed.realised = ProfitOf(lot.side, lot.unit, lot.hold_price, price, volume);
    closed.margin_released = lot.margin - lot.margin / lot.volume * (lot.volume - volume);
    return closed;
}

}  // namespace

std::string Engine::Prepare(const OrderRequest& request, const ContractTerms& terms, Order& order) {
    std::string reason = CheckRequest(request, terms);
    if (!reason.empty()) return reason;
    const Quote* quote = LastQuote(request.contract);
    reason = CheckMarket(quote, state_.day);
    if (!reason.empty()) return reason;
    order.side = request.direction == '0' ? Side::kBuy : Side::kSell;
    reason = ResolvePrice(request, *quote, terms, order);
    if (!reason.empty()) return reason;
    reason = Allocate(state_, terms, request, order);
    if (!reason.empty()) return reason;
    const Frozen frozen = FreezeOf(state_, terms, order, FreezeNow(order));
    order.frozen_margin = frozen.margin;
    order.frozen_fee = frozen.fee;
    // Who only closes is never held up by money: the margin that comes free is more than the fee.
    if (order.opening == 0) return {};
    const Fen spendable = Spendable();
    if (frozen.Total() <= spendable) return {};
    return ShortOfMoney(frozen.Total(), spendable);
}

Answer Engine::Insert(const OrderRequest& request, Instant now) {
    Answer answer = TakeRefusal();
    if (answer.code != 0) return answer;
    const ContractTerms* terms = TermsToday(request.contract);
    if (!terms) return {kRefused, "合约不存在：" + request.contract};
    Order order;
    order.id = state_.last_order + 1;
    order.session = state_.sessions;
    order.day = state_.day;
    order.time = now;
    order.exchange = terms->exchange;
    order.contract = request.contract;
    order.offset = request.offset;
    order.hedge = request.hedge;
    order.volume = request.volume;
    order.note = request.note;
    order.source = request.source;
    order.price_code = request.price_code;
    order.request = request.bytes;
    std::string reason = Prepare(request, *terms, order);
    if (!reason.empty()) return {kRefused, std::move(reason)};
    Accept(order, now);
    CheckSums();
    answer.order = order.id;
    return answer;
}

Price Engine::FreezeNow(const Order& order) const {
    const Quote* quote = LastQuote(order.contract);
    return quote ? FreezePrice(*quote, order.side, order.limit) : order.limit;
}

void Engine::Accept(const Order& order, Instant now) {
    Record(OrderAccepted{order});
    Match(order.id, now);
    if (state_.orders.at(order.id).IsWorking()) EndRest(order.id, now);
}

void Engine::Match(OrderId id, Instant now) {
    for (const Fill& fill : matcher_.Add(state_.orders.at(id))) Book(fill, now);
}

/// An order that does not rest ends with what it took when it arrived.
void Engine::EndRest(OrderId id, Instant now) {
    const Order& order = state_.orders.at(id);
    const std::string rest = Hands(order.Remaining());
    switch (order.kind) {
        case OrderKind::kLimit:
        case OrderKind::kOpponentBest:
        case OrderKind::kOwnBest: return;
        case OrderKind::kFillOrKill:
            EndOrder(id, OrderStatus::kCancelled, "不能全部成交" + rest + "，委托撤销", now);
            return;
        case OrderKind::kBestFiveThenLimit: break;
        default:
            EndOrder(id, OrderStatus::kCancelled, "剩余" + rest + "未能立即成交，自动撤销", now);
            return;
    }
    const Price limit = RestLimit(order);
    if (limit <= 0) {
        EndOrder(id, OrderStatus::kCancelled, "没有可转为限价的价格，剩余" + rest + "撤销", now);
        return;
    }
    // The own side's price may take more than the one at which the order came.
    const Fen needed = FrozenAt(order, limit).Total();
    const Fen there = Spendable() + order.frozen_margin + order.frozen_fee;
    if (order.opening > 0 && needed > there) {
        EndOrder(id, OrderStatus::kCancelled,
                 ShortOfMoney(needed, there) + "，剩余" + rest + "撤销", now);
        return;
    }
    GoOnAsLimit(id, limit);
    Match(id, now);
}

/// The rest waits at its own limit, else at the price of the last fill, else with the own side.
Price Engine::RestLimit(const Order& order) const {
    if (order.limit > 0) return order.limit;
    if (order.filled > 0) return state_.trades.back().price;
    const Quote* quote = LastQuote(order.contract);
    if (!quote) return 0;
    return order.side == Side::kBuy ? quote->bid[0].price : quote->ask[0].price;
}

Frozen Engine::FrozenAt(Order order, Price limit) const {
    order.limit = limit;
    const ContractTerms* terms = TermsToday(order.contract);
    return terms ? FreezeOf(state_, *terms, order, FreezeNow(order)) : Frozen{};
}

void Engine::GoOnAsLimit(OrderId id, Price limit) {
    const Frozen frozen = FrozenAt(state_.orders.at(id), limit);
    Record(OrderBecameLimit{id, limit, frozen.margin, frozen.fee});
}

void Engine::EndOrder(OrderId id, OrderStatus status, const std::string& remark, Instant now) {
    matcher_.Remove(state_.orders.at(id).contract, id);
    Record(OrderEnded{id, status, remark, now});
}

void Engine::ApplyPreset(Lot& lot) const {
    const auto preset = state_.presets.find(lot.exchange + "|" + lot.contract);
    if (preset == state_.presets.end() || !IsActiveStop(preset->second)) return;
    // Presets were once kept as they came.
    if (!IsFiniteStop(preset->second)) return;
    lot.has_stop = true;
    lot.stop.record = preset->second;
    lot.stop.for_good = stop_settings_.for_good;
    lot.stop.float_base = lot.open_price;
}

void Engine::OpenLot(const Order& order, const ContractTerms& terms, Price price,
                     std::int64_t volume, Lot& lot) const {
    lot.id = state_.last_lot + 1;
    lot.exchange = order.exchange;
    lot.contract = order.contract;
    lot.side = order.side;
    lot.hedge = order.hedge;
    lot.day = state_.day;
    lot.session = order.session;
    lot.unit = terms.unit;
    lot.volume = volume;
    lot.open_price = price;
    lot.hold_price = price;
    lot.margin = MarginOf(terms, price, terms.unit, volume);
    ApplyPreset(lot);
}

/// Closes what the order closes first; what is left of the fill opens.
std::int64_t Engine::CloseSlices(const ContractTerms& terms, std::int64_t volume, Price price,
                                 Order& rest, Trade& trade, OrderFilled& fact) const {
    while (volume > 0 && !rest.closing.empty()) {
        FrozenSlice& slice = rest.closing.front();
        const Lot& lot = state_.lots.at(slice.lot);
        const std::int64_t part = std::min(volume, slice.volume);
        fact.closed.push_back(CloseOne(lot, part, price));
        trade.volume += part;
        trade.fee += FeeOf(terms, ClosingFee(lot, state_.day), price, lot.unit, part);
        trade.realised += ProfitOf(lot.side, lot.unit, lot.open_price, price, part);
        volume -= part;
        slice.volume -= part;
        if (slice.volume == 0) rest.closing.erase(rest.closing.begin());
    }
    return volume;
}

void Engine::Book(const Fill& fill, Instant now) {
    const auto found = state_.orders.find(fill.order);
    const bool works = found != state_.orders.end() && found->second.IsWorking();
    assert(works && "only working orders fill");
    if (!works) return;
    const ContractTerms& terms = *TermsToday(found->second.contract);
    Order rest = found->second;
    OrderFilled fact;
    fact.order = rest.id;
    fact.volume = fill.volume;
    Trade closing = TradeOf(rest, fill, state_.day, now);
    closing.offset = ClosingOffset(rest);
    Trade opening = closing;
    opening.offset = '0';
    opening.volume = CloseSlices(terms, fill.volume, fill.price, rest, closing, fact);
    TradeId id = state_.last_trade;
    if (closing.volume > 0) {
        closing.id = ++id;
        fact.trades.push_back(closing);
    }
    if (opening.volume > 0) {
        opening.id = ++id;
        opening.fee = FeeOf(terms, FeeKind::kOpen, fill.price, terms.unit, opening.volume);
        OpenLot(rest, terms, fill.price, opening.volume, fact.opened);
        rest.opening -= opening.volume;
        fact.trades.push_back(opening);
    }
    for (const Trade& trade : fact.trades) fact.fee += trade.fee;
    const Price price = rest.limit > 0 ? rest.limit : FreezeNow(rest);
    const Frozen frozen = FreezeOf(state_, terms, rest, price);
    fact.frozen_margin = frozen.margin;
    fact.frozen_fee = frozen.fee;
    Record(fact);
    FollowFill(fact);
}

/// What is watched follows the lots.
void Engine::FollowFill(const OrderFilled& fact) {
    for (const OrderFilled::Closed& closed : fact.closed) {
        if (!state_.lots.contains(closed.lot)) stops_.Remove(closed.lot);
    }
    if (fact.opened.id != 0) WatchStop(fact.opened);
    if (!state_.orders.at(fact.order).IsWorking()) std::erase(stop_orders_, fact.order);
}

Answer Engine::Cancel(OrderId id, Instant now) {
    Answer answer = TakeRefusal();
    if (answer.code != 0) return answer;
    const std::string name = "委托" + std::to_string(id);
    const auto found = state_.orders.find(id);
    if (found == state_.orders.end()) return {kRefused, name + "不存在，不能撤单"};
    switch (found->second.status) {
        case OrderStatus::kFilled:
            return {kRefused, name + "已全部成交" + Hands(found->second.volume) + "，不能撤单"};
        case OrderStatus::kCancelled: return {kRefused, name + "已撤单，不能再撤"};
        case OrderStatus::kRejected: return {kRefused, name + "已被拒绝，不能撤单"};
        case OrderStatus::kWorking: break;
    }
    EndOrder(id, OrderStatus::kCancelled, "已撤单", now);
    std::erase(stop_orders_, id);
    CheckSums();
    answer.order = id;
    return answer;
}

}  // namespace papercore
