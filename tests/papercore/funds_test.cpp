#include "papercore/funds.h"

#include <gtest/gtest.h>

#include <limits>

#include "papercore/texts.h"
#include "tests/papercore/scenario.h"

namespace papercore_tests {
namespace {

TEST(Funds, RoundOneLotAndMultiply) {
    const ContractTerms& gold = *SampleTerms().Find(kGold, 20260105);
    // 904,990.00 x 0.015 % is 135.7485.
    EXPECT_EQ(13575, FeeOf(gold, FeeKind::kOpen, PriceFromYuan(904.99), 1000, 1));
    EXPECT_EQ(135750, FeeOf(gold, FeeKind::kOpen, PriceFromYuan(904.99), 1000, 10));
    EXPECT_EQ(14400000, MarginOf(gold, PriceFromYuan(900.00), 1000, 1));
}

TEST(Funds, GainForLongsWhatShortsLose) {
    EXPECT_EQ(5000, ProfitOf(Side::kBuy, 1000, PriceFromYuan(300.00), PriceFromYuan(300.01), 5));
    EXPECT_EQ(-5000, ProfitOf(Side::kSell, 1000, PriceFromYuan(300.00), PriceFromYuan(300.01), 5));
}

TEST(Funds, AddUpOverAnyPriceBetween) {
    const Price steps[] = {2'999'999, 3'000'001, 3'000'050, 2'345'678};
    Fen sum = 0;
    for (std::size_t i = 1; i < std::size(steps); ++i) {
        sum += ProfitOf(Side::kBuy, 10, steps[i - 1], steps[i], 7);
    }
    EXPECT_EQ(ProfitOf(Side::kBuy, 10, steps[0], steps[3], 7), sum);
}

TEST(Funds, StayNumbersAtAbsurdPrices) {
    const ContractTerms& gold = *SampleTerms().Find(kGold, 20260105);
    const Price most = std::numeric_limits<Price>::max();
    EXPECT_LT(0, MarginOf(gold, most, 1000, 1'000'000));
    EXPECT_GT(0, ProfitOf(Side::kSell, 1000, 1, most, 1'000'000));
}

TEST(Funds, FreezeAtThePriceThatAFillMayBring) {
    Quote quote;
    quote.bid[0] = {2'999'900, 5};
    quote.ask[0] = {3'000'000, 1};
    quote.ask[1] = {3'000'500, 1};
    EXPECT_EQ(3'000'000, FreezePrice(quote, Side::kBuy, 3'000'000));
    EXPECT_EQ(2'900'000, FreezePrice(quote, Side::kBuy, 2'900'000));
    EXPECT_EQ(3'000'500, FreezePrice(quote, Side::kBuy, 0));
    EXPECT_EQ(2'999'900, FreezePrice(quote, Side::kSell, 2'900'000));
    EXPECT_EQ(3'100'000, FreezePrice(quote, Side::kSell, 3'100'000));
    EXPECT_EQ(2'999'900, FreezePrice(quote, Side::kSell, 0));
    quote.phase = MarketPhase::kAuction;
    EXPECT_EQ(0, FreezePrice(quote, Side::kBuy, 0));
    EXPECT_EQ(2'900'000, FreezePrice(quote, Side::kSell, 2'900'000));
}

TEST(Funds, RoundLimitsInwardsToTheTick) {
    const ContractTerms& silver = *SampleTerms().Find(kSilver, 20260105);
    Quote quote;
    quote.previous_settlement = PriceFromYuan(7003.0);
    const PriceLimits limits = LimitsOf(silver, quote);  // 5,952.55 to 8,053.45
    EXPECT_EQ(PriceFromYuan(5953.0), limits.lower);
    EXPECT_EQ(PriceFromYuan(8053.0), limits.upper);
    quote.upper_limit = PriceFromYuan(8000.0);
    quote.lower_limit = PriceFromYuan(6000.0);
    EXPECT_EQ(PriceFromYuan(8000.0), LimitsOf(silver, quote).upper);
    EXPECT_EQ(PriceFromYuan(6000.0), LimitsOf(silver, quote).lower);
}

TEST(Funds, CountCalendarDays) {
    EXPECT_EQ(1, CalendarDays(20260105, 20260106));
    EXPECT_EQ(3, CalendarDays(20260109, 20260112));
    EXPECT_EQ(2, CalendarDays(20240228, 20240301));
    EXPECT_EQ(1, CalendarDays(20230228, 20230301));
    EXPECT_EQ(1, CalendarDays(20251231, 20260101));
    EXPECT_EQ(366, CalendarDays(20240101, 20250101));
    EXPECT_EQ(0, CalendarDays(20260106, 20260105));
    EXPECT_EQ(0, CalendarDays(0, 20260105));
}

TEST(Texts, ShowMoneyWithItsThousands) {
    EXPECT_EQ("0.00", MoneyText(0));
    EXPECT_EQ("-0.05", MoneyText(-5));
    EXPECT_EQ("999.99", MoneyText(99999));
    EXPECT_EQ("-999.99", MoneyText(-99999));
    EXPECT_EQ("172,944.00", MoneyText(17294400));
    EXPECT_EQ("-1,234,567.89", MoneyText(-123456789));
    EXPECT_EQ("172944.00", PlainMoneyText(17294400));
    EXPECT_EQ("-92,233,720,368,547,758.08", MoneyText(std::numeric_limits<Fen>::min()));
}

TEST(Texts, ShowPricesWithTheirDecimalsAndHideNone) {
    EXPECT_EQ("300.00", PriceText(3'000'000, 2));
    EXPECT_EQ("7000", PriceText(70'000'000, 0));
    EXPECT_EQ("300.005", PriceText(3'000'050, 2));
    EXPECT_EQ("0.0001", PriceText(1, 0));
    EXPECT_EQ("-1.50", PriceText(-15'000, 2));
}

TEST(Texts, ReadPricesAndNothingElse) {
    const struct {
        const char* text;
        bool good;
        Price price;
    } cases[] = {
        {"300.00", true, 3'000'000},
        {" 300 ", true, 3'000'000},
        {"+0.5", true, 5'000},
        {".5", true, 5'000},
        {"5.", true, 50'000},
        {"-1.25", true, -12'500},
        {"1.00010", true, 10'001},
        {"1.00001", false, 0},
        {"", false, 0},
        {".", false, 0},
        {"-", false, 0},
        {"1.2.3", false, 0},
        {"1e3", false, 0},
        {"0x10", false, 0},
        {"nan", false, 0},
        {"99999999999999", false, 0},
        {"3 00", false, 0},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.text);
        Price price = 0;
        EXPECT_EQ(one.good, ReadPrice(one.text, price));
        if (one.good) {
            EXPECT_EQ(one.price, price);
        }
    }
}

}  // namespace
}  // namespace papercore_tests
