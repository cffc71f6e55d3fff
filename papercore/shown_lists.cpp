#include "papercore/shown_lists.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <variant>

#include "papercore/records.h"

namespace papercore {
namespace {

template <class Record>
Shared<Record> Share(const std::vector<Record>& records) {
    return std::make_shared<const RecordList<Record>>(records);
}

struct FactChanges {
    const State& state;  ///< before the fact
    Changes& changes;

    void Order(OrderId id) const {
        changes.orders.push_back(id);
        changes.money = true;
    }
    void operator()(const OrderAccepted& fact) const {
        Order(fact.order.id);
        changes.lots = changes.lots || !fact.order.closing.empty();
    }
    void operator()(const OrderEnded& fact) const {
        Order(fact.order);
        const auto order = state.orders.find(fact.order);
        const bool froze = order != state.orders.end() && !order->second.closing.empty();
        changes.lots = changes.lots || froze;
    }
    void operator()(const OrderBecameLimit& fact) const { Order(fact.order); }
    void operator()(const OrderFilled& fact) const {
        Order(fact.order);
        changes.lots = true;
        changes.trades = true;
    }
    void operator()(const DaySettled&) const { changes.day = true; }
    void operator()(const DayBegun&) const { changes.day = true; }
    void operator()(const MoneyMoved&) const { changes.money = true; }
    void operator()(const LotStopSet&) const { changes.lots = true; }
    void operator()(const StopTriggered&) const { changes.lots = true; }
    void operator()(const FloatBaseMoved&) const { changes.bases = true; }
    void operator()(const PresetSet&) const { changes.settings = true; }
    void operator()(const TradeParamSet&) const { changes.settings = true; }
    template <class Other>
    void operator()(const Other&) const {}
};

}  // namespace

void Changes::Add(const State& before, const Fact& fact) {
    std::visit(FactChanges{before, *this}, fact);
}

Lists ShownLists::Make(const State& state) {
    shown_.contracts = Share(ContractRecords(terms_, state.day));
    orders_ = {};
    ids_.clear();
    for (const auto& [id, order] : state.orders) UpdateOrder(order);
    ShowOrders();
    trades_ = {};
    ShowTrades(state);
    ShowLots(state);
    return shown_;
}

Lists ShownLists::Update(const State& state, const Changes& changes) {
    if (changes.day) return Make(state);
    for (const OrderId id : changes.orders) {
        const auto order = state.orders.find(id);
        if (order != state.orders.end()) UpdateOrder(order->second);
    }
    if (!changes.orders.empty()) ShowOrders();
    if (changes.trades) ShowTrades(state);
    if (changes.lots || changes.bases) ShowLots(state);
    return shown_;
}

// Numbers rise, so a new order is the last one.
void ShownLists::UpdateOrder(const Order& order) {
    const auto found = std::ranges::lower_bound(ids_, order.id);
    if (found != ids_.end()) {
        orders_.Set(static_cast<std::size_t>(found - ids_.begin()), RecordOf(order));
        return;
    }
    ids_.push_back(order.id);
    orders_.Add(RecordOf(order));
}

void ShownLists::ShowOrders() {
    shown_.orders = std::make_shared<const RecordList<CZebOrder>>(orders_);
}

void ShownLists::ShowTrades(const State& state) {
    while (trades_.size() < state.trades.size()) {
        trades_.Add(RecordOf(state.trades[trades_.size()]));
    }
    shown_.trades = std::make_shared<const RecordList<CZebTrade>>(trades_);
}

void ShownLists::ShowLots(const State& state) {
    shown_.positions = Share(PositionRecords(state));
    shown_.lots = Share(LotRecords(state));
}

}  // namespace papercore
