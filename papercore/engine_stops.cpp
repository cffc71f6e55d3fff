#include <algorithm>

#include "papercore/engine.h"
#include "papercore/funds.h"
#include "papercore/lot_stops.h"

// Strategies of the lots: what is set, and the orders that they send.

namespace papercore {
namespace {

constexpr char kNoNumbers[] = "止损止盈的数值无效";

bool IsProfit(StopRule rule) {
    return rule == StopRule::kRelativeProfit || rule == StopRule::kAbsoluteProfit;
}

}  // namespace

Answer Engine::SetPreset(const std::string& exchange, const std::string& contract,
                         const CPresetStop& record) {
    if (!IsFiniteStop(record)) return {kRefused, kNoNumbers, 0};
    Record(PresetSet{exchange + "|" + contract, record});
    return {};
}

Answer Engine::SetLotStop(LotId id, const CPresetStop& record) {
    Answer answer = TakeRefusal();
    if (answer.code != 0) return answer;
    const auto found = state_.lots.find(id);
    if (found == state_.lots.end()) {
        return {kRefused, "持仓明细" + std::to_string(id) + "不存在，不能设置止损止盈"};
    }
    if (!IsFiniteStop(record)) return {kRefused, kNoNumbers, 0};
    LotStopSet fact;
    fact.lot = id;
    fact.active = IsActiveStop(record);
    if (fact.active) {
        fact.stop.record = record;
        fact.stop.for_good = stop_settings_.for_good;
        fact.stop.float_base = found->second.open_price;
    }
    Record(fact);
    stops_.Remove(id);
    WatchStop(found->second);
    return answer;
}

void Engine::WakeStops() {
    StopsWoken fact;
    for (const auto& [id, lot] : state_.lots) {
        if (lot.has_stop && lot.stop.asleep && !lot.stop.triggered) fact.lots.push_back(id);
    }
    if (fact.lots.empty()) return;
    Record(fact);
    for (const LotId id : fact.lots) WatchStop(state_.lots.at(id));
}

void Engine::WatchStop(const Lot& lot) {
    if (!lot.has_stop || lot.stop.asleep || lot.stop.triggered) return;
    const ContractTerms* terms = TermsToday(lot.contract);
    if (terms) stops_.Set(lot, terms->tick);
}

void Engine::EvaluateStops(const Quote& quote) {
    fires_.clear();
    moves_.clear();
    stops_.OnQuote(quote, stop_settings_, fires_, moves_);
    for (const BaseMove& move : moves_) Record(FloatBaseMoved{move.lot, move.base});
    for (const StopFire& fire : fires_) Fire(fire, quote);
}

/// That a strategy fired is kept together with the order that it sends; its other rules are off.
void Engine::Fire(const StopFire& fire, const Quote& quote) {
    const Lot& lot = state_.lots.at(fire.lot);
    Record(StopTriggered{fire.lot, fire.rule, fire.watched, quote.time});
    const Order order = StopOrder(lot, fire, quote);
    if (order.closing.empty() || order.limit <= 0) {
        Record(OrderAccepted{order});
        const char* reason =
            order.limit <= 0 ? "行情没有可用的委托价格" : "持仓已全部被平仓委托冻结，可平0手";
        Record(OrderEnded{order.id, OrderStatus::kRejected, reason, quote.time});
        return;
    }
    stop_orders_.push_back(order.id);
    Accept(order, quote.time);
}

/// What other orders close already is left to them.
Order Engine::StopOrder(const Lot& lot, const StopFire& fire, const Quote& quote) const {
    Order order;
    order.id = state_.last_order + 1;
    order.session = kCoreSession;
    order.day = state_.day;
    order.time = quote.time;
    order.exchange = lot.exchange;
    order.contract = lot.contract;
    order.side = Opposite(lot.side);
    order.offset = '1';
    order.hedge = lot.hedge;
    order.source = IsProfit(fire.rule) ? kSourceTakeProfit : kSourceStopLoss;
    order.note = IsProfit(fire.rule) ? "自动止盈" : "自动止损";
    order.tied_lot = lot.id;
    order.limit = StopPrice(order, quote);
    // Nobody is there to trade with: the order waits where the market was last.
    if (order.limit <= 0) order.limit = quote.last;
    const std::int64_t closable = lot.volume - lot.frozen;
    order.volume = closable > 0 ? closable : lot.volume;
    if (closable > 0 && order.limit > 0) {
        order.closing.push_back({lot.id, closable});
    } else {
        order.opening = order.volume;
    }
    const ContractTerms* terms = TermsToday(lot.contract);
    if (terms && !order.closing.empty()) {
        const Frozen frozen =
            FreezeOf(state_, *terms, order, FreezePrice(quote, order.side, order.limit));
        order.frozen_fee = frozen.fee;
    }
    return order;
}

/// The price that the account's settings name for a stop's order; 0 where the market doesn't show
/// it.
Price Engine::StopPrice(const Order& order, const Quote& quote) const {
    const ContractTerms* terms = TermsToday(order.contract);
    if (!terms) return 0;
    const PriceLimits limits = LimitsOf(*terms, quote);
    Quote limited = quote;
    limited.lower_limit = limits.lower;
    limited.upper_limit = limits.upper;
    const bool profit = order.source == kSourceTakeProfit;
    return StopOrderPrice(
        limited, *terms, profit ? stop_settings_.profit_order : stop_settings_.stop_order,
        profit ? stop_settings_.profit_adjust : stop_settings_.stop_adjust, order.side);
}

/// An order that the market ran away from is sent after it; it never goes back.
void Engine::Chase(const Quote& quote) {
    const std::vector<OrderId> working = stop_orders_;
    for (const OrderId id : working) {
        const Order& order = state_.orders.at(id);
        if (order.contract != quote.contract) continue;
        const Price price = StopPrice(order, quote);
        const bool away = order.side == Side::kBuy ? price > order.limit : price < order.limit;
        if (price <= 0 || !away) continue;
        GoOnAsLimit(id, price);
        Match(id, quote.time);
    }
}

}  // namespace papercore
