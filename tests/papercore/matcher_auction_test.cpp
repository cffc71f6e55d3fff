#include <gtest/gtest.h>

#include "papercore/auction.h"
#include "tests/papercore/matcher_table.h"

namespace papercore_tests {
namespace {

using papercore::Interest;
using papercore::OrderKind;
using papercore::Side;
using papercore::Uncross;

Interest Buys(double price, std::int64_t volume, papercore::OrderId order = 0) {
    return {Side::kBuy, Yuan(price), volume, order};
}

Interest Sells(double price, std::int64_t volume, papercore::OrderId order = 0) {
    return {Side::kSell, Yuan(price), volume, order};
}

TEST(Auction, ThePriceIsThatOfMostVolumeThenSmallestRemainder) {
    struct Case {
        std::vector<Interest> interests;
        double reference;
        double price;
        std::int64_t volume;
    };
    const Case cases[] = {
        {{}, 0, 0, 0},
        {{Buys(299, 5)}, 0, 0, 0},
        {{Buys(299, 5), Sells(300, 5)}, 0, 0, 0},
        {{Buys(301, 5), Sells(299, 8)}, 0, 299, 5},  // alike: the lower one
        {{Buys(301, 5), Sells(299, 8)}, 302, 301, 5},
        {{Buys(302, 4), Buys(300, 6), Sells(299, 3), Sells(300, 9)}, 0, 300, 10},
        {{Buys(302, 4), Buys(300, 6), Sells(300, 4), Sells(301, 1)}, 0, 301, 4},
        {{Buys(302, 4), Sells(300, 4), Sells(301, 1), Buys(300, 9)}, 303, 302, 4},
    };
    for (const Case& row : cases) {
        const papercore::AuctionResult result = Uncross(row.interests, Yuan(row.reference));
        EXPECT_EQ(result.price, Yuan(row.price));
        EXPECT_EQ(result.volume, row.volume);
        EXPECT_TRUE(result.fills.empty());
    }
}

TEST(Auction, BetterPricesAreServedFirstAndTheMarketBeforeOwnOrders) {
    struct Case {
        std::vector<Interest> interests;
        const char* fills;
    };
    const Case cases[] = {
        {{Sells(300, 5), Buys(301, 9, 1)}, "1: 5@300.00"},
        {{Sells(300, 5), Buys(300, 4), Buys(300, 9, 1)}, "1: 1@300.00"},
        {{Sells(300, 5), Buys(300, 4), Buys(300.01, 2, 2), Buys(300, 9, 1)}, "2: 2@300.00"},
        {{Sells(300, 5), Buys(300, 3, 1), Buys(300, 3, 2)}, "1: 3@300.00, 2: 2@300.00"},
        {{Buys(300, 5), Sells(299, 2, 7), Sells(298, 2, 8)}, "8: 2@300.00, 7: 2@300.00"},
        {{Buys(300, 5, 1), Sells(300, 5, 2)}, ""},
        {{Buys(300, 5, 1), Sells(300, 5, 2), Sells(300, 3)}, "1: 3@300.00"},
    };
    for (const Case& row : cases) {
        EXPECT_EQ(MatcherTable::Words(Uncross(row.interests, Yuan(300)).fills), row.fills);
    }
}

TEST(Auction, OwnOrdersOnBothSidesShareWhatTheMarketHas) {
    const auto result =
        Uncross({Buys(301, 10, 1), Sells(299, 10, 2), Buys(300, 4), Sells(300, 3)}, Yuan(300));
    EXPECT_EQ(result.price, Yuan(300));
    EXPECT_EQ(result.volume, 7);
    EXPECT_EQ(MatcherTable::Words(result.fills), "1: 3@300.00, 2: 4@300.00");
}

TEST(MatcherAuction, OrdersAreCollectedAndUncrossedAgainstWhatTheAuctionShowed) {
    MatcherTable table;
    table.Show(Market().Auction());
    EXPECT_EQ(table.Buy(4, 301.00), "");
    EXPECT_EQ(table.Sell(2, 299.00), "");
    EXPECT_EQ(table.Buy(3, 0, OrderKind::kMarket), "");
    EXPECT_EQ(table.Show(Market().Auction().Bid(300.00, 8).Ask(300.00, 5)), "");
    EXPECT_EQ(table.Show(Market().Closed()), "");
    EXPECT_EQ(table.Show(Market().Bid(299.98, 1).Ask(300.02, 1)), "1: 4@300.00, 2: 2@300.00");
}

TEST(MatcherAuction, WithoutAShownBookTheOpeningTradeIsTheMarket) {
    MatcherTable table;
    table.Show(Market().Auction());
    table.Buy(4, 300.50);
    table.Sell(9, 300.10);
    table.Buy(9, 300.00);
    EXPECT_EQ(table.Show(Market().Traded(300.20, 3).Bid(300.15, 5).Ask(300.25, 5)),
              "1: 3@300.20, 2: 3@300.20, 1: 1@300.25, 2: 5@300.15");
    EXPECT_EQ(table.Ahead(2), 0);
    EXPECT_EQ(table.Ahead(3), -1);
}

TEST(MatcherAuction, WhatIsLeftArrivesWithTheFirstContinuousUpdate) {
    MatcherTable table;
    table.Show(Market().Ask(300.00, 5));
    table.Show(Market().Auction());
    table.Buy(4, 300.00);
    table.Buy(4, 300.01);
    table.Buy(1, 299.98);
    EXPECT_EQ(table.Show(Market().Ask(300.00, 5).Ask(300.01, 1).Bid(299.98, 6)),
              "2: 4@300.00, 1: 1@300.00");
    EXPECT_EQ(table.Ahead(3), 6);
    EXPECT_EQ(table.Show(Market().Ask(300.00, 5).Ask(300.01, 1).Bid(299.98, 6)), "");
}

TEST(MatcherAuction, AnOrderThatWasCancelledInTheAuctionIsNotUncrossed) {
    MatcherTable table;
    table.Show(Market().Auction());
    table.Buy(4, 301.00);
    table.Cancel(1);
    EXPECT_EQ(table.Show(Market().Traded(300.00, 5)), "");
}

}  // namespace
}  // namespace papercore_tests
