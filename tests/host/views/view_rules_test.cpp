#include <gtest/gtest.h>

#include <algorithm>

#include "host/views/chart_rules.h"
#include "host/views/detail_rules.h"
#include "host/views/quote_rules.h"

namespace {

using namespace views;
using papercore::Price;
using papercore::Quote;

Price Yuan(double yuan) { return papercore::PriceFromYuan(yuan); }

TEST(QuoteRules, PricesShowTheirPlacesAndRoundHalfUp) {
    EXPECT_EQ(PriceText(Yuan(900.5), 2), "900.50");
    EXPECT_EQ(PriceText(Yuan(7000), 0), "7000");
    EXPECT_EQ(PriceText(Yuan(0.0049), 2), "0.00");
    EXPECT_EQ(PriceText(Yuan(0.005), 2), "0.01");
    EXPECT_EQ(PriceText(Yuan(1.2345), 4), "1.2345");
    EXPECT_EQ(PriceText(Yuan(1.5), -3), "2");
    EXPECT_EQ(PriceText(Yuan(1.2345), 9), "1.2345");
    EXPECT_EQ(PriceText(0, 2), "--");
    EXPECT_EQ(PriceText(-5, 2), "--");
}

TEST(QuoteRules, TheDayIsComparedWithItsSettlementElseItsClose) {
    Quote quote;
    quote.last = Yuan(909);
    EXPECT_EQ(ChangeText(quote, 2), "--");
    EXPECT_EQ(ChangePercentText(quote), "--");
    quote.previous_close = Yuan(900);
    EXPECT_EQ(ChangeText(quote, 2), "+9.00");
    EXPECT_EQ(ChangePercentText(quote), "+1.00%");
    quote.previous_settlement = Yuan(918);
    EXPECT_EQ(ChangeText(quote, 2), "-9.00");
    EXPECT_EQ(ChangePercentText(quote), "-0.98%");
    quote.last = Yuan(918);
    EXPECT_EQ(ChangeText(quote, 2), "0.00");
    EXPECT_EQ(ChangePercentText(quote), "0.00%");
    EXPECT_EQ(Tendency(quote.last, 0), 0);
}

TEST(QuoteRules, CountsAndTimesAreReadable) {
    EXPECT_EQ(CountText(0), "0");
    EXPECT_EQ(CountText(999), "999");
    EXPECT_EQ(CountText(1234567), "1,234,567");
    EXPECT_EQ(CountText(-1000), "-1,000");
    EXPECT_EQ(TimeText(1000LL * (86400 * 365 + 9 * 3600 + 61)), "09:01:01");
}

std::string TextOf(const std::vector<Detail>& details, const std::string& label) {
    const auto found = std::ranges::find(details, label, &Detail::label);
    return found == details.end() ? "no such figure" : found->text;
}

TEST(DetailRules, TheDayIsToldInFiguresOrDashes) {
    Quote quote;
    for (const Detail& detail : DayDetails(quote, 2, 1000)) {
        EXPECT_EQ(detail.text, "--") << detail.label;
        EXPECT_EQ(detail.tendency, 0) << detail.label;
    }
    quote.previous_settlement = Yuan(900);
    quote.high = Yuan(905.5);
    quote.low = Yuan(896.5);
    quote.upper_limit = Yuan(1035);
    quote.volume = 3;
    quote.turnover = papercore::FenFromYuan(2'701'000);  // two lots at 900, one at 901
    quote.bid[0] = {Yuan(900.10), 1};
    quote.ask[0] = {Yuan(900.12), 1};
    const std::vector<Detail> day = DayDetails(quote, 2, 1000);
    EXPECT_EQ(TextOf(day, "均价"), "900.33");
    EXPECT_EQ(TextOf(day, "振幅"), "1.00%");
    EXPECT_EQ(TextOf(day, "涨停"), "1035.00");
    EXPECT_EQ(TextOf(day, "价差"), "0.02");
    EXPECT_EQ(TextOf(day, "成交额"), "270.10万");
    EXPECT_EQ(std::ranges::find(day, "最低", &Detail::label)->tendency, -1);
    quote.ask[0] = quote.bid[0];
    quote.low = Yuan(906);
    const std::vector<Detail> odd = DayDetails(quote, 2, 0);
    EXPECT_EQ(TextOf(odd, "均价"), "--");
    EXPECT_EQ(TextOf(odd, "振幅"), "--");
    EXPECT_EQ(TextOf(odd, "价差"), "--");
}

TEST(DetailRules, TermsAreToldShort) {
    papercore::ContractTerms terms;
    terms.unit = 1000;
    terms.tick = 100;
    terms.digits = 2;
    terms.margin = 160'000;
    terms.fee_open = 150;
    terms.largest_order = 1000;
    EXPECT_EQ(TextOf(TermsDetails(terms), "保证金"), "16%");
    EXPECT_EQ(TextOf(TermsDetails(terms), "开仓费"), "0.015%");
    EXPECT_EQ(TextOf(TermsDetails(terms), "价位"), "0.01");
    EXPECT_EQ(TextOf(TermsDetails(terms), "递延费"), "--");
    terms.market = "GT-S";
    EXPECT_EQ(TextOf(TermsDetails(terms), "保证金"), "全额");
    using papercore::PhaseKind;
    EXPECT_EQ(SessionsText({{1190, 1200, PhaseKind::kAuction},
                            {1200, 1590, PhaseKind::kContinuous},
                            {1980, 2370, PhaseKind::kContinuous}}),
              "20:00-02:30  09:00-15:30");
    EXPECT_EQ(SessionsText({}), "--");
}

TEST(DetailRules, RatesAndMoneyAreAsShortAsTheyCanBe) {
    EXPECT_EQ(RateText(0), "0%");
    EXPECT_EQ(RateText(1'000'000), "100%");
    EXPECT_EQ(RateText(175), "0.0175%");
    EXPECT_EQ(RateText(-175), "-0.0175%");
    EXPECT_EQ(MoneyText(999'999), "9999.99");
    EXPECT_EQ(MoneyText(1'000'000), "1.00万");
    EXPECT_EQ(MoneyText(-12'345'000'000), "-1.23亿");
}

std::vector<Candle> Candles(int count) {
    std::vector<Candle> candles;
    for (int index = 0; index < count; ++index) {
        const Price open = Yuan(900 + index % 7);
        candles.push_back(
            {60000LL * index, open, open + Yuan(2), open - Yuan(1), open + Yuan(1), 5});
    }
    return candles;
}

TEST(ChartRules, TheNewestCandleStandsAtTheRightAndEveryPlaceHasItsCandle) {
    for (const int candles : {0, 1, 5, 100, 5000}) {
        for (const int width : {-5, 0, 7, 300, 1900}) {
            for (const int skipped : {0, 3, 9999}) {
                const CandleSpan span = SpanOf(candles, width, 8, skipped);
                ASSERT_GE(span.first, 0);
                ASSERT_LE(span.first + span.count, candles);
                ASSERT_LE(span.count * 8, std::max(width, 0));
                for (const int x : {-100, 0, width / 2, width + 100}) {
                    const int at = span.At(x);
                    if (span.count == 0) {
                        ASSERT_EQ(at, -1);
                    } else {
                        ASSERT_GE(at, span.first);
                        ASSERT_LT(at, span.first + span.count);
                    }
                }
                for (int index = span.first; index < span.first + span.count; ++index) {
                    ASSERT_EQ(span.At(span.CenterOf(index)), index);
                }
            }
        }
    }
    EXPECT_EQ(SpanOf(100, 80, 8, 0).first, 90);
    EXPECT_EQ(SpanOf(100, 80, 8, 0).left, 0);
    EXPECT_EQ(SpanOf(100, 80, 8, 5).first, 85);
}

TEST(ChartRules, TheScaleHoldsCandlesAndMarksThatAreNear) {
    const std::vector<Candle> candles = Candles(50);
    const CandleSpan span = SpanOf(50, 400, 8, 0);
    const Price near_mark = Yuan(911);
    const Price far_mark = Yuan(2000);
    const PriceScale scale = ScaleOf(candles, span, {near_mark, far_mark, 0}, 100, 26, 300);
    for (const Candle& candle : candles) {
        EXPECT_GE(scale.YOf(candle.high), 26);
        EXPECT_LE(scale.YOf(candle.low), 326);
    }
    EXPECT_GE(scale.YOf(near_mark), 26);
    EXPECT_LT(scale.YOf(far_mark), 26);
    for (int y = 26; y < 326; y += 10) EXPECT_NEAR(scale.YOf(scale.PriceAt(y)), y, 1);

    const std::vector<Candle> flat{{0, 100, 100, 100, 100, 0}};
    const PriceScale narrow = ScaleOf(flat, SpanOf(1, 100, 8, 0), {}, 1, 0, 0);
    EXPECT_GT(narrow.high, narrow.low);
    EXPECT_GT(narrow.height, 0);
}

TEST(ChartRules, GridPricesAreRoundAndApart) {
    PriceScale scale;
    scale.low = Yuan(897.13);
    scale.high = Yuan(912.77);
    scale.height = 300;
    const std::vector<Price> prices = RoundPrices(scale, 44);
    ASSERT_GE(prices.size(), 3u);
    for (const Price price : prices) EXPECT_EQ(price % Yuan(0.5), 0);
    for (std::size_t at = 1; at < prices.size(); ++at) {
        EXPECT_GE(scale.YOf(prices[at - 1]) - scale.YOf(prices[at]), 43);
    }
    scale.high = scale.low;
    EXPECT_TRUE(RoundPrices(scale, 44).empty());
}

TEST(ChartRules, TheAxisNamesADayWhereItBegins) {
    constexpr papercore::Instant kDay = 86400000;
    EXPECT_EQ(AxisText(20 * kDay + 9 * 3600000, 0), "09:00");
    EXPECT_EQ(AxisText(20 * kDay + 9 * 3600000, 20 * kDay), "09:00");
    EXPECT_EQ(AxisText(20 * kDay + 9 * 3600000, 19 * kDay), "01-21");
}

}  // namespace
