#include "host/market/market.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

#include "host/market/civil_time.h"
#include "host/market/replay.h"
#include "host/market/simulator.h"

namespace market {
namespace {

using papercore::ContractTerms;
using papercore::MarketPhase;
using papercore::PriceFromYuan;
using papercore::Quote;
using papercore::TermsTable;

constexpr const char* kGold = "Au(T+D)";

TermsTable Terms() {
    TermsTable table;
    for (const char* name : {kGold, "Ag(T+D)", "Au99.99"}) {
        ContractTerms terms;
        terms.contract = name;
        terms.unit = 1000;
        terms.tick = 100;
        terms.digits = 2;
        terms.limit = 150'000;
        terms.sessions = {{1190, 1200, papercore::PhaseKind::kAuction},
                          {1200, 1590, papercore::PhaseKind::kContinuous},
                          {1980, 2370, papercore::PhaseKind::kContinuous}};
        table.Add(terms);
    }
    return table;
}

std::string Line(const Quote& quote) {
    std::ostringstream out;
    out << quote.contract << ' ' << quote.time << ' ' << quote.last << ' ' << quote.volume << ' '
        << quote.bid[0].price << ' ' << quote.bid[4].volume << ' ' << quote.ask[0].price << '\n';
    return out.str();
}

std::string Told(std::uint64_t seed, std::int64_t step) {
    Market market(std::make_unique<Simulator>(Terms(), SimulatorOptions{.seed = seed}));
    std::string told;
    market.Subscribe({[&](const Quote& quote) { told += Line(quote); }, {}});
    for (std::int64_t passed = 0; passed < 60'000; passed += step) market.Step(step);
    return told;
}

struct Replayed {
    std::vector<Quote> quotes;
    std::vector<papercore::DayEnd> ends;
    std::vector<std::size_t> malformed;
    std::string fault;
};

Replayed ReplayText(const std::string& text, double factor = 1) {
    Replayed result;
    auto source = std::make_unique<Replay>(
        std::make_unique<std::istringstream>(text), ReplayOptions{kGold, factor, 1}, Terms(),
        [&](std::size_t line, const std::string&) { result.malformed.push_back(line); });
    result.fault = source->Fault();
    Market market(std::move(source));
    market.Subscribe({[&](const Quote& quote) { result.quotes.push_back(quote); },
                      [&](const papercore::DayEnd& end) { result.ends.push_back(end); }});
    market.SetSpeed(kMaximumSpeed);
    while (market.Pass(1) > 0) {
    }
    return result;
}

TEST(Simulator, TellsTheSameForASeedHoweverTimeIsCut) {
    const std::string once = Told(7, 60'000);
    EXPECT_GT(once.size(), 1000U);
    EXPECT_EQ(once, Told(7, 1));
    EXPECT_EQ(once, Told(7, 750));
    EXPECT_NE(once, Told(8, 60'000));
}

TEST(Simulator, KeepsBooksInOrderInsideLimitsAndGoesOnAfterTheDay) {
    Market market(std::make_unique<Simulator>(Terms(), SimulatorOptions{}));
    EXPECT_EQ("2026-03-02 09:00:00", market.ClockText().substr(0, 19));
    std::vector<papercore::DayEnd> ends;
    std::vector<MarketPhase> phases;
    const auto look = [&](const Quote& quote) {
        if (phases.empty() || phases.back() != quote.phase) phases.push_back(quote.phase);
        for (std::size_t level = 0; level < papercore::kLevels; ++level) {
            const auto& bid = quote.bid[level];
            const auto& ask = quote.ask[level];
            if (bid.price != 0 && ask.price != 0) {
                ASSERT_LT(bid.price, ask.price);
            }
            if (ask.price != 0) {
                ASSERT_LE(ask.price, quote.upper_limit);
            }
            if (bid.price != 0) {
                ASSERT_GE(bid.price, quote.lower_limit);
            }
            if (level > 0 && ask.price != 0) {
                ASSERT_GT(ask.price, quote.ask[level - 1].price);
            }
        }
    };
    market.Subscribe({look, [&](const papercore::DayEnd& end) { ends.push_back(end); }});
    market.Step(6 * 60 * kMinute + 45 * kMinute);
    ASSERT_EQ(1U, ends.size());
    EXPECT_EQ(20260302, ends[0].trading_day);
    EXPECT_EQ(20260303, ends[0].next_trading_day);
    EXPECT_EQ(3U, ends[0].settlements.size());
    EXPECT_EQ(20260303, market.TradingDay());
    const std::vector<MarketPhase> expected{MarketPhase::kContinuous, MarketPhase::kAuction,
                                            MarketPhase::kContinuous};
    EXPECT_EQ(expected, phases);
}

TEST(Replay, ReadsEveryLayout) {
    struct Case {
        const char* text;
        std::size_t quotes;
        double last;
        std::int64_t volume;
        double bid;
    };
    const Case cases[] = {
        {"time,last,volume,bid1,bid1_qty,ask1,ask1_qty\n2026-03-02T09:00:00.5,300,70,299,4,301,5\n"
         "2026-03-02T09:00:01,301,75,300,4,301,5\n",
         2, 301, 5, 300},
        {"time,bid,ask\n2026-03-02T01:00:00Z,299,301\n", 1, 300, 0, 299},
        {"time,price,qty\n2026-03-02T09:00:00,300,2\n2026-03-02T09:00:00,301,3\n", 2, 301, 5,
         300.99},
        {"time,trading_day,open,high,low,close,volume\n"
         "2026-03-01T21:00:00,2026-03-02,300,303,299,302,9\n",
         4, 302, 9, 301.99},
        {"time,open,high,low,close,volume,bid_close,bid_qty,ask_close,ask_qty\n"
         "2026-03-02T09:00:00,300,303,299,302,9,301,3,302,4\n"
         "2026-03-02T09:01:00,,,,,,300,3,302,4\n",
         5, 302, 9, 300},
    };
    for (const Case& each : cases) {
        const Replayed run = ReplayText(each.text);
        ASSERT_EQ(each.quotes, run.quotes.size()) << each.text << run.fault;
        EXPECT_EQ(PriceFromYuan(each.last), run.quotes.back().last) << each.text;
        EXPECT_EQ(each.volume, run.quotes.back().volume) << each.text;
        EXPECT_EQ(PriceFromYuan(each.bid), run.quotes.back().bid[0].price) << each.text;
        EXPECT_EQ(1U, run.ends.size());
        EXPECT_TRUE(run.malformed.empty());
    }
}

TEST(Replay, PassesOverMalformedRowsWithTheirLineNumbers) {
    const Replayed run = ReplayText(
        "time,price,qty\n2026-03-02T09:00:00,300,2\nx,1,1\n2026-03-02T09:00:01,abc,2\n"
        "2026-03-02T09:00:02,300\n2026-03-02T08:00:00,300,1\n2026-03-02T09:00:03,-1,1\n"
        "2026-02-30T09:00:03,300,1\n2026-03-02T09:00:04,301,1\n");
    EXPECT_EQ((std::vector<std::size_t>{3, 4, 5, 6, 7, 8}), run.malformed);
    EXPECT_EQ(2U, run.quotes.size());
}

TEST(Replay, TurnsOuncesIntoGrams) {
    const Replayed run =
        ReplayText("time,price,qty\n2026-03-02T09:00:00,1300,2\n", OunceFactor(6.12));
    ASSERT_EQ(1U, run.quotes.size());
    EXPECT_EQ(PriceFromYuan(255.79), run.quotes[0].last);
}

TEST(Replay, EndsADayWhenTheNextBeginsAndSettlesAtTheAverage) {
    const Replayed run = ReplayText(
        "time,price,qty\n2026-03-06T15:00:00,300,1\n2026-03-06T15:00:01,304,3\n"
        "2026-03-06T21:00:00,305,1\n");
    ASSERT_EQ(2U, run.ends.size());
    EXPECT_EQ(20260306, run.ends[0].trading_day);
    EXPECT_EQ(20260309, run.ends[0].next_trading_day);
    EXPECT_EQ(PriceFromYuan(303), run.ends[0].settlements[0].price);
    EXPECT_EQ(PriceFromYuan(303), run.quotes[2].previous_settlement);
    EXPECT_EQ(PriceFromYuan(304), run.quotes[2].previous_close);
}

TEST(Replay, SurvivesAnyBytes) {
    std::uint32_t random = 1;
    for (int round = 0; round < 2000; ++round) {
        std::string text = "time,price,qty\n2026-03-02T09:00:00,300,2\n2026-03-02T09:00:01,301,2\n";
        for (int spoilt = 0; spoilt < 4; ++spoilt) {
            random = random * 1664525 + 1013904223;
            text[15 + (random >> 8) % (text.size() - 15)] = static_cast<char>(random >> 24);
        }
        for (const Quote& quote : ReplayText(text).quotes) EXPECT_TRUE(IsSane(quote));
    }
}

TEST(Replay, HandsOnCrossedQuotesAndPricesWithoutVolume) {
    const Replayed crossed = ReplayText("time,bid,ask\n2026-03-02T09:00:00,302,301\n");
    ASSERT_EQ(1U, crossed.quotes.size());
    EXPECT_EQ(PriceFromYuan(302), crossed.quotes[0].bid[0].price);
    const Replayed still = ReplayText("time,price,qty\n2026-03-02T09:00:00,300,0\n");
    ASSERT_EQ(1U, still.quotes.size());
    EXPECT_EQ(PriceFromYuan(300), still.quotes[0].last);
    EXPECT_EQ(0, still.quotes[0].trade_volume);
}

TEST(Replay, PassesOverALineThatNeverEnds) {
    const std::string good = "2026-03-02T09:00:00,300,2";
    const Replayed run =
        ReplayText("time,price,qty\n" + std::string(100'000, '1') + "\n" + good + "\n" + good);
    EXPECT_EQ(std::vector<std::size_t>{2}, run.malformed);
    EXPECT_EQ(2U, run.quotes.size());
}

TEST(Replay, ReadsRecordedFilesTheSameTwice) {
    struct Case {
        const char* file;
        std::size_t quotes;
    };
    const Case cases[] = {{"shfe_cu1909_tick5_sample.csv", 200},
                          {"xauusd_tick_20140502.csv", 28'686},
                          {"comex_gc201312_trades_20131008.csv", 19'132},
                          {"shfe_au1912_1min_201906.csv", 4 * 12'990}};
    if (!std::filesystem::exists(std::filesystem::path(REPLAY_DATA) / cases[0].file)) {
        GTEST_SKIP() << "no recordings in REPLAY_DATA \"" REPLAY_DATA "\"";
    }
    for (const Case& each : cases) {
        SCOPED_TRACE(each.file);
        std::ifstream file(std::filesystem::path(REPLAY_DATA) / each.file, std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        const Replayed once = ReplayText(text);
        const Replayed again = ReplayText(text);
        EXPECT_TRUE(once.malformed.empty());
        ASSERT_EQ(each.quotes, once.quotes.size());
        ASSERT_EQ(each.quotes, again.quotes.size());
        for (std::size_t at = 0; at < once.quotes.size(); ++at) {
            ASSERT_EQ(Line(once.quotes[at]), Line(again.quotes[at]));
        }
    }
}

TEST(Simulator, MakesAPlausibleDayFromTheShippedTerms) {
    std::ifstream file(CONTRACT_TERMS, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    TermsTable terms;
    ASSERT_EQ("", terms.Parse(content));
    Market market(std::make_unique<Simulator>(terms, SimulatorOptions{}));
    std::map<std::string, Quote> newest;
    std::map<papercore::Instant, int> busy;
    std::size_t opened = 0;
    const auto look = [&](const Quote& quote) {
        if (quote.trading_day != 20260303) return;
        if (quote.phase == MarketPhase::kAuction) {
            EXPECT_EQ(0, quote.bid[0].price);
            EXPECT_EQ(0, quote.trade_volume);
        }
        const Quote& before = newest[quote.contract];
        if (before.phase == MarketPhase::kAuction && quote.phase == MarketPhase::kContinuous) {
            opened += quote.trade_volume > 0 && quote.trade_price == quote.open ? 1 : 0;
        }
        newest[quote.contract] = quote;
        ++busy[quote.time / kMinute];
    };
    market.Subscribe({look, {}});
    while (market.TradingDay() < 20260304) market.Step(10 * kMinute);
    EXPECT_EQ(6U, opened);
    int busiest = 0;
    for (const auto& [minute, count] : busy) busiest = std::max(busiest, count);
    EXPECT_GT(busiest, 2 * 60);
    EXPECT_LT(busiest, 6 * 60);
    for (const auto& [name, quote] : newest) {
        const double moved =
            static_cast<double>(quote.high - quote.low) / static_cast<double>(quote.previous_close);
        EXPECT_GT(moved, 0.003) << name;
        EXPECT_LT(moved, 0.03) << name;
    }
}

TEST(Market, KeepsTheBarsOfTheDayBefore) {
    Market market(std::make_unique<ManualSource>(MidnightOf(20260302) + 9 * 60 * kMinute));
    for (const papercore::Day day : {20260302, 20260303, 20260304}) {
        Quote quote;
        quote.contract = kGold;
        quote.time = MidnightOf(day) + 10 * 60 * kMinute;
        quote.bid[0] = {PriceFromYuan(300), 1};
        quote.ask[0] = {PriceFromYuan(302), 1};
        market.Publish(quote);
    }
    const auto bars = market.Bars(kGold, 1);
    ASSERT_EQ(2U, bars.size());
    EXPECT_EQ(MidnightOf(20260303) + 10 * 60 * kMinute, bars[0].time);
    EXPECT_EQ(PriceFromYuan(301), bars[1].close);
    EXPECT_EQ(0, bars[1].volume);
    EXPECT_EQ(1U, market.Bars(kGold, 0).size());
}

TEST(Market, GathersTradesIntoBars) {
    Market market(std::make_unique<ManualSource>(MidnightOf(20260302) + 9 * 60 * kMinute));
    for (int minute = 0; minute < 7; ++minute) {
        Quote quote;
        quote.contract = kGold;
        quote.time = market.Now() + (minute > 0 ? kMinute : 0);
        quote.trade_price = PriceFromYuan(300 + (minute == 3 ? 5 : minute));
        quote.trade_volume = 2;
        market.Publish(quote);
    }
    EXPECT_EQ(7U, market.Bars(kGold, 1).size());
    const auto bars = market.Bars(kGold, 5);
    ASSERT_EQ(2U, bars.size());
    EXPECT_EQ(PriceFromYuan(300), bars[0].open);
    EXPECT_EQ(PriceFromYuan(305), bars[0].high);
    EXPECT_EQ(PriceFromYuan(304), bars[0].close);
    EXPECT_EQ(10, bars[0].volume);
    EXPECT_EQ(7U, market.RecentTrades(kGold).size());
    EXPECT_EQ(20260302, market.TradingDay());
}

}  // namespace
}  // namespace market
