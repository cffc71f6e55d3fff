#include <gtest/gtest.h>

#include "tests/papercore/matcher_table.h"

namespace papercore_tests {
namespace {

using papercore::OrderKind;
using papercore::ShrinkRule;

Market ThreeAsks() {
    return Market().Ask(300.00, 3).Ask(300.01, 2).Ask(300.05, 9).Bid(299.98, 4).Bid(299.97, 6);
}

// -- What an order takes when it arrives

TEST(MatcherRules, AMarketableOrderWalksTheLevelsUpToItsLimit) {
    MatcherTable table;
    table.Show(ThreeAsks());
    EXPECT_EQ(table.Buy(10, 300.02), "1: 3@300.00, 1: 2@300.01");
    EXPECT_EQ(table.Ahead(1), 0) << "the rest waits in front of the market";
    EXPECT_EQ(table.Sell(5, 299.97), "2: 4@299.98, 2: 1@299.97");
}

TEST(MatcherRules, WhatWasTakenFromALevelIsGoneWhileItShowsTheSameSize) {
    MatcherTable table;
    table.Show(ThreeAsks());
    EXPECT_EQ(table.Buy(2, 300.00), "1: 2@300.00");
    EXPECT_EQ(table.Show(ThreeAsks()), "");
    EXPECT_EQ(table.Buy(2, 300.00), "2: 1@300.00");
    EXPECT_EQ(table.Buy(1, 300.00, OrderKind::kFillAndKill), "");
}

TEST(MatcherRules, ALevelIsFreshOnceItShowsAnotherSizeOrATradePrintsThere) {
    struct Case {
        Market later;
        const char* taken;
    };
    const Case cases[] = {
        {ThreeAsks(), ""},
        {Market().Ask(300.00, 4), "2: 4@300.00"},
        {Market().Ask(300.00, 2), "2: 2@300.00"},
        {ThreeAsks().Traded(300.00, 1), "2: 3@300.00"},
        {ThreeAsks().Traded(300.01, 1), ""},
        {Market().Ask(299.99, 1).Ask(300.00, 3), "2: 1@299.99"},
    };
    for (const Case& row : cases) {
        MatcherTable table;
        table.Show(ThreeAsks());
        EXPECT_EQ(table.Buy(3, 300.00), "1: 3@300.00");
        EXPECT_EQ(table.Show(row.later), "");
        EXPECT_EQ(table.Buy(9, 300.00, OrderKind::kFillAndKill), row.taken);
    }
}

TEST(MatcherRules, ALevelThatWentAndCameBackIsFresh) {
    MatcherTable table;
    table.Show(ThreeAsks());
    table.Buy(3, 300.00);
    table.Show(Market().Ask(300.01, 2));
    table.Show(ThreeAsks());
    EXPECT_EQ(table.Buy(3, 300.00), "2: 3@300.00");
}

TEST(MatcherRules, EachKindTakesAndRestsAsItSays) {
    struct Case {
        OrderKind kind;
        std::int64_t volume;
        double limit;
        const char* taken;
        bool rests;
    };
    const Case cases[] = {
        {OrderKind::kLimit, 20, 300.00, "1: 3@300.00", true},
        {OrderKind::kLimit, 20, 0, "", false},
        {OrderKind::kMarket, 20, 0, "1: 3@300.00, 1: 2@300.01, 1: 9@300.05", false},
        {OrderKind::kMarket, 20, 300.01, "1: 3@300.00, 1: 2@300.01", false},
        {OrderKind::kBestFiveOrCancel, 4, 0, "1: 3@300.00, 1: 1@300.01", false},
        {OrderKind::kBestFiveThenLimit, 20, 300.01, "1: 3@300.00, 1: 2@300.01", true},
        {OrderKind::kBestFiveThenLimit, 20, 0, "1: 3@300.00, 1: 2@300.01, 1: 9@300.05", false},
        {OrderKind::kFillAndKill, 20, 300.01, "1: 3@300.00, 1: 2@300.01", false},
        {OrderKind::kFillOrKill, 5, 300.01, "1: 3@300.00, 1: 2@300.01", false},
        {OrderKind::kFillOrKill, 6, 300.01, "", false},
        {OrderKind::kFillOrKill, 14, 0, "1: 3@300.00, 1: 2@300.01, 1: 9@300.05", false},
        {OrderKind::kFillOrKill, 15, 0, "", false},
        {OrderKind::kOpponentBest, 20, 300.00, "1: 3@300.00", true},
        {OrderKind::kOpponentBest, 20, 0, "", false},
        {OrderKind::kOwnBest, 5, 299.98, "", true},
        {OrderKind::kOwnBest, 5, 0, "", false},
    };
    for (const Case& row : cases) {
        MatcherTable table;
        table.Show(ThreeAsks());
        const std::string taken = table.Buy(row.volume, row.limit, row.kind);
        EXPECT_EQ(taken, row.taken) << static_cast<int>(row.kind);
        EXPECT_EQ(table.Ahead(1) >= 0, row.rests) << static_cast<int>(row.kind) << row.limit;
    }
}

TEST(MatcherRules, AFillOrKillOrderSeesWhatTheAccountHasTaken) {
    MatcherTable table;
    table.Show(ThreeAsks());
    table.Buy(1, 300.00);
    EXPECT_EQ(table.Buy(5, 300.01, OrderKind::kFillOrKill), "");
    EXPECT_EQ(table.Buy(4, 300.01, OrderKind::kFillOrKill), "3: 2@300.00, 3: 2@300.01");
}

TEST(MatcherRules, OwnOrdersNeverTradeWithEachOther) {
    MatcherTable table;
    table.Show(Market().Ask(300.10, 5).Bid(299.90, 5));
    EXPECT_EQ(table.Buy(5, 300.00), "");
    EXPECT_EQ(table.Sell(5, 300.00), "");
    EXPECT_EQ(table.Sell(5, 299.95), "");
    EXPECT_EQ(table.Sell(1, 299.90, OrderKind::kFillAndKill), "4: 1@299.90");
}

TEST(MatcherRules, OneTradeIsGivenOnlyOnce) {
    MatcherTable table;
    table.Show(Market().Ask(300.10, 5).Bid(299.90, 5));
    table.Buy(2, 300.00);
    table.Sell(5, 300.00);
    EXPECT_EQ(table.Show(Market().Ask(300.10, 5).Bid(299.90, 5).Traded(300.00, 3)),
              "1: 2@300.00, 2: 1@300.00");
}

// -- Orders that wait

TEST(MatcherRules, TradesAtThePriceUseUpTheQueueAndThenFill) {
    MatcherTable table;
    table.Show(Market().Bid(299.98, 4).Ask(300.00, 3));
    table.Buy(3, 299.98);
    EXPECT_EQ(table.Ahead(1), 4);
    EXPECT_EQ(table.Show(Market().Bid(299.98, 1).Ask(300.00, 3).Traded(299.98, 3)), "");
    EXPECT_EQ(table.Ahead(1), 1);
    EXPECT_EQ(table.Show(Market().Bid(299.98, 9).Ask(300.00, 3).Traded(299.98, 2)), "1: 1@299.98");
    EXPECT_EQ(table.Show(Market().Bid(299.98, 9).Ask(300.00, 3).Traded(299.98, 50)), "1: 2@299.98");
    EXPECT_EQ(table.Ahead(1), -1);
}

TEST(MatcherRules, TheMarketBetweenTwoOwnOrdersIsServedBetweenThem) {
    MatcherTable table;
    table.Show(Market().Bid(299.98, 2));
    table.Buy(1, 299.98);
    table.Show(Market().Bid(299.98, 7));
    table.Buy(1, 299.98);
    EXPECT_EQ(table.Ahead(2), 7);
    EXPECT_EQ(table.Show(Market().Bid(299.98, 1).Traded(299.98, 7)), "1: 1@299.98");
    EXPECT_EQ(table.Ahead(2), 1);
    EXPECT_EQ(table.Show(Market().Bid(299.98, 1).Traded(299.98, 2)), "2: 1@299.98");
}

TEST(MatcherRules, ATradeThroughThePriceFillsWhatWaitsThereAtItsOwnPrice) {
    MatcherTable table;
    table.Show(Market().Bid(300.00, 50).Bid(299.99, 50).Ask(300.02, 5));
    table.Buy(10, 299.99);
    table.Buy(5, 300.00);
    table.Buy(5, 299.98);
    EXPECT_EQ(table.Show(Market().Traded(299.98, 1)), "2: 5@300.00, 1: 10@299.99");
    EXPECT_GE(table.Ahead(3), -1);
    EXPECT_EQ(table.Show(Market().Traded(299.97, 1)), "3: 5@299.98");
}

TEST(MatcherRules, AQuoteThroughThePriceFillsWhatWaitsThereAtItsOwnPrice) {
    MatcherTable table;
    table.Show(Market().Bid(300.00, 50).Ask(300.02, 5));
    table.Buy(10, 300.00);
    table.Buy(10, 299.99);
    EXPECT_EQ(table.Show(Market().Bid(299.97, 2).Ask(299.99, 3)), "1: 10@300.00")
        << "3 lots at 299.99 went to the better price";
    EXPECT_EQ(table.Show(Market().Bid(299.97, 2).Ask(299.98, 3)), "2: 10@299.99");
}

TEST(MatcherRules, AQuoteAtThePriceFillsOnlyWhatItShows) {
    MatcherTable table;
    table.Show(Market().Bid(299.98, 5).Ask(300.05, 5));
    table.Sell(10, 300.00);
    EXPECT_EQ(table.Show(Market().Bid(300.00, 4).Ask(300.05, 5)), "1: 4@300.00");
    EXPECT_EQ(table.Show(Market().Bid(300.00, 4).Ask(300.05, 5)), "");
    EXPECT_EQ(table.Show(Market().Bid(300.00, 1).Ask(300.05, 5)), "1: 1@300.00");
    EXPECT_EQ(table.Show(Market().Bid(300.01, 1).Ask(300.05, 5)), "1: 5@300.00")
        << "now it went through";
}

TEST(MatcherRules, AnOrderThatTookAllThereWasGetsOnlyWhatComesAnew) {
    MatcherTable table;
    table.Show(ThreeAsks());
    table.Buy(100, 300.03);
    EXPECT_EQ(table.Show(ThreeAsks()), "");
    EXPECT_EQ(table.Show(Market().Ask(300.00, 4).Ask(300.01, 2)), "1: 4@300.03");
    EXPECT_EQ(table.Show(Market().Ask(300.00, 4).Ask(300.01, 2).Traded(300.02, 2)), "1: 2@300.03");
    EXPECT_EQ(table.Show(Market().Ask(300.04, 1)), "");
    EXPECT_EQ(table.Show(Market().Ask(300.02, 1)), "1: 89@300.03") << "it came back through";
}

TEST(MatcherRules, FillsComeByPriceThenByArrival) {
    MatcherTable table;
    table.Show(Market().Bid(299.90, 1).Ask(300.10, 1));
    table.Sell(1, 300.05);
    table.Sell(1, 300.04);
    table.Sell(1, 300.05);
    table.Sell(1, 300.04);
    EXPECT_EQ(table.Show(Market().Bid(300.06, 1)),
              "2: 1@300.04, 4: 1@300.04, 1: 1@300.05, 3: 1@300.05");
}

TEST(MatcherRules, ACancelledOrderFillsNoMore) {
    MatcherTable table;
    table.Show(Market().Bid(299.90, 1).Ask(300.10, 1));
    table.Buy(1, 300.00);
    table.Buy(1, 300.00);
    table.Cancel(1);
    table.Cancel(77);
    EXPECT_EQ(table.Show(Market().Ask(299.00, 9).Traded(299.00, 9)), "2: 1@300.00");
}

// -- Places in the queue

TEST(MatcherRules, AShrinkWithoutATradeMovesAsTheRuleSays) {
    struct Case {
        ShrinkRule rule;
        std::int64_t joined;  ///< behind the order
        std::int64_t shown;   ///< afterwards
        std::int64_t traded;
        std::int64_t ahead;
    };
    const Case cases[] = {
        {ShrinkRule::kNone, 10, 15, 0, 10},    {ShrinkRule::kNone, 10, 4, 0, 4},
        {ShrinkRule::kProRata, 10, 10, 0, 5},  {ShrinkRule::kProRata, 0, 4, 0, 4},
        {ShrinkRule::kProRata, 10, 8, 4, 3},   {ShrinkRule::kAll, 10, 15, 0, 5},
        {ShrinkRule::kAll, 10, 12, 8, 2},      {ShrinkRule::kAll, 10, 10, 6, 0},
        {ShrinkRule::kProRata, 10, 30, 0, 10}, {ShrinkRule::kAll, 10, 0, 0, 0},
        {ShrinkRule::kProRata, 20, 29, 0, 10},
    };
    for (const Case& row : cases) {
        MatcherTable table(row.rule);
        table.Show(Market().Bid(299.98, 10).Bid(299.90, 1));
        table.Buy(1, 299.98);
        table.Show(Market().Bid(299.98, 10 + row.joined).Bid(299.90, 1));
        EXPECT_EQ(table.Ahead(1), 10);
        Market later;
        if (row.shown > 0) later.Bid(299.98, row.shown);
        later.Bid(299.90, 1);
        if (row.traded > 0) later.Traded(299.98, row.traded);
        table.Show(later);
        EXPECT_EQ(table.Ahead(1), row.ahead)
            << static_cast<int>(row.rule) << " " << row.shown << " " << row.traded;
    }
}

TEST(MatcherRules, ManySmallShrinksMoveAsFarAsOneBigOne) {
    MatcherTable table;
    table.Show(Market().Bid(299.98, 50));
    table.Buy(1, 299.98);
    table.Show(Market().Bid(299.98, 100));
    for (int size = 99; size >= 50; --size) table.Show(Market().Bid(299.98, size));
    EXPECT_NEAR(static_cast<double>(table.Ahead(1)), 25, 1);
}

TEST(MatcherRules, ATradeWhoseSizeLeavesTheBookLaterIsNoShrink) {
    MatcherTable table(ShrinkRule::kAll);
    table.Show(Market().Bid(299.98, 10));
    table.Buy(1, 299.98);
    table.Show(Market().Bid(299.98, 30).Traded(300.00, 5));
    table.Show(Market().Bid(299.98, 30).Traded(299.98, 4));
    EXPECT_EQ(table.Ahead(1), 6);
    table.Show(Market().Bid(299.98, 26));
    EXPECT_EQ(table.Ahead(1), 6);
    table.Show(Market().Bid(299.98, 25));
    EXPECT_EQ(table.Ahead(1), 5);
}

TEST(MatcherRules, TheQueueBehindTheLastLevelIsThatWhichIsShownFirst) {
    MatcherTable table;
    table.Show(Market().Bid(299.98, 10).Bid(299.97, 5));
    table.Buy(1, 299.95);
    table.Buy(1, 299.96);
    EXPECT_EQ(table.Ahead(1), -1);
    EXPECT_EQ(table.Show(Market().Bid(299.98, 10).Bid(299.97, 5).Traded(299.95, 9)), "2: 1@299.96")
        << "an unknown queue is not used up";
    table.Show(Market().Bid(299.97, 5).Bid(299.95, 8));
    EXPECT_EQ(table.Ahead(1), 8);
    table.Buy(1, 299.96);
    EXPECT_EQ(table.Ahead(3), 0) << "nobody between two levels";
}

TEST(MatcherRules, AnOrderThatTheWindowLeavesKeepsItsPlace) {
    MatcherTable table;
    table.Show(Market().Bid(299.98, 10).Bid(299.90, 5));
    table.Buy(1, 299.90);
    table.Show(Market().Bid(300.20, 10).Bid(300.19, 5));
    EXPECT_EQ(table.Ahead(1), 5);
    table.Show(Market().Bid(299.98, 10).Bid(299.90, 50));
    EXPECT_EQ(table.Ahead(1), 5);
    table.Show(Market().Bid(299.98, 10).Bid(299.89, 50));
    EXPECT_EQ(table.Ahead(1), 0);
}

TEST(MatcherRules, WithoutAQuoteOrdersWaitForTheFirstOne) {
    MatcherTable table;
    EXPECT_EQ(table.Buy(5, 300.00), "");
    EXPECT_EQ(table.Buy(5, 299.98), "");
    EXPECT_EQ(table.Show(Market().Bid(299.98, 7).Ask(299.99, 2)), "1: 5@300.00");
    EXPECT_EQ(table.Ahead(2), 7);
}

// -- Limits, breaks, days

TEST(MatcherRules, AtALockedLimitOnlyTradesGiveAnything) {
    MatcherTable table;
    table.Show(Market().Limits(270.00, 330.00).Bid(330.00, 500));
    EXPECT_EQ(table.Buy(5, 0, OrderKind::kMarket), "");
    EXPECT_EQ(table.Buy(5, 330.00), "");
    EXPECT_EQ(table.Ahead(2), 500);
    EXPECT_EQ(table.Sell(2, 330.00), "3: 2@330.00");
    EXPECT_EQ(table.Show(Market().Limits(270.00, 330.00).Bid(330.00, 100).Traded(330.00, 400)), "");
    EXPECT_EQ(table.Show(Market().Limits(270.00, 330.00).Bid(330.00, 100).Traded(330.00, 103)),
              "2: 3@330.00");
}

TEST(MatcherRules, LevelsBeyondTheLimitsAreNotTradedAt) {
    MatcherTable table;
    table.Show(Market().Limits(270.00, 330.00).Ask(329.99, 1).Ask(330.01, 5));
    EXPECT_EQ(table.Buy(9, 0, OrderKind::kMarket), "1: 1@329.99");
}

TEST(MatcherRules, WhileTheMarketIsClosedNothingFills) {
    MatcherTable table;
    table.Show(Market().Bid(299.98, 5).Ask(300.00, 5));
    table.Buy(5, 299.99);
    EXPECT_EQ(table.Show(Market().Closed().Ask(299.00, 5).Traded(299.00, 5)), "");
    EXPECT_EQ(table.Buy(5, 300.00, OrderKind::kMarket), "");
    EXPECT_EQ(table.Show(Market().Bid(299.98, 5).Ask(300.00, 5)), "");
    EXPECT_EQ(table.Show(Market().Bid(299.97, 5).Ask(299.98, 5)), "1: 5@299.99");
}

TEST(MatcherRules, ANewTradingDayForgetsWhatWasTaken) {
    MatcherTable table;
    table.Show(ThreeAsks());
    table.Buy(3, 300.00);
    table.Show(ThreeAsks().Day(20240304));
    EXPECT_EQ(table.Buy(3, 300.00), "2: 3@300.00");
}

TEST(MatcherRules, NonsenseInAQuoteIsPassedOver) {
    MatcherTable table;
    papercore::Quote quote = Market().Ask(300.00, -5).Ask(0, 7).Ask(300.02, 2).Ask(300.01, 9);
    quote.trade_volume = -4;
    quote.trade_price = -1;
    quote.bid[0] = {-5, 9};
    quote.bid[1] = {Yuan(299.00), INT64_MAX};
    EXPECT_EQ(table.Show(quote), "");
    EXPECT_EQ(table.Buy(9, 300.05), "1: 2@300.02") << "levels that don't get worse are no levels";
    EXPECT_EQ(table.Buy(1, 299.00), "");
    quote.trade_volume = INT64_MAX;
    quote.trade_price = Yuan(299.00);
    EXPECT_EQ(table.Show(quote), "1: 7@300.05");
    EXPECT_EQ(table.Ahead(2), 7);
}

}  // namespace
}  // namespace papercore_tests
