#include "papercore/positions.h"

#include <gtest/gtest.h>

#include "tests/papercore/scenario.h"

namespace papercore_tests {
namespace {

class PositionSums : public Scenario {};

TEST_F(PositionSums, AddUpTheLotsOfAContractAndDirection) {
    Feed(kSilver).Bid(6999, 50).Ask(7000, 50);
    Feed(kGold).Bid(299.99, 50).Ask(300.00, 1).Ask(300.03, 50);
    Buy(3).At(300.03).Hedge('3');
    Sell(2).At(299.99);
    Sell(1).Price("6999").Of(kSilver);
    Sell(2).At(310.00).Close();
    const std::vector<Position> positions = Positions(state());
    ASSERT_EQ(3U, positions.size());
    EXPECT_EQ(kSilver, positions[0].contract);
    EXPECT_EQ(Side::kSell, positions[0].side);
    const Position& gold = positions[1];
    EXPECT_EQ(Side::kBuy, gold.side);
    EXPECT_EQ("SGE", gold.exchange);
    EXPECT_EQ('3', gold.hedge);
    EXPECT_EQ(3, gold.volume);
    EXPECT_EQ(2, gold.frozen);
    EXPECT_DOUBLE_EQ(300.02, gold.open_price);
    EXPECT_EQ(Side::kSell, positions[2].side);
    EXPECT_EQ(2, positions[2].volume);
}

TEST_F(PositionSums, TellTodaysLotsFromOlderOnes) {
    Feed(kGold).Bid(299.99, 50).Ask(300.00, 50);
    Buy(3).At(300.00);
    EXPECT_TRUE(Positions(state())[0].IsAllOfToday());
    EndDay(20260106, {{kGold, 302.00}});
    EXPECT_TRUE(Positions(state())[0].IsNoneOfToday());
    Feed(kGold).Ask(304.00, 50);
    Buy(1).At(304.00);
    const Position mixed = Positions(state())[0];
    EXPECT_FALSE(mixed.IsAllOfToday());
    EXPECT_FALSE(mixed.IsNoneOfToday());
    EXPECT_EQ(1, mixed.today);
    EXPECT_DOUBLE_EQ(301.00, mixed.open_price);
    EXPECT_DOUBLE_EQ(302.50, mixed.hold_price);
}

}  // namespace
}  // namespace papercore_tests
