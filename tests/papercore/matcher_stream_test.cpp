#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/papercore/matcher_table.h"
#include "tests/papercore/random_choices.h"
#include "tests/papercore/slow_matcher.h"

// Random streams of updates, orders and cancels: the matcher against the plainest one, and what has
// to hold whatever comes.

namespace papercore_tests {
namespace {

using papercore::Fill;
using papercore::Level;
using papercore::Matcher;
using papercore::Order;
using papercore::OrderId;
using papercore::OrderKind;
using papercore::Price;
using papercore::Quote;
using papercore::ShrinkRule;
using papercore::Side;

/// More streams than a test run takes: PAPERCORE_STREAMS.
std::int64_t Streams(std::int64_t usual) { return Setting("PAPERCORE_STREAMS", usual); }

constexpr Price kTick = 100;

class Stream {
public:
    explicit Stream(unsigned seed) : random_(seed), middle_(Yuan(300)) {
        width_ = Pick(1, 5);
        calm_ = Pick(1, 6);
        rule_ = static_cast<ShrinkRule>(Pick(0, 2));
        quote_.contract = "Au(T+D)";
        quote_.trading_day = 20240301;
        Redraw();
    }

    ShrinkRule Rule() const { return rule_; }
    int Pick(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }

    const Quote& Next() {
        quote_.trade_volume = 0;
        if (Pick(0, 2) == 0) {
            quote_.trade_volume = Pick(1, 12);
            quote_.trade_price = middle_ + Pick(-4, 4) * kTick;
        }
        if (Pick(1, calm_) > 1) {
            Nudge(Pick(0, 1) ? quote_.bid : quote_.ask);
        } else {
            middle_ += Pick(-3, 3) * kTick;
            Redraw();
        }
        return quote_;
    }

    Order NextOrder() {
        Order order;
        order.id = ++last_;
        order.contract = "Au(T+D)";
        order.side = Pick(0, 1) ? Side::kBuy : Side::kSell;
        order.volume = Pick(1, 15);
        order.limit = middle_ + Pick(-7, 7) * kTick;
        const int kind = Pick(0, 9);
        if (kind == 0) order.kind = OrderKind::kFillOrKill;
        if (kind == 1) order.kind = OrderKind::kFillAndKill;
        return order;
    }
    OrderId SomeOrder() { return Pick(1, std::max(last_, 1)); }
    OrderId Last() const { return last_; }

private:
    void Nudge(std::array<Level, papercore::kLevels>& levels) {
        Level& level = levels.at(static_cast<std::size_t>(Pick(0, width_ - 1)));
        if (level.price > 0) level.volume = Pick(1, 9);
    }
    void Redraw() {
        quote_.bid = {};
        quote_.ask = {};
        Price bid = middle_ - Pick(0, 1) * kTick;
        const bool met = Pick(0, 15) == 0;  // locked or crossed
        Price ask = bid + (met ? Pick(-3, 0) : Pick(1, 3)) * kTick;
        const bool no_bids = Pick(0, 30) == 0;
        const bool no_asks = Pick(0, 30) == 0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(width_); ++i) {
            if (!no_bids) quote_.bid.at(i) = {bid, Pick(1, 9)};
            if (!no_asks) quote_.ask.at(i) = {ask, Pick(1, 9)};
            bid -= Pick(1, 2) * kTick;
            ask += Pick(1, 2) * kTick;
        }
    }

    std::mt19937 random_;
    Quote quote_;
    Price middle_;
    OrderId last_ = 0;
    int width_ = 5;
    int calm_ = 1;
    ShrinkRule rule_ = ShrinkRule::kProRata;
};

/// Plays a stream to both; false at the first difference.
bool AgreesOn(unsigned seed) {
    Stream stream(seed);
    Matcher matcher(stream.Rule());
    SlowMatcher slow(stream.Rule());
    for (int step = 0; step < 60; ++step) {
        const int what = stream.Pick(0, 9);
        std::vector<Fill> fast_fills;
        std::vector<Fill> slow_fills;
        if (what < 3) {
            const Order order = stream.NextOrder();
            fast_fills = matcher.Add(order);
            slow_fills = slow.Add(order);
        } else if (what == 3) {
            const OrderId order = stream.SomeOrder();
            matcher.Remove("Au(T+D)", order);
            slow.Remove(order);
        } else {
            const Quote& quote = stream.Next();
            fast_fills = matcher.OnQuote(quote);
            slow_fills = slow.OnQuote(quote);
        }
        EXPECT_EQ(MatcherTable::Words(fast_fills), MatcherTable::Words(slow_fills))
            << "stream " << seed << " step " << step;
        for (OrderId order = 1; order <= stream.Last(); ++order) {
            EXPECT_EQ(matcher.QueueAhead(order), slow.Ahead(order))
                << "order " << order << ", stream " << seed << " step " << step;
        }
        if (testing::Test::HasFailure()) return false;
    }
    return true;
}

TEST(MatcherStreams, TheIndexedMatcherDoesWhatThePlainestOneDoes) {
    for (std::int64_t seed = 0; seed < Streams(1500); ++seed) {
        if (!AgreesOn(static_cast<unsigned>(seed))) return;
    }
}

/// What any order may count on, whatever the market does.
class Promises {
public:
    void Placed(const Order& order) { orders_[order.id] = order; }
    void Cancelled(OrderId order) { orders_.erase(order); }
    void Filled(const std::vector<Fill>& fills, const Quote& quote) {
        for (const Fill& fill : fills) {
            ASSERT_TRUE(orders_.contains(fill.order)) << "after its end";
            Order& order = orders_.at(fill.order);
            ASSERT_GT(fill.volume, 0);
            ASSERT_LE(fill.volume, order.Remaining());
            order.filled += fill.volume;
            if (order.side == Side::kBuy) {
                ASSERT_LE(fill.price, order.limit);
            } else {
                ASSERT_GE(fill.price, order.limit);
            }
            ASSERT_TRUE(IsInBook(order, quote)) << "a fill outside the book";
            if (order.Remaining() == 0) orders_.erase(fill.order);
        }
    }

private:
    /// Something of the update is at the order's limit or better.
    static bool IsInBook(const Order& order, const Quote& quote) {
        const auto suits = [&order](Price price) {
            if (price <= 0) return false;
            return order.side == Side::kBuy ? price <= order.limit : price >= order.limit;
        };
        const auto& against = order.side == Side::kBuy ? quote.ask : quote.bid;
        return suits(against[0].price) || (quote.trade_volume > 0 && suits(quote.trade_price));
    }

    std::map<OrderId, Order> orders_;
};

TEST(MatcherStreams, NoFillIsLargerWorseOrLaterThanItsOrderAllows) {
    for (std::int64_t seed = 0; seed < Streams(500); ++seed) {
        Stream stream(static_cast<unsigned>(seed) + 1'000'000);
        Matcher matcher(stream.Rule());
        Promises promises;
        Quote quote = stream.Next();
        matcher.OnQuote(quote);
        for (int step = 0; step < 100 && !HasFatalFailure(); ++step) {
            const int what = stream.Pick(0, 9);
            if (what < 3) {
                const Order order = stream.NextOrder();
                promises.Placed(order);
                promises.Filled(matcher.Add(order), quote);
                if (order.kind != OrderKind::kLimit) promises.Cancelled(order.id);
            } else if (what == 3) {
                const OrderId order = stream.SomeOrder();
                promises.Cancelled(order);
                matcher.Remove("Au(T+D)", order);
            } else {
                quote = stream.Next();
                promises.Filled(matcher.OnQuote(quote), quote);
            }
        }
        ASSERT_FALSE(HasFatalFailure()) << "stream " << seed;
    }
}

TEST(MatcherStreams, OneLevelNeverGivesMoreThanItShows) {
    for (std::int64_t seed = 0; seed < Streams(500); ++seed) {
        Stream stream(static_cast<unsigned>(seed) + 2'000'000);
        Matcher matcher(stream.Rule());
        const Quote quote = stream.Next();
        matcher.OnQuote(quote);
        std::map<std::pair<Side, Price>, std::int64_t> taken;
        for (int i = 0; i < 40; ++i) {
            Order order = stream.NextOrder();
            for (const Fill& fill : matcher.Add(order)) {
                taken[{order.side, fill.price}] += fill.volume;
            }
        }
        for (const Level& level : quote.ask) {
            EXPECT_LE((taken[{Side::kBuy, level.price}]), level.volume);
        }
        for (const Level& level : quote.bid) {
            EXPECT_LE((taken[{Side::kSell, level.price}]), level.volume);
        }
    }
}

}  // namespace
}  // namespace papercore_tests
