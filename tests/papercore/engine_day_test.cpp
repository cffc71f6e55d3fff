#include <gtest/gtest.h>

#include "tests/papercore/scenario.h"
#include "tests/support/gbk_text.h"

namespace papercore_tests {
namespace {

class EngineDay : public Scenario {
protected:
    EngineDay() { Feed().Bid(299.99, 50).Ask(300.00, 50).Last(300.00); }
};

TEST_F(EngineDay, CancelsWorkingOrdersAndFreesWhatTheyHeld) {
    Buy(2).At(300.00);
    Buy(3).At(299.00);
    Sell(2).At(310.00).Close();
    EndDay(20260106, {{kGold, 301.00}});
    int cancelled = 0;
    for (const Fact& fact : journal) {
        const auto* ended = std::get_if<OrderEnded>(&fact);
        if (!ended) continue;
        ++cancelled;
        EXPECT_GBK_EQ("收盘自动撤单", ended->remark);
    }
    EXPECT_EQ(2, cancelled);
    EXPECT_EQ(0, engine->FundsNow().frozen);
    ExpectPosition(Side::kBuy, 2, 0);
}

TEST_F(EngineDay, MakesPositionsYesterdaysAndTradesHistory) {
    Buy(2).At(300.00);
    EndDay(20260106, {{kGold, 301.00}});
    EXPECT_EQ(20260106, state().day);
    EXPECT_TRUE(state().orders.empty());
    EXPECT_TRUE(state().trades.empty());
    EXPECT_EQ(1U, state().history.size());
    EXPECT_EQ(PriceFromYuan(301.00), Lots()[0].hold_price);
    EXPECT_EQ(PriceFromYuan(300.00), Lots()[0].open_price);
    EXPECT_EQ("2,000.00", Yuan(state().ledger.settled));
}

TEST_F(EngineDay, TakesNoOrderUntilTheNextDaysFirstQuote) {
    EndDay(20260106, {{kGold, 301.00}});
    Buy(1).At(300.00);
    ExpectRefused("当前不是交易时间，不能委托");
    Feed().Last(300.00);
    Buy(1).At(300.00);
    ExpectAccepted();
}

TEST_F(EngineDay, IsSettledOnce) {
    Buy(2).At(300.00);
    EndDay(20260106, {{kGold, 301.00}});
    const std::size_t facts = journal.size();
    day = 20260105;
    EndDay(20260106, {{kGold, 305.00}});
    EXPECT_EQ(facts, journal.size());
}

TEST_F(EngineDay, IsSettledByWhatIsKnownWhenNobodySaidHowItEnded) {
    Buy(2).At(300.00);
    Buy(1).At(299.00);
    Feed().Day(20260107).Previous(302.00).Last(303.00);
    EXPECT_EQ(20260107, state().day);
    EXPECT_EQ(PriceFromYuan(302.00), Lots()[0].hold_price);
    EXPECT_TRUE(state().orders.empty());
    // Two days of 0.02 % on two lots of 302,000.00.
    EXPECT_EQ("241.60", Yuan(state().ledger.deferred));
    EXPECT_EQ("2,000.00", Yuan(engine->FundsNow().holding_profit));
}

TEST_F(EngineDay, CountsEveryDayThatNobodyToldTheEndOf) {
    Buy(1).At(300.00);
    day = 20260107;
    EndDay(20260108, {{kGold, 300.00}});
    EXPECT_EQ("180.00", Yuan(state().ledger.deferred));
}

TEST_F(EngineDay, TakesNoSettlementThatIsNoPrice) {
    Buy(1).At(300.00);
    for (const Price odd : {Price{-1}, Price{0}, kHighestPrice + 1}) {
        DayEnd end;
        end.trading_day = day;
        end.next_trading_day = ++day;
        end.settlements = {{kGold, odd}, {"unknown", odd}};
        engine->OnDayEnd(end);
        Note();
        EXPECT_EQ(PriceFromYuan(300.00), Lots()[0].hold_price);
        EXPECT_FALSE(state().settlements.contains(kGold));
    }
}

TEST_F(EngineDay, MarksAContractWithoutSettlementAtItsLastPrice) {
    Buy(1).At(300.00);
    Feed().Last(298.00);
    EndDay(20260106, {});
    EXPECT_EQ(PriceFromYuan(298.00), Lots()[0].hold_price);
}

TEST_F(EngineDay, GivesTheSameStateWhenItsFactsAreRepeated) {
    Buy(2).At(300.00);
    Sell(1).At(299.99).Net();
    Buy(1).At(299.00);
    CancelOrder();
    EndDay(20260106, {{kGold, 301.00}});
    Feed().Last(301.00);
    Sell(5).At(300.00);
    State state;
    for (const Fact& fact : journal) ASSERT_TRUE(Apply(state, fact));
    EXPECT_EQ(Figures(engine->Kept()), Figures(state));
}

}  // namespace
}  // namespace papercore_tests
