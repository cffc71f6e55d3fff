#include "host/market/made_history.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/host/market/market_fixture.h"

// The day of bars that the simulator has behind it when it begins.

namespace market {
namespace {

using papercore::Price;

constexpr const char* kSilver = "Ag(T+D)";
constexpr const char* kSmall = "mAu(T+D)";

std::unique_ptr<Market> NewMarket(std::uint64_t seed = 1) {
    return std::make_unique<Market>(std::make_unique<Simulator>(TableOf({kGold, kSmall, kSilver}),
                                                                SimulatorOptions{.seed = seed}));
}

std::vector<double> Returns(const std::vector<Bar>& bars) {
    std::vector<double> returns;
    for (std::size_t at = 1; at < bars.size(); ++at) {
        returns.push_back(std::log(static_cast<double>(bars[at].close) /
                                   static_cast<double>(bars[at - 1].close)));
    }
    return returns;
}

/// Correlation of the minutes' returns.
double Together(const std::vector<Bar>& a, const std::vector<Bar>& b) {
    const std::vector<double> x = Returns(a);
    const std::vector<double> y = Returns(b);
    double xy = 0;
    double xx = 0;
    double yy = 0;
    for (std::size_t at = 0; at < x.size(); ++at) {
        xy += x[at] * y[at];
        xx += x[at] * x[at];
        yy += y[at] * y[at];
    }
    return xy / std::sqrt(xx * yy);
}

TEST(MadeHistory, IsThereBeforeTheFirstQuoteAndIsNoQuote) {
    const auto made = NewMarket();
    const Market& market = *made;
    EXPECT_EQ(780U, market.Bars(kGold, 1).size());
    EXPECT_EQ(780U, market.Bars(kGold, 0).size());
    EXPECT_FALSE(market.Last(kGold));
    EXPECT_TRUE(market.LastQuotes().empty());
    EXPECT_TRUE(market.RecentTrades(kGold).empty());
}

TEST(MadeHistory, CoversTheSessionsOfTheDayBeforeTheFirst) {
    const std::vector<Bar> bars = NewMarket()->Bars(kGold, 1);
    ASSERT_EQ(780U, bars.size());
    EXPECT_EQ("2026-02-26 20:00:00", TimeText(bars.front().time));
    EXPECT_EQ("2026-02-27 02:29:00", TimeText(bars[389].time));
    EXPECT_EQ("2026-02-27 09:00:00", TimeText(bars[390].time));
    EXPECT_EQ("2026-02-27 15:29:00", TimeText(bars.back().time));
    std::int64_t volume = 0;
    for (std::size_t at = 0; at < bars.size(); ++at) {
        const Bar& bar = bars[at];
        EXPECT_TRUE(at == 0 || bars[at - 1].time < bar.time);
        EXPECT_LE(bar.low, std::min(bar.open, bar.close));
        EXPECT_GE(bar.high, std::max(bar.open, bar.close));
        EXPECT_GT(bar.low, papercore::PriceFromYuan(850));
        EXPECT_LT(bar.high, papercore::PriceFromYuan(950));
        for (const Price price : {bar.open, bar.high, bar.low, bar.close}) {
            EXPECT_EQ(0, price % TermsOf(kGold).tick);
        }
        EXPECT_GE(bar.volume, 0);
        volume += bar.volume;
    }
    EXPECT_GT(volume, 780 * 10);
}

TEST(MadeHistory, EndsWhereTheFirstDayTakesOver) {
    const auto made = NewMarket();
    Market& market = *made;
    const Price close = market.Bars(kGold, 1).back().close;
    market.Step(5 * kSecond);
    ASSERT_TRUE(market.Last(kGold));
    EXPECT_EQ(market.Last(kGold)->previous_close, close);
    EXPECT_EQ(781U, market.Bars(kGold, 1).size());
    EXPECT_EQ(1U, market.Bars(kGold, 0).size()) << "the line is the present day's";
    EXPECT_NEAR(static_cast<double>(close), static_cast<double>(market.Bars(kGold, 1).back().open),
                static_cast<double>(close) * 0.002);
}

TEST(MadeHistory, MovesTheContractsOfAMetalTogetherAndIsAsLivelyAsTheMarket) {
    const auto made = NewMarket();
    Market& market = *made;
    const std::vector<Bar> gold = market.Bars(kGold, 1);
    EXPECT_GT(Together(gold, market.Bars(kSmall, 1)), 0.8);
    EXPECT_LT(std::abs(Together(gold, market.Bars(kSilver, 1))), 0.4);
    market.Step(150 * kMinute);
    const std::vector<Bar> both = market.Bars(kGold, 1);
    const auto range = [&](std::size_t from, std::size_t to) {
        double sum = 0;
        for (std::size_t at = from; at < to; ++at) {
            sum += static_cast<double>(both[at].high - both[at].low);
        }
        return sum / static_cast<double>(to - from);
    };
    EXPECT_GT(both.size(), 920U);
    EXPECT_NEAR(1, range(0, 780) / range(780, both.size()), 0.5);
}

TEST(MadeHistory, FollowsItsSeed) {
    const auto closes = [](std::uint64_t seed) { return Returns(NewMarket(seed)->Bars(kGold, 1)); };
    EXPECT_EQ(closes(7), closes(7));
    EXPECT_NE(closes(7), closes(8));
}

}  // namespace
}  // namespace market
