#include <gtest/gtest.h>

#include "tests/papercore/matcher_table.h"

// Markets that show a bid at the ask (locked) or above it (crossed), as recordings do.

namespace papercore_tests {
namespace {

using papercore::OrderKind;

Market Locked() { return Market().Bid(300.00, 4).Bid(299.99, 6).Ask(300.00, 5).Ask(300.01, 7); }
Market Crossed() { return Market().Bid(300.02, 4).Bid(300.00, 6).Ask(299.98, 5).Ask(300.01, 7); }

TEST(MatcherCrossed, AnArrivingOrderTakesTheOtherSideAsEver) {
    struct Case {
        Market market;
        bool buys;
        std::int64_t volume;
        double limit;
        const char* taken;
        std::int64_t ahead;  // of what is left; -1: nothing waits, or not known
    };
    const Case cases[] = {
        {Locked(), true, 5, 300.00, "1: 5@300.00", -1},
        {Locked(), true, 9, 300.00, "1: 5@300.00", 4},
        {Locked(), true, 9, 299.99, "", 6},
        {Locked(), false, 9, 300.00, "1: 4@300.00", 5},
        {Crossed(), true, 3, 300.02, "1: 3@299.98", -1},
        {Crossed(), true, 20, 300.02, "1: 5@299.98, 1: 7@300.01", 4},
        {Crossed(), true, 9, 299.99, "1: 5@299.98", -1},
        {Crossed(), true, 9, 299.97, "", -1},
        {Crossed(), false, 3, 299.98, "1: 3@300.02", -1},
        {Crossed(), false, 20, 300.00, "1: 4@300.02, 1: 6@300.00", 0},
        {Crossed(), false, 20, 300.03, "", -1},
    };
    for (const Case& each : cases) {
        MatcherTable table;
        table.Show(each.market);
        EXPECT_EQ(each.taken, each.buys ? table.Buy(each.volume, each.limit)
                                        : table.Sell(each.volume, each.limit));
        EXPECT_EQ(each.ahead, table.Ahead(1)) << each.taken << " at " << each.limit;
    }
}

TEST(MatcherCrossed, WaitingOrdersOfBothSidesFillAtTheirLimitsBuyersFirst) {
    struct Case {
        const char* what;
        Market crossing;
        const char* filled;
    };
    const Case cases[] = {
        {"locked between them", Market().Bid(300.00, 4).Ask(300.00, 5), ""},
        {"locked at the buyer's price: what is shown", Market().Bid(299.95, 9).Ask(299.95, 2),
         "1: 2@299.95"},
        {"locked at the seller's price", Market().Bid(300.05, 3).Ask(300.05, 9), "2: 3@300.05"},
        {"crossed through both: whole", Market().Bid(300.06, 1).Ask(299.94, 1),
         "1: 8@299.95, 2: 8@300.05"},
        {"crossed up to both: what is shown", Market().Bid(300.05, 3).Ask(299.95, 2),
         "1: 2@299.95, 2: 3@300.05"},
        {"a trade in a crossed market is given once",
         Market().Bid(300.00, 1).Ask(299.99, 1).Traded(299.95, 30), "1: 8@299.95"},
    };
    for (const Case& each : cases) {
        MatcherTable table;
        table.Show(Market().Bid(299.90, 5).Ask(300.10, 5));
        EXPECT_EQ("", table.Buy(8, 299.95));
        EXPECT_EQ("", table.Sell(8, 300.05));
        EXPECT_EQ(each.filled, table.Show(each.crossing)) << each.what;
    }
}

TEST(MatcherCrossed, ACrossThatLastsGivesNoMoreThanIsShownAnew) {
    MatcherTable table;
    table.Show(Crossed());
    EXPECT_EQ("1: 5@299.98", table.Buy(50, 300.00));
    EXPECT_EQ("", table.Show(Crossed()));
    EXPECT_EQ("", table.Show(Crossed()));
    const Market renewed = Market().Bid(300.02, 4).Bid(300.00, 6).Ask(299.98, 6).Ask(300.01, 7);
    EXPECT_EQ("1: 6@300.00", table.Show(renewed));
    const Market apart = Market().Bid(299.99, 4).Ask(300.01, 7);
    EXPECT_EQ("", table.Show(apart));
    EXPECT_EQ("1: 39@300.00", table.Show(Crossed())) << "a cross anew goes through the price";
}

TEST(MatcherCrossed, KindsThatDontWaitTakeOnlyWhatIsShown) {
    MatcherTable table;
    table.Show(Crossed());
    EXPECT_EQ("", table.Buy(13, 300.01, OrderKind::kFillOrKill));
    EXPECT_EQ("2: 5@299.98, 2: 7@300.01", table.Buy(12, 300.01, OrderKind::kFillOrKill));
    EXPECT_EQ("3: 4@300.02, 3: 6@300.00", table.Sell(99, 0, OrderKind::kMarket));
    EXPECT_EQ("", table.Sell(99, 0, OrderKind::kMarket));
}

}  // namespace
}  // namespace papercore_tests
