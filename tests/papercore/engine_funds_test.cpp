#include <gtest/gtest.h>

#include "papercore/funds.h"
#include "tests/papercore/scenario.h"
#include "tests/support/gbk_text.h"

namespace papercore_tests {
namespace {

class EngineFunds : public Scenario {
protected:
    EngineFunds() { Feed(kGold).Bid(899.99, 50).Ask(900.00, 50).Last(900.00).Previous(900.00); }

    void ExpectFunds(const char* balance, const char* margin, const char* frozen,
                     const char* available) {
        const Funds funds = engine->FundsNow();
        EXPECT_EQ(balance, Yuan(funds.balance));
        EXPECT_EQ(margin, Yuan(funds.margin));
        EXPECT_EQ(frozen, Yuan(funds.frozen));
        EXPECT_EQ(available, Yuan(funds.available));
    }
};

TEST_F(EngineFunds, HoldAWorkedExampleToTheCent) {
    ExpectFunds("1,000,000.00", "0.00", "0.00", "1,000,000.00");
    const Quote& quote = *engine->LastQuote(kGold);
    const PriceLimits limits = LimitsOf(*SampleTerms().Find(kGold, 0), quote);
    EXPECT_EQ(PriceFromYuan(1035.00), limits.upper);
    EXPECT_EQ(PriceFromYuan(765.00), limits.lower);

    Buy(2).At(890.00);  // rests: 2 x (142,400.00 + 133.50) are frozen
    ExpectFunds("1,000,000.00", "0.00", "285,067.00", "714,933.00");
    CancelOrder();
    Buy(1).At(900.00);  // 144,000.00 margin, 135.00 fee
    ExpectFunds("999,865.00", "144,000.00", "0.00", "855,865.00");
    Feed(kGold).Bid(909.99, 50).Ask(910.00, 50).Last(910.00);
    ExpectFunds("1,009,865.00", "144,000.00", "0.00", "855,865.00");
    EXPECT_EQ("10,000.00", Yuan(engine->FundsNow().holding_profit));
    Feed(kGold).Bid(894.99, 50).Ask(895.00, 50).Last(895.00);
    ExpectFunds("994,865.00", "144,000.00", "0.00", "850,865.00");

    // Marked at 905.00: the gain is money now, 144,800.00 margin; one day's fee of 181.00 paid.
    EndDay(20260106, {{kGold, 905.00}});
    Feed(kGold).Bid(904.99, 50).Ask(905.00, 50).Last(905.00);
    ExpectFunds("1,004,684.00", "144,800.00", "0.00", "859,884.00");
    EXPECT_EQ("5,000.00", Yuan(engine->FundsNow().open_profit));
    EXPECT_EQ("0.00", Yuan(engine->FundsNow().holding_profit));
    EXPECT_EQ("0.00", Yuan(engine->FundsNow().commission));

    Sell(1).At(904.99).Close();  // 135.7485 fee, 10.00 below the settlement
    ExpectFunds("1,004,538.25", "0.00", "0.00", "1,004,538.25");
    EXPECT_EQ("135.75", Yuan(engine->FundsNow().commission));
    EXPECT_EQ("4,990.00", Yuan(state().trades.back().realised));
    EXPECT_EQ("270.75", Yuan(state().ledger.fees));
    EXPECT_EQ("181.00", Yuan(state().ledger.deferred));
}

TEST_F(EngineFunds, ExcludeHoldingProfitWhereTheFrontEndCountsIt) {
    Start(FenFromYuan(1'000'000.0), true);
    Feed(kGold).Last(900.00);
    Buy(1).At(900.00);
    Feed(kGold).Last(895.00);
    EXPECT_EQ("855,865.00", Yuan(engine->FundsNow().available));
    EXPECT_EQ("994,865.00", Yuan(engine->FundsNow().balance));
}

TEST_F(EngineFunds, FreezeAndChargeWhatThePreviewSays) {
    Feed(kGold).Bid(899.99, 2).Ask(900.00, 2);
    for (const char direction : {'0', '1'}) {
        for (const double price : {900.00, 899.99, 880.00, 915.00}) {
            SCOPED_TRACE(price);
            Start(FenFromYuan(1'000'000.0));
            Feed(kGold).Bid(899.99, 2).Ask(900.00, 2);
            const std::int64_t most =
                engine->MaxVolume(kGold, direction, '0', PriceFromYuan(price));
            const auto order = [&](std::int64_t volume) {
                direction == '0' ? Buy(volume).At(price) : Sell(volume).At(price);
            };
            ASSERT_LT(0, most);
            order(most + 1);
            EXPECT_NE(0, answer.code);
            order(most);
            ExpectAccepted();
            if (OrderNow().filled > 0) continue;
            EXPECT_EQ(0, engine->MaxVolume(kGold, direction, '0', PriceFromYuan(price)));
        }
    }
}

TEST_F(EngineFunds, PreviewWhatANetOrderClosesAndOpens) {
    Buy(3).At(900.00);
    const std::int64_t most = engine->MaxVolume(kGold, '1', '\0', PriceFromYuan(899.99));
    EXPECT_EQ(6, most);
    Sell(most + 1).At(899.99).Net();
    EXPECT_NE(0, answer.code);
    Sell(most).At(899.99).Net();
    ExpectAccepted();
    ExpectPosition(Side::kSell, 3, 0);
}

TEST_F(EngineFunds, PreviewWhatCanBeClosed) {
    Buy(3).At(900.00);
    Sell(1).At(950.00).Close();
    EXPECT_EQ(2, engine->MaxVolume(kGold, '1', '1', PriceFromYuan(900.00)));
    EXPECT_EQ(2, engine->MaxVolume(kGold, '1', '2', PriceFromYuan(900.00)));
    EXPECT_EQ(0, engine->MaxVolume(kGold, '0', '1', PriceFromYuan(900.00)));
    EXPECT_EQ(0, engine->MaxVolume("Xy", '0', '0', PriceFromYuan(900.00)));
}

TEST_F(EngineFunds, PreviewNoCloseBelowTheSmallestOrder) {
    Feed(kMini).Bid(299.99, 90).Ask(300.00, 2);
    Buy(3).At(300.00).Of(kMini);
    ExpectFilled(2);
    EXPECT_EQ(0, engine->MaxVolume(kMini, '1', '1', PriceFromYuan(299.99)));
    Sell(2).At(299.99).Of(kMini).Close();
    ExpectRefused("委托手数2超出范围：3到20");
    Feed(kMini).Ask(300.00, 1);
    EXPECT_EQ(3, engine->MaxVolume(kMini, '1', '1', PriceFromYuan(299.99)));
    Sell(3).At(299.99).Of(kMini).Close();
    ExpectAccepted();
}

TEST_F(EngineFunds, PreviewNoMoreAndNoLessThanAnOrderMayHave) {
    Feed(kMini).Bid(299.99, 90).Ask(300.00, 90);
    EXPECT_EQ(20, engine->MaxVolume(kMini, '0', '0', PriceFromYuan(300.00)));
    Start(FenFromYuan(14'000.0));  // two lots of 4,800.00 and 4.50
    Feed(kMini).Bid(299.99, 90).Ask(300.00, 90);
    EXPECT_EQ(0, engine->MaxVolume(kMini, '0', '0', PriceFromYuan(300.00)));
    Start(FenFromYuan(14'413.50));
    Feed(kMini).Bid(299.99, 90).Ask(300.00, 90);
    EXPECT_EQ(3, engine->MaxVolume(kMini, '0', '0', PriceFromYuan(300.00)));
    EXPECT_EQ(3, engine->MaxVolume(kMini, '0', '0', 0));
    Buy(3).At(300.00).Of(kMini);
    ExpectAccepted();
    EXPECT_EQ("0.00", Yuan(engine->FundsNow().available));
}

TEST_F(EngineFunds, ChargeAnOrderInPartsAsInOnePiece) {
    Feed(kGold).Ask(899.99, 1).Bid(899.98, 1);
    Buy(6).At(899.97);
    const Fen frozen = engine->FundsNow().frozen;
    for (int part = 0; part < 6; ++part) Feed(kGold).Bid(899.90, 1).Ask(899.97 - part * 0.01, 1);
    ExpectFilled(6);
    const Fen charged = engine->FundsNow().margin + state().ledger.fees;
    EXPECT_EQ(frozen, charged);
    EXPECT_EQ(0, engine->FundsNow().frozen);
}

TEST_F(EngineFunds, LetACloseGoThroughWithoutMoneyForItsFee) {
    Start(FenFromYuan(145'000.0));
    Feed(kGold).Bid(899.99, 50).Ask(900.00, 50).Last(900.00);
    Buy(1).At(900.00);
    Feed(kGold).Bid(880.00, 50).Ask(880.01, 50).Last(880.00);
    EXPECT_GT(0, engine->FundsNow().available);
    Buy(1).At(880.01);
    ExpectRefused("可用资金不足：需要 140,933.60，可用 -19,135.00");
    Sell(1).At(880.00).Close();
    ExpectFilled(1);
    ExpectFunds("124,733.00", "0.00", "0.00", "124,733.00");
}

TEST_F(EngineFunds, ChargeTheFeeOfOpeningClosingAndClosingToday) {
    Feed(kSilver).Bid(6999, 500).Ask(7000, 500).Last(7000).Previous(7000);
    Buy(100).Price("7000").Of(kSilver);  // 0.05 % of 700,000.00
    EXPECT_EQ("350.00", Yuan(state().ledger.fees));
    Sell(10).Price("6999").Of(kSilver).Close();  // today's lot: 0.03 %
    EXPECT_EQ("371.00", Yuan(state().ledger.fees));
    EndDay(20260106, {{kSilver, 7000}});
    Feed(kSilver).Bid(7000, 500).Ask(7001, 500);
    Sell(10).Price("7000").Of(kSilver).Close();  // yesterday's: 0.04 %
    EXPECT_EQ("399.00", Yuan(state().ledger.fees));
    EXPECT_EQ("28.00", Yuan(engine->FundsNow().commission));
}

TEST_F(EngineFunds, PayDeferredFeesForEveryCalendarDayInTheirDirection) {
    Feed(kSilver).Day(20260109).Bid(6999, 500).Ask(7000, 500).Last(7000).Previous(7000);
    Buy(10).Price("7000").Of(kSilver);
    Feed(kSilver).Bid(7000, 500).Ask(7001, 500);
    Buy(10).Price("7001").Of(kSilver);
    Sell(30).Price("7000").Of(kSilver);
    EndDay(20260112, {{kSilver, 7000}});
    // From Friday to Monday shorts pay: 1.225 a lot and day, rounded to 1.23; longs of 20 lots get
    // it, 3 days.
    EXPECT_EQ(3 * 30 * 123 - 3 * 20 * 123, state().ledger.deferred);
}

TEST_F(EngineFunds, PayNoDeferredFeeForSpotAndLoseNoFreeMoneyOnIt) {
    Feed(kSpot).Bid(299.99, 50).Ask(300.00, 50).Last(300.00);
    Buy(10).At(300.00).Of(kSpot);
    Feed(kSpot).Bid(289.99, 50).Ask(290.00, 50).Last(290.00);
    ExpectFunds("998,989.50", "30,000.00", "0.00", "969,989.50");
    EndDay(20260106, {{kSpot, 290.00}});
    ExpectFunds("998,989.50", "29,000.00", "0.00", "969,989.50");
    EXPECT_EQ(0, state().ledger.deferred);
}

TEST_F(EngineFunds, TakeTheNextDaysMarginAtTheSettlement) {
    day = 20260130;
    Feed(kSilver).Bid(6999, 500).Ask(7000, 500).Last(7000).Previous(7000);
    Buy(1).Price("7000").Of(kSilver);
    EXPECT_EQ("1,400.00", Yuan(engine->FundsNow().margin));
    EndDay(20260202, {{kSilver, 7000}});  // 25 % from February on
    EXPECT_EQ("1,750.00", Yuan(engine->FundsNow().margin));
}

}  // namespace
}  // namespace papercore_tests
