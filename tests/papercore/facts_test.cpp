#include "papercore/facts.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/papercore/scenario.h"

namespace papercore_tests {
namespace {

Lot LongLot(LotId id, std::int64_t volume) {
    Lot lot;
    lot.id = id;
    lot.contract = "Au(T+D)";
    lot.unit = 1000;
    lot.volume = volume;
    lot.open_price = lot.hold_price = 3'000'000;
    lot.margin = 4'800'000 * volume;
    return lot;
}

Order CloseOrder(OrderId id, LotId lot, std::int64_t volume) {
    Order order;
    order.id = id;
    order.contract = "Au(T+D)";
    order.side = Side::kSell;
    order.offset = '1';
    order.limit = 3'000'000;
    order.volume = volume;
    order.closing = {{lot, volume}};
    order.frozen_fee = 100;
    return order;
}

OrderFilled CloseFill(OrderId order, LotId lot, std::int64_t volume) {
    OrderFilled fill;
    fill.order = order;
    fill.volume = volume;
    fill.closed = {{lot, volume, 0, 4'800'000 * volume}};
    Trade trade;
    trade.id = 1;
    trade.order = order;
    trade.volume = volume;
    fill.trades = {trade};
    return fill;
}

/// Five lots long, two of them frozen by order 1.
State Prepared() {
    State state;
    EXPECT_TRUE(Apply(state, AccountCreated{{"10001", "s", "h"}, 100'000'000}));
    state.lots.emplace(1, LongLot(1, 5));
    state.last_lot = 1;
    EXPECT_TRUE(Apply(state, OrderAccepted{CloseOrder(1, 1, 2)}));
    return state;
}

TEST(Facts, RefuseWhatCannotFollowAndLeaveTheStateAsItWas) {
    const auto order = [](const std::function<void(Order&)>& change) {
        Order changed = CloseOrder(2, 1, 3);
        change(changed);
        return Fact(OrderAccepted{changed});
    };
    const auto fill = [](const std::function<void(OrderFilled&)>& change) {
        OrderFilled changed = CloseFill(1, 1, 2);
        change(changed);
        return Fact(changed);
    };
    const struct {
        const char* what;
        Fact fact;
    } cases[] = {
        {"a second account", AccountCreated{{"2", "s", "h"}, 1}},
        {"a session again", SessionOpened{0, 0}},
        {"an order number again", order([](Order& o) { o.id = 1; })},
        {"an order of no lots", order([](Order& o) { o.volume = 0; })},
        {"more than is free", order([](Order& o) { o.volume = o.closing[0].volume = 4; })},
        {"an unknown lot", order([](Order& o) { o.closing[0].lot = 7; })},
        {"a lot of its own side", order([](Order& o) { o.side = Side::kBuy; })},
        {"a lot of another contract", order([](Order& o) { o.contract = "Ag(T+D)"; })},
        {"a lot twice", order([](Order& o) {
             o.closing = {{1, 1}, {1, 2}};
         })},
        {"an undivided order", order([](Order& o) { o.volume = 9; })},
        {"less than nothing frozen", order([](Order& o) { o.frozen_fee = -1; })},
        {"the end of an unknown order", OrderEnded{9, OrderStatus::kCancelled, "", 0}},
        {"an end that is none", OrderEnded{1, OrderStatus::kWorking, "", 0}},
        {"a limit of nothing", OrderBecameLimit{1, 0, 0, 0}},
        {"a fill of an unknown order", fill([](OrderFilled& f) { f.order = 9; })},
        {"a fill of nothing", fill([](OrderFilled& f) { f.volume = 0; })},
        {"a fill beyond the order",
         fill([](OrderFilled& f) { f.volume = f.closed[0].volume = 3; })},
        {"a fill that closes less", fill([](OrderFilled& f) { f.closed[0].volume = 1; })},
        {"a fill of another lot", fill([](OrderFilled& f) { f.closed[0].lot = 2; })},
        {"a fill that opens what wasn't asked", fill([](OrderFilled& f) {
             f.closed.clear();
             f.opened = LongLot(2, 2);
         })},
        {"more margin than there is",
         fill([](OrderFilled& f) { f.closed[0].margin_released = 100'000'000; })},
        {"a fill that skips a lot of its order", fill([](OrderFilled& f) {
             f.closed = {{1, 1, 0, 0}, {1, 1, 0, 0}};
         })},
        {"a fee that no account can pay",
         fill([](OrderFilled& f) { f.trades[0].fee = 1LL << 60; })},
        {"more money than there is", MoneyMoved{-(1LL << 60), ""}},
        {"a trade number again", fill([](OrderFilled& f) { f.trades[0].id = 0; })},
        {"a strategy of an unknown lot", LotStopSet{9, true, {}}},
        {"a trigger without a strategy", StopTriggered{1, StopRule::kRelativeStop, 0, 0}},
        {"a base without a strategy", FloatBaseMoved{1, 5}},
        {"an unknown lot woken", StopsWoken{{1, 9}}},
        {"a day's end over a working order", DaySettled{20260105, 20260106, {}, {}, {}, {}}},
        {"a day begun over a working order", DayBegun{20260106}},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.what);
        State state = Prepared();
        const std::string before = Figures(state);
        EXPECT_FALSE(Apply(state, one.fact));
        EXPECT_EQ(before, Figures(state));
    }
}

TEST(Facts, CloseAndFreeLots) {
    State state = Prepared();
    EXPECT_EQ(2, state.lots.at(1).frozen);
    ASSERT_TRUE(Apply(state, CloseFill(1, 1, 2)));
    EXPECT_EQ(3, state.lots.at(1).volume);
    EXPECT_EQ(0, state.lots.at(1).frozen);
    EXPECT_EQ(3 * 4'800'000, state.lots.at(1).margin);
    EXPECT_EQ(OrderStatus::kFilled, state.orders.at(1).status);
    ASSERT_TRUE(Apply(state, OrderAccepted{CloseOrder(2, 1, 3)}));
    OrderFilled last = CloseFill(2, 1, 3);
    last.trades[0].id = 2;
    ASSERT_TRUE(Apply(state, last));
    EXPECT_TRUE(state.lots.empty());
}

TEST(Facts, FreeTheLotsOfAnOrderThatEnds) {
    State state = Prepared();
    ASSERT_TRUE(Apply(state, OrderEnded{1, OrderStatus::kCancelled, "x", 0}));
    EXPECT_EQ(0, state.lots.at(1).frozen);
    EXPECT_EQ(0, state.orders.at(1).frozen_fee);
    EXPECT_EQ("x", state.orders.at(1).remark);
}

TEST(Facts, FillTheFirstLotsOfAnOrderFirst) {
    State state = Prepared();
    state.lots.emplace(2, LongLot(2, 4));
    Order order = CloseOrder(2, 1, 5);
    order.closing = {{1, 3}, {2, 2}};
    ASSERT_TRUE(Apply(state, OrderAccepted{order}));
    OrderFilled fill = CloseFill(2, 1, 3);
    fill.closed = {{1, 2, 0, 0}, {2, 1, 0, 0}};
    EXPECT_FALSE(Apply(state, fill));
    fill.closed = {{2, 3, 0, 0}};
    EXPECT_FALSE(Apply(state, fill));
    fill.volume = 4;
    fill.closed = {{1, 3, 0, 0}, {2, 1, 0, 0}};
    ASSERT_TRUE(Apply(state, fill));
    ASSERT_EQ(1U, state.orders.at(2).closing.size());
    EXPECT_EQ(2, state.orders.at(2).closing[0].lot);
    EXPECT_EQ(1, state.orders.at(2).closing[0].volume);
}

TEST(Facts, MoveMoneyBothWays) {
    State state = Prepared();
    ASSERT_TRUE(Apply(state, MoneyMoved{500, "in"}));
    ASSERT_TRUE(Apply(state, MoneyMoved{-200, "out"}));
    EXPECT_EQ(100'000'500, state.ledger.deposits);
    EXPECT_EQ(200, state.ledger.withdrawals);
    EXPECT_EQ(100'000'300, state.ledger.Cash());
}

}  // namespace
}  // namespace papercore_tests
