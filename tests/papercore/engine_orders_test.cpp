#include <gtest/gtest.h>

#include "tests/papercore/scenario.h"
#include "tests/support/gbk_text.h"

namespace papercore_tests {
namespace {

class EngineOrders : public Scenario {
protected:
    EngineOrders() { Feed(kGold).Bid(299.99, 5).Ask(300.00, 3); }
};

TEST_F(EngineOrders, TakesWhatIsShownAndLetsTheRestWork) {
    Buy(10).At(300.00);
    ExpectAccepted();
    ExpectFilled(3);
    ExpectWorking(7);
    Feed(kGold).Bid(299.99, 5).Ask(299.98, 20);
    ExpectFilled(10);
    EXPECT_EQ(OrderStatus::kFilled, OrderNow().status);
}

TEST_F(EngineOrders, WalksTheBookLevelByLevel) {
    Feed(kGold).Ask(300.00, 3).Ask(300.01, 2).Ask(300.05, 4);
    Buy(8).At(300.05);
    ASSERT_EQ(3U, state().trades.size());
    EXPECT_EQ(PriceFromYuan(300.00), state().trades[0].price);
    EXPECT_EQ(PriceFromYuan(300.01), state().trades[1].price);
    EXPECT_EQ(PriceFromYuan(300.05), state().trades[2].price);
    EXPECT_EQ(3, state().trades[2].volume);
    EXPECT_EQ(3U, state().lots.size());
}

TEST_F(EngineOrders, KeepsHedgeFlagSourceAndNote) {
    Buy(1).At(300.00).Hedge('3').Source(6).Note("快捷平仓");
    EXPECT_EQ('3', OrderNow().hedge);
    EXPECT_EQ(6, OrderNow().source);
    EXPECT_GBK_EQ("快捷平仓", OrderNow().note);
    EXPECT_EQ('3', state().trades.back().hedge);
    EXPECT_EQ('3', Lots().front().hedge);
}

TEST_F(EngineOrders, RefusesWithNumbersAndLeavesNoTrace) {
    Feed(kSilver).Bid(6999, 5).Ask(7000, 5);
    const struct {
        const char* price;
        int code;
        std::int64_t volume;
        char direction;
        char offset;
        char type;
        const char* contract;
        const char* text;
    } cases[] = {
        {"300.00", 6, 0, '0', '0', '0', kGold, "委托手数0超出范围：1到1000"},
        {"300.00", 6, -5, '0', '0', '0', kGold, "委托手数-5超出范围：1到1000"},
        {"300.00", 6, 1001, '0', '0', '0', kGold, "委托手数1001超出范围：1到1000"},
        {"300.005", 6, 1, '0', '0', '0', kGold, "委托价格300.005不是最小变动价位0.01的整数倍"},
        {"345.01", 6, 1, '0', '0', '0', kGold, "委托价格345.01高于涨停价345.00"},
        {"254.99", 6, 1, '0', '0', '0', kGold, "委托价格254.99低于跌停价255.00"},
        {"0.00", 6, 1, '0', '0', '0', kGold, "委托价格必须大于0：0.00"},
        {"-1", 6, 1, '0', '0', '1', kGold, "委托价格必须大于0：-1"},
        {"", 6, 1, '0', '0', '0', kGold, "委托价格无法识别："},
        {"abc", 6, 1, '0', '0', '0', kGold, "委托价格无法识别：abc"},
        {"3e2", 6, 1, '0', '0', '0', kGold, "委托价格无法识别：3e2"},
        {"300.00", 6, 1, '2', '0', '0', kGold, "买卖方向无法识别"},
        {"300.00", 6, 1, '0', '7', '0', kGold, "开平标志无法识别"},
        {"300.00", 6, 1, '0', '0', 'z', kGold, "委托方式无法识别"},
        {"300.00", 6, 1, '0', '0', '0', "Xy(T+D)", "合约不存在：Xy(T+D)"},
        {"300.00", 6, 1, '0', '0', '0', kSpot, "合约没有行情，不能委托"},
        {"300.00", 6, 2, '0', '1', '0', kGold, "可平手数不足：需要2，可平0"},
        {"300.00", 6, 2, '1', '2', '0', kGold, "可平今手数不足：需要2，可平今0"},
        {"300.00", 6, 21, '0', '0', '0', kGold,
         "可用资金不足：需要 1,008,945.00，可用 1,000,000.00"},
    };
    const std::string before = Yuan(engine->FundsNow().available);
    const std::size_t facts = journal.size();
    for (const auto& one : cases) {
        SCOPED_TRACE(testing_support::Readable(one.text));
        OrderRequest request;
        request.contract = one.contract;
        request.price = one.price;
        request.price_code = one.code;
        request.volume = one.volume;
        request.direction = one.direction;
        request.offset = one.offset;
        request.order_type = one.type;
        answer = engine->Insert(request, ++now);
        Note();
        ExpectRefused(one.text);
    }
    EXPECT_EQ(facts, journal.size());
    EXPECT_TRUE(state().orders.empty());
    EXPECT_EQ(before, Yuan(engine->FundsNow().available));
}

TEST_F(EngineOrders, RefusesTheNextRequestOnDemandAndOnlyThat) {
    engine->RefuseNext("交易所维护");
    Buy(1).At(300.00);
    ExpectRefused("交易所维护");
    Buy(1).At(300.00);
    ExpectAccepted();
}

TEST_F(EngineOrders, RefusesOutsideTheSession) {
    Feed(kGold).Phase(MarketPhase::kClosed);
    Buy(1).At(300.00);
    ExpectRefused("当前不是交易时间，不能委托");
    Feed(kGold).Phase(MarketPhase::kContinuous);
    Buy(1).At(300.00);
    ExpectAccepted();
}

TEST_F(EngineOrders, TakesLimitOrdersOnlyInTheAuction) {
    Feed(kGold).Phase(MarketPhase::kAuction).NoAsk().NoBid();
    Buy(1).At(300.00).Type('d');
    ExpectRefused("集合竞价时段只接受限价委托");
    Buy(1).AtMarket();
    ExpectRefused("集合竞价时段只接受限价委托");
    Buy(1).At(300.00);
    ExpectAccepted();
    ExpectWorking(1);
}

TEST_F(EngineOrders, FillAfterTheAuctionAtItsPriceAndPayForThat) {
    Feed(kGold).Phase(MarketPhase::kAuction).NoAsk().NoBid();
    Buy(2).At(301.00);
    Sell(3).At(299.00);
    Feed(kGold).Phase(MarketPhase::kContinuous).Bid(299.99, 9).Ask(300.01, 9).Trade(300.00, 50);
    ExpectFilled(2, 1);
    ExpectFilled(3, 2);
    for (const Trade& trade : state().trades) EXPECT_EQ(PriceFromYuan(300.00), trade.price);
    EXPECT_EQ("240,000.00", Yuan(engine->FundsNow().margin));
    EXPECT_EQ(0, engine->FundsNow().frozen);
}

TEST_F(EngineOrders, HeedNoQuoteWithAPriceThatIsNone) {
    Buy(5).At(300.00);
    for (const Price odd : {Price{-100}, kHighestPrice + 100}) {
        Quote broken = quotes[kGold];
        broken.ask[0] = {PriceFromYuan(299.00), 50};
        broken.bid[4].price = odd;
        engine->OnQuote(broken);
        Note();
        EXPECT_EQ(PriceFromYuan(300.00), engine->LastQuote(kGold)->ask[0].price);
        ExpectWorking(2);
    }
}

TEST_F(EngineOrders, NeverTradeWithEachOther) {
    Feed(kGold).Bid(299.90, 5).Ask(300.10, 5);
    Buy(2).At(300.00);
    Sell(2).At(300.00);
    ExpectWorking(2, 1);
    ExpectWorking(2, 2);
}

TEST_F(EngineOrders, WaitWhereTheMarketIsLockedAtItsLimit) {
    Feed(kGold).Bid(345.00, 90).NoAsk().Last(345.00);
    Buy(2).At(345.00);
    ExpectWorking(2);
    Buy(1).AtMarket();
    ExpectRefused("对手方没有报价，市价委托不能成交");
    Sell(1).AtMarket();
    ExpectFilled(1);
    EXPECT_EQ(PriceFromYuan(345.00), state().trades.back().price);
}

TEST_F(EngineOrders, ResolvesPriceWordsForEachSideAsTheyArrive) {
    Feed(kGold).Bid(299.95, 5).Ask(300.05, 3).Last(300.01);
    const struct {
        const char* word;
        int code;
        double buy;
        double sell;
    } cases[] = {
        {"对手价", 0, 300.05, 299.95}, {"最新价", 1, 300.01, 300.01},
        {"挂单价", 2, 299.95, 300.05}, {"涨停价", 3, 345.00, 345.00},
        {"跌停价", 4, 255.00, 255.00}, {"挂单价超一个价位", 6, 299.96, 300.04},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(testing_support::Readable(one.word));
        Buy(1).Price(one.word, one.code);
        ExpectAccepted();
        EXPECT_EQ(PriceFromYuan(one.buy), OrderNow().limit);
        CancelOrder();
        Sell(1).Price(one.word, one.code);
        ExpectAccepted();
        EXPECT_EQ(PriceFromYuan(one.sell), OrderNow().limit);
        CancelOrder();
    }
}

TEST_F(EngineOrders, RefusesAWordThatTheMarketDoesNotShow) {
    Feed(kGold).NoAsk();
    Buy(1).Price("对手价", 0);
    ExpectRefused("对手价没有数据");
    Buy(1).AtMarket();
    ExpectRefused("对手方没有报价，市价委托不能成交");
    Buy(1).Price("市价", 5).Type('e');
    ExpectRefused("对方最优价格没有数据");
}

TEST_F(EngineOrders, TakesANumberForTheLimitWhateverTheTypeSays) {
    Buy(5).At(299.98).Type('1');
    ExpectWorking(5);
    EXPECT_EQ(OrderKind::kLimit, OrderNow().kind);
    EXPECT_EQ(PriceFromYuan(299.98), OrderNow().limit);
    Buy(5).At(300.00).Type('1').Price("300.00", 5);
    ExpectFilled(3);
    ExpectWorking(2);
}

TEST_F(EngineOrders, EndsWhatAMarketOrderCannotTake) {
    Buy(5).Price("0.00", 5);
    ExpectFilled(3);
    ExpectEnded(OrderStatus::kCancelled, "剩余2手未能立即成交，自动撤销");
    EXPECT_EQ(0, engine->FundsNow().frozen);
}

TEST_F(EngineOrders, TreatsTheRestAsTheTypeSays) {
    const struct {
        char type;
        const char* price;
        std::int64_t filled;
        OrderStatus status;
        double limit;
    } cases[] = {
        {'a', "市价", 5, OrderStatus::kCancelled, 0},
        {'b', "市价", 5, OrderStatus::kWorking, 300.01},
        {'c', "300.00", 3, OrderStatus::kCancelled, 300.00},
        {'d', "300.01", 0, OrderStatus::kCancelled, 300.01},
        {'e', "市价", 3, OrderStatus::kWorking, 300.00},
        {'f', "市价", 0, OrderStatus::kWorking, 299.99},
        {'e', "300.01", 3, OrderStatus::kWorking, 300.00},
        {'f', "299.98", 0, OrderStatus::kWorking, 299.98},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.type);
        Start(FenFromYuan(1'000'000.0));
        Feed(kGold).Bid(299.99, 5).Ask(300.00, 3).Ask(300.01, 2);
        Buy(6).Price(one.price, 5).Type(one.type);
        ExpectAccepted();
        ExpectFilled(one.filled);
        EXPECT_EQ(one.status, OrderNow().status);
        EXPECT_EQ(PriceFromYuan(one.limit), OrderNow().limit);
    }
}

TEST_F(EngineOrders, TurnsTheRestIntoALimitOnTheOwnSideWhereNothingFilled) {
    Feed(kGold).Bid(299.99, 5).Ask(300.00, 3);
    Buy(3).At(300.00);
    Buy(2).Price("市价", 5).Type('b');
    ExpectWorking(2);
    EXPECT_EQ(PriceFromYuan(299.99), OrderNow().limit);
}

TEST_F(EngineOrders, EndARestThatWouldFreezeMoreThanThereIs) {
    Start(FenFromYuan(96'100.0));  // two lots sold at 299.99 take 96,086.80
    Feed(kGold).Bid(299.99, 1).Ask(310.00, 3);
    Sell(1).At(299.99);
    ExpectFilled(1);
    Sell(1).Price("市价", 5).Type('b');
    ExpectAccepted();
    ExpectFilled(0);
    ExpectEnded(OrderStatus::kCancelled,
                "可用资金不足：需要 49,646.50，可用 48,046.60，剩余1手撤销");
    EXPECT_LE(0, engine->FundsNow().available);
}

TEST_F(EngineOrders, FillsAllOrNothingWhenAsked) {
    Buy(3).At(300.00).Type('d');
    ExpectFilled(3);
    EXPECT_EQ(OrderStatus::kFilled, OrderNow().status);
}

TEST_F(EngineOrders, ClosesOldestLotsFirstAndFreezesThemMeanwhile) {
    Feed(kGold).Ask(300.00, 20);
    Buy(2).At(300.00);
    Buy(3).At(300.00);
    Sell(4).At(310.00).Close();
    ExpectPosition(Side::kBuy, 5, 4);
    EXPECT_EQ(2, Lots()[0].frozen);
    EXPECT_EQ(2, Lots()[1].frozen);
    Sell(2).At(310.00).Close();
    ExpectRefused("可平手数不足：需要2，可平1");
    Feed(kGold).Bid(310.00, 3).Ask(310.01, 1);
    ExpectPosition(Side::kBuy, 2, 1);
    CancelOrder();
    ExpectPosition(Side::kBuy, 2, 0);
}

TEST_F(EngineOrders, ClosesTodaysLotsOnlyWhenAskedForThem) {
    Buy(3).At(300.00);
    EndDay(20260106, {{kGold, 300.00}});
    Feed(kGold).Bid(299.99, 5).Ask(300.00, 2);
    Buy(2).At(300.00);
    Sell(3).At(299.99).CloseToday();
    ExpectRefused("可平今手数不足：需要3，可平今2");
    Sell(2).At(299.99).CloseToday();
    ExpectFilled(2);
    EXPECT_EQ('2', state().trades.back().offset);
    ASSERT_EQ(1U, Lots().size());
    EXPECT_EQ(20260105, Lots()[0].day);
}

TEST_F(EngineOrders, TiesACloseToItsLot) {
    Feed(kGold).Ask(300.00, 20);
    Buy(2).At(300.00);
    Buy(3).At(300.00);
    const LotId second = Lots()[1].id;
    Sell(4).At(299.99).Close().Lot(second);
    ExpectRefused("持仓明细2可平手数不足：需要4，可平3");
    Sell(1).At(299.99).Close().Lot(77);
    ExpectRefused("持仓明细77不存在");
    Buy(1).At(300.00).Close().Lot(second);
    ExpectRefused("持仓明细2的合约或方向与委托不符");
    Sell(3).At(299.99).Close().Lot(second);
    ExpectFilled(3);
    ASSERT_EQ(1U, Lots().size());
    EXPECT_EQ(2, Lots()[0].volume);
}

TEST_F(EngineOrders, TiesNoCloseOfTodayToAnOlderLot) {
    Buy(3).At(300.00);
    EndDay(20260106, {{kGold, 300.00}});
    Feed(kGold).Bid(299.99, 5).Ask(300.00, 2);
    Sell(1).At(299.99).CloseToday().Lot(1);
    ExpectRefused("持仓明细1不是今日开仓");
    Sell(1).At(299.99).Close().Lot(1);
    ExpectFilled(1);
}

TEST_F(EngineOrders, ClosesTheOppositeSideFirstByTheNetPosition) {
    Buy(3).At(300.00);
    Feed(kGold).Bid(299.99, 10).Ask(300.00, 3);
    Sell(5).At(299.99).Net().Lot(99);
    ExpectFilled(5);
    ExpectPosition(Side::kBuy, 0, 0);
    ExpectPosition(Side::kSell, 2, 0);
    ASSERT_EQ(3U, state().trades.size());
    EXPECT_EQ('1', state().trades[1].offset);
    EXPECT_EQ(3, state().trades[1].volume);
    EXPECT_EQ('0', state().trades[2].offset);
    EXPECT_EQ(2, state().trades[2].volume);
}

TEST_F(EngineOrders, ReadsTheNetSourceAsTheNetPosition) {
    Buy(3).At(300.00);
    Sell(2).At(299.99).Offset('0').Source(5);
    ExpectPosition(Side::kBuy, 1, 0);
    ExpectPosition(Side::kSell, 0, 0);
}

TEST_F(EngineOrders, CountsWhatWorkingClosesHoldOutOfTheNetPosition) {
    Buy(3).At(300.00);
    Sell(2).At(320.00).Close();
    Sell(2).At(299.99).Net();
    ExpectPosition(Side::kBuy, 2, 2);
    ExpectPosition(Side::kSell, 1, 0);
}

TEST_F(EngineOrders, BuysSpotInFullAndSellsOnlyWhatIsHeld) {
    Feed(kSpot).Bid(299.99, 50).Ask(300.00, 50);
    Sell(1).At(299.99).Of(kSpot);
    ExpectRefused("可卖手数不足：需要1，可卖0");
    Buy(10).At(300.00).Of(kSpot).Close();
    ExpectFilled(10);
    EXPECT_EQ("30,000.00", Yuan(engine->FundsNow().margin));
    Sell(4).At(299.99).Of(kSpot);
    ExpectPosition(Side::kBuy, 6, 0, kSpot);
    Sell(7).At(299.99).Of(kSpot);
    ExpectRefused("可卖手数不足：需要7，可卖6");
}

TEST_F(EngineOrders, CancelsWhatWorksAndSaysWhyNothingElse) {
    Buy(5).At(300.00);
    CancelOrder();
    ExpectAccepted();
    ExpectFilled(3);
    ExpectEnded(OrderStatus::kCancelled, "已撤单");
    CancelOrder();
    ExpectRefused("委托1已撤单，不能再撤");
    CancelOrder(42);
    ExpectRefused("委托42不存在，不能撤单");
    Sell(3).At(299.99).Close();
    CancelOrder();
    ExpectRefused("委托2已全部成交3手，不能撤单");
}

TEST_F(EngineOrders, FillNothingAfterACancel) {
    Buy(5).At(299.95);
    CancelOrder();
    Feed(kGold).Bid(290.00, 5).Ask(290.01, 50).Trade(290.00, 10);
    ExpectFilled(0);
    EXPECT_TRUE(state().lots.empty());
}

TEST_F(EngineOrders, GoOnAfterARestart) {
    Buy(5).At(299.95);
    Sell(2).At(299.99);
    const OrderId last = LastOrder();
    Restart();
    ExpectWorking(5, 1);
    ExpectPosition(Side::kSell, 2, 0);
    Feed(kGold).Bid(299.80, 5).Ask(299.90, 50);
    ExpectFilled(5, 1);
    Buy(1).At(299.90);
    EXPECT_LT(last, LastOrder());
}

TEST_F(EngineOrders, RestWhereTheirContractIsNoneAnyMore) {
    Buy(5).At(300.00);
    const TermsTable nothing;
    Engine left(nothing, settings, state());
    left.OnQuote(quotes[kGold]);
    Quote through = quotes[kGold];
    through.ask[0].price = PriceFromYuan(290.00);
    left.OnQuote(through);
    EXPECT_EQ(2, left.Kept().orders.at(1).Remaining());
    OrderRequest request;
    request.contract = kGold;
    request.volume = 1;
    EXPECT_GBK_EQ("合约不存在：Au(T+D)", left.Insert(request, now).text);
    EXPECT_EQ(0, left.Cancel(1, now).code);
    left.OnDayEnd({now, day, day + 1, {{kGold, PriceFromYuan(300.00)}}});
    EXPECT_EQ("", left.BrokenInvariant());
}

TEST_F(EngineOrders, RefuseAnotherAccountsLogin) {
    answer = engine->OpenSession({"20002", "s", "h"}, now);
    ExpectRefused("账户文件属于10001，不能用于20002");
    EXPECT_EQ(0, engine->OpenSession({"10001", "s", "h"}, now).code);
    EXPECT_EQ(2, state().sessions);
    EXPECT_EQ("1,000,000.00", Yuan(engine->FundsNow().balance));
}

}  // namespace
}  // namespace papercore_tests
