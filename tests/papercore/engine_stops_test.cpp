#include <gtest/gtest.h>

#include <limits>

#include "tests/papercore/scenario.h"
#include "tests/support/gbk_text.h"

namespace papercore_tests {
namespace {

class EngineStops : public Scenario {
protected:
    EngineStops() { Feed().Bid(299.99, 50).Ask(300.00, 50).Last(300.00); }

    static CPresetStop LossOf(double ticks) {
        CPresetStop stop{};
        stop.dStopTicks = ticks;
        return stop;
    }

    void Param(int validity, int chase = 0, int stop_order_price = 0, int stop_adjust = 0) {
        CTradeParam param{};
        param.nStopTicks = 1;
        param.nProfitTicks = 1;
        param.nStopTriggerPrice = 1;
        param.nProfitTriggerPrice = 1;
        param.nStopOrderPrice = static_cast<std::uint8_t>(stop_order_price);
        param.nStopAdjust = stop_adjust;
        param.nValidity = validity;
        param.bAutoChase = chase;
        engine->SetTradeParam(param);
        Note();
    }

    void FallTo(double price) { Feed().Bid(price, 50).Ask(price + 0.01, 50).Last(price); }

    Answer SetStop(LotId lot, const CPresetStop& stop) {
        answer = engine->SetLotStop(lot, stop);
        Note();
        return answer;
    }

    template <class Wanted>
    int Facts() const {
        int count = 0;
        for (const Fact& fact : journal) count += std::holds_alternative<Wanted>(fact) ? 1 : 0;
        return count;
    }
};

TEST_F(EngineStops, CloseTheLotOnceAndSayWhy) {
    Param(0);
    Buy(3).At(300.00);
    SetStop(1, LossOf(10));
    FallTo(299.91);
    EXPECT_EQ(1, LastOrder());
    FallTo(299.90);
    ASSERT_EQ(2, LastOrder());
    ExpectFilled(3);
    EXPECT_EQ(Side::kSell, OrderNow().side);
    EXPECT_EQ('1', OrderNow().offset);
    EXPECT_EQ(1, OrderNow().tied_lot);
    EXPECT_EQ(kCoreSession, OrderNow().session);
    EXPECT_EQ(kSourceStopLoss, OrderNow().source);
    EXPECT_GBK_EQ("自动止损", OrderNow().note);
    EXPECT_TRUE(state().lots.empty());
    FallTo(299.80);
    EXPECT_EQ(2, LastOrder());
}

TEST_F(EngineStops, KeepTheTriggerBeforeTheOrderThatItSends) {
    Param(0);
    Buy(1).At(300.00);
    SetStop(1, LossOf(10));
    FallTo(299.90);
    std::size_t at = 0;
    while (at < journal.size() && !std::holds_alternative<StopTriggered>(journal[at])) ++at;
    ASSERT_LT(at + 1, journal.size());
    EXPECT_TRUE(std::holds_alternative<OrderAccepted>(journal[at + 1]));
    EXPECT_EQ(1, Facts<StopTriggered>());
}

TEST_F(EngineStops, SendNothingTwiceAfterARestart) {
    Param(0);
    Buy(3).At(300.00);
    SetStop(1, LossOf(10));
    Feed().Bid(299.89, 1).Ask(299.91, 50).Last(299.90);
    ExpectFilled(1);
    const OrderId sent = LastOrder();
    Restart();
    FallTo(299.70);
    EXPECT_EQ(sent, LastOrder());
    EXPECT_EQ(1, Facts<StopTriggered>());
}

TEST_F(EngineStops, WatchAfterARestartWhatWasSet) {
    Param(0);
    Buy(3).At(300.00);
    SetStop(1, LossOf(10));
    Restart();
    FallTo(295.00);  // a gap: fires at its real price
    ExpectFilled(3);
    EXPECT_EQ(PriceFromYuan(295.00), state().trades.back().price);
}

TEST_F(EngineStops, ApplyThePresetToEachNewLot) {
    Param(0);
    engine->SetPreset("SGE", kGold, LossOf(10));
    Buy(2).At(300.00);
    Sell(1).At(299.99);
    ASSERT_EQ(2U, Lots().size());
    for (const Lot& lot : Lots()) {
        EXPECT_TRUE(lot.has_stop);
        EXPECT_EQ(lot.open_price, lot.stop.float_base);
    }
    FallTo(299.90);
    ExpectPosition(Side::kBuy, 0, 0);
    ExpectPosition(Side::kSell, 1, 0);
}

TEST_F(EngineStops, AreTakenOffByARecordWithoutRules) {
    Param(0);
    Buy(1).At(300.00);
    SetStop(1, LossOf(10));
    CPresetStop step_alone{};
    step_alone.dStopFloat = 2;
    SetStop(1, step_alone);
    EXPECT_FALSE(Lots()[0].has_stop);
    SetStop(1, LossOf(10));
    SetStop(1, LossOf(0.00005));
    EXPECT_FALSE(Lots()[0].has_stop);
    FallTo(290.00);
    ExpectPosition(Side::kBuy, 1, 0);
}

TEST_F(EngineStops, AreRefusedForAnUnknownLotAndForNoNumbers) {
    SetStop(9, LossOf(10));
    ExpectRefused("持仓明细9不存在，不能设置止损止盈");
    Buy(1).At(300.00);
    SetStop(1, LossOf(std::numeric_limits<double>::quiet_NaN()));
    ExpectRefused("止损止盈的数值无效");
    engine->SetPreset("SGE", kGold, LossOf(7));
    answer = engine->SetPreset("SGE", kGold, LossOf(std::numeric_limits<double>::quiet_NaN()));
    ExpectRefused("止损止盈的数值无效");
    EXPECT_EQ(state().presets.at(std::string("SGE|") + kGold).dStopTicks, 7) << "as it was";
}

TEST_F(EngineStops, CloseOnlyWhatOtherOrdersLeave) {
    Param(0);
    Buy(5).At(300.00);
    Sell(2).At(310.00).Close();
    SetStop(1, LossOf(10));
    FallTo(299.90);
    EXPECT_EQ(3, OrderNow().volume);
    ExpectFilled(3);
    ExpectPosition(Side::kBuy, 2, 2);
}

TEST_F(EngineStops, SayThatNothingIsLeftToClose) {
    Param(0);
    Buy(5).At(300.00);
    Sell(5).At(310.00).Close();
    SetStop(1, LossOf(10));
    FallTo(299.90);
    ExpectEnded(OrderStatus::kRejected, "持仓已全部被平仓委托冻结，可平0手");
    ExpectPosition(Side::kBuy, 5, 5);
}

TEST_F(EngineStops, CancelThePartnerRule) {
    Param(0);
    Buy(1).At(300.00);
    CPresetStop both = LossOf(10);
    both.dProfitTicks = 10;
    SetStop(1, both);
    Feed().NoBid().Ask(299.91, 5).Last(299.90);  // nobody buys: the order waits
    ASSERT_EQ(2, LastOrder());
    ExpectWorking(1);
    Feed().NoBid().Ask(301.00, 5).Last(300.90);
    EXPECT_EQ(2, LastOrder());
    EXPECT_EQ(1, Facts<StopTriggered>());
}

TEST_F(EngineStops, WaitAtTheLastPriceWhereNobodyBuys) {
    Param(0);
    Buy(1).At(300.00);
    SetStop(1, LossOf(10));
    Feed().NoBid().Ask(299.91, 5).Last(299.90);
    EXPECT_EQ(PriceFromYuan(299.90), OrderNow().limit);
}

TEST_F(EngineStops, ChaseTheMarketWithTheSameOrder) {
    Param(0, 1);
    Buy(4).At(300.00);
    SetStop(1, LossOf(10));
    Feed().Bid(299.90, 1).Ask(299.95, 50).Last(299.90);
    ASSERT_EQ(2, LastOrder());
    ExpectFilled(1);
    Feed().Bid(299.80, 2).Ask(299.85, 50).Last(299.80);
    EXPECT_EQ(2, LastOrder());
    ExpectFilled(3);
    EXPECT_EQ(PriceFromYuan(299.80), OrderNow().limit);
    Feed().Bid(299.70, 9).Ask(299.75, 50).Last(299.70);
    ExpectFilled(4);
    EXPECT_TRUE(state().lots.empty());
    EXPECT_EQ(0, engine->FundsNow().frozen);
}

TEST_F(EngineStops, ChaseOnAfterARestart) {
    Param(0, 1);
    Buy(4).At(300.00);
    SetStop(1, LossOf(10));
    Feed().Bid(299.90, 1).Ask(299.95, 50).Last(299.90);
    Restart();
    Feed().Bid(299.70, 9).Ask(299.75, 50).Last(299.70);
    ExpectFilled(4);
}

TEST_F(EngineStops, ChaseNothingThatIsNotShown) {
    Param(0, 1);
    Buy(4).At(300.00);
    SetStop(1, LossOf(10));
    Feed().Bid(299.90, 1).Ask(299.95, 50).Last(299.90);
    Feed().NoBid();
    Feed().Phase(MarketPhase::kAuction).NoAsk();
    EXPECT_EQ(PriceFromYuan(299.90), OrderNow().limit);
    ExpectWorking(3);
}

TEST_F(EngineStops, AskForNoPriceBeyondTheLimits) {
    const struct {
        int row;
        int adjust;
        double limit;
    } cases[] = {{0, 10'000, 255.00}, {3, 0, 345.00}, {4, 0, 255.00}, {3, -10'000, 345.00}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.row);
        Start(FenFromYuan(1'000'000.0));
        Feed().Bid(299.99, 50).Ask(300.00, 50).Last(300.00);
        Param(0, 0, one.row, one.adjust);
        Buy(1).At(300.00);
        SetStop(1, LossOf(10));
        FallTo(299.90);
        EXPECT_EQ(PriceFromYuan(one.limit), OrderNow().limit);
    }
}

TEST_F(EngineStops, StayWhereTheyAreWithoutChasing) {
    Param(0, 0);
    Buy(4).At(300.00);
    SetStop(1, LossOf(10));
    Feed().Bid(299.90, 1).Ask(299.95, 50).Last(299.90);
    Feed().Bid(299.80, 2).Ask(299.85, 50).Last(299.80);
    ExpectFilled(1);
    EXPECT_EQ(PriceFromYuan(299.90), OrderNow().limit);
}

TEST_F(EngineStops, EndWithTheirDayOrSleepUntilTheyAreWoken) {
    Param(0);
    Buy(1).At(300.00);
    SetStop(1, LossOf(10));
    Param(1);
    Buy(1).At(300.00);
    SetStop(2, LossOf(10));
    EndDay(20260106, {{kGold, 300.00}});
    EXPECT_FALSE(Lots()[0].has_stop);
    EXPECT_TRUE(Lots()[1].has_stop);
    FallTo(299.80);
    ExpectPosition(Side::kBuy, 2, 0);
    engine->WakeStops();
    Note();
    FallTo(299.79);
    ExpectPosition(Side::kBuy, 1, 0);
}

TEST_F(EngineStops, AreWokenOnlyFromSleep) {
    Param(1);
    Buy(1).At(300.00);
    SetStop(1, LossOf(10));
    engine->WakeStops();
    Note();
    EXPECT_EQ(0, Facts<StopsWoken>());
}

TEST_F(EngineStops, SleepOnOverARestart) {
    Param(1);
    Buy(1).At(300.00);
    SetStop(1, LossOf(10));
    EndDay(20260106, {{kGold, 300.00}});
    Restart();
    FallTo(299.80);
    ExpectPosition(Side::kBuy, 1, 0);
    engine->WakeStops();
    FallTo(299.79);
    ExpectPosition(Side::kBuy, 0, 0);
}

TEST_F(EngineStops, EndForGoodOnceTheyHaveFired) {
    Param(1);
    Buy(1).At(300.00);
    SetStop(1, LossOf(10));
    Feed().NoBid().Ask(299.91, 5).Last(299.90);
    ExpectWorking(1);
    EndDay(20260106, {{kGold, 300.00}});
    EXPECT_FALSE(Lots()[0].has_stop);
    engine->WakeStops();
    FallTo(299.00);
    EXPECT_EQ(1, Facts<StopTriggered>());
}

TEST_F(EngineStops, TakeValidityWhenTheyAreSet) {
    Param(1);
    Buy(1).At(300.00);
    SetStop(1, LossOf(10));
    Param(0);
    EndDay(20260106, {{kGold, 300.00}});
    EXPECT_TRUE(Lots()[0].has_stop);
    EXPECT_TRUE(Lots()[0].stop.asleep);
}

TEST_F(EngineStops, FollowTheBestPriceWhereTheyFloat) {
    Param(0);
    Buy(1).At(300.00);
    CPresetStop floating = LossOf(10);
    floating.dStopFloat = 1;
    SetStop(1, floating);
    FallTo(300.50);
    EXPECT_EQ(PriceFromYuan(300.50), Lots()[0].stop.float_base);
    FallTo(300.41);
    ExpectPosition(Side::kBuy, 1, 0);
    FallTo(300.40);
    ExpectPosition(Side::kBuy, 0, 0);
}

TEST_F(EngineStops, DoNotFireOutsideTheSession) {
    Param(0);
    Buy(1).At(300.00);
    SetStop(1, LossOf(10));
    Feed().Bid(299.00, 5).Ask(299.01, 5).Last(299.00).Phase(MarketPhase::kClosed);
    EXPECT_EQ(1, LastOrder());
    Feed().Phase(MarketPhase::kContinuous);
    EXPECT_EQ(2, LastOrder());
}

}  // namespace
}  // namespace papercore_tests
