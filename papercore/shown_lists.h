#pragma once

#include <vector>

#include "papercore/contract_terms.h"
#include "papercore/facts.h"
#include "papercore/published.h"

namespace papercore {

/// What some facts change of what the front end sees.
struct Changes {
    std::vector<OrderId> orders;
    bool trades = false;
    bool lots = false;
    bool money = false;
    bool day = false;       ///< everything is another
    bool bases = false;     ///< best prices, which the lots show
    bool settings = false;  ///< what is set by the user

    /// Notes a fact; `before` is the state that it is applied to.
    void Add(const State& before, const Fact& fact);
};

/// The lists, brought up to date by what changed alone: a busy day has thousands of orders, and
/// each of its events is told after its lists.
class ShownLists {
public:
    explicit ShownLists(const TermsTable& terms) : terms_(terms) {}

    Lists Make(const State& state);
    Lists Update(const State& state, const Changes& changes);

private:
    void UpdateOrder(const Order& order);
    void ShowOrders();
    void ShowTrades(const State& state);
    void ShowLots(const State& state);

    const TermsTable& terms_;
    RecordList<CZebOrder> orders_;
    std::vector<OrderId> ids_;  ///< of the orders
    RecordList<CZebTrade> trades_;
    Lists shown_;
};

}  // namespace papercore
