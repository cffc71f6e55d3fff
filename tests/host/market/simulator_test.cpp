#include "host/market/simulator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "tests/host/market/market_fixture.h"

// What kind of market the simulator makes up.

namespace market {
namespace {

using papercore::Level;
using papercore::MarketPhase;
using papercore::PhaseKind;
using papercore::Price;
using papercore::Quote;

/// Everything that is told until a trading day has ended.
std::vector<Quote> QuotesUntil(papercore::Day last, const papercore::TermsTable& terms,
                               SimulatorOptions options = {}) {
    Simulator simulator(terms, options);
    std::vector<Quote> quotes;
    for (;;) {
        const auto event = simulator.Next();
        if (!event) return quotes;
        if (const auto* quote = std::get_if<Quote>(&*event)) {
            quotes.push_back(*quote);
        } else if (std::get<papercore::DayEnd>(*event).trading_day >= last) {
            return quotes;
        }
    }
}

struct Turn {
    std::string time;
    MarketPhase phase;
    papercore::Day day;
    friend bool operator==(const Turn&, const Turn&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Turn& turn) {
        return out << turn.time << " phase " << static_cast<int>(turn.phase) << " of " << turn.day;
    }
};

std::vector<Turn> TurnsOf(const std::vector<Quote>& quotes) {
    std::vector<Turn> turns;
    for (const Quote& quote : quotes) {
        const bool same = !turns.empty() && turns.back().phase == quote.phase &&
                          turns.back().day == quote.trading_day;
        if (!same) turns.push_back({TimeText(quote.time), quote.phase, quote.trading_day});
    }
    return turns;
}

constexpr auto kClosed = MarketPhase::kClosed;
constexpr auto kAuction = MarketPhase::kAuction;
constexpr auto kOpen = MarketPhase::kContinuous;

TEST(SimulatorSessions, NightsBelongToTheNextBusinessDayAlsoAtAWeekend) {
    const SimulatorOptions from_thursday{.first_day = 20260305};
    const std::vector<Turn> expected{
        {"2026-03-05 09:00:00", kOpen, 20260305}, {"2026-03-05 19:50:00", kAuction, 20260306},
        {"2026-03-05 20:00:00", kOpen, 20260306}, {"2026-03-06 02:30:00", kClosed, 20260306},
        {"2026-03-06 09:00:00", kOpen, 20260306}, {"2026-03-06 19:50:00", kAuction, 20260309},
        {"2026-03-06 20:00:00", kOpen, 20260309}, {"2026-03-07 02:30:00", kClosed, 20260309},
        {"2026-03-09 09:00:00", kOpen, 20260309},
    };
    EXPECT_EQ(expected, TurnsOf(QuotesUntil(20260309, TableOf({kGold}), from_thursday)));
}

TEST(SimulatorSessions, FollowTheTermsOfTheDay) {
    struct Case {
        std::vector<papercore::SessionSpan> sessions;
        std::vector<Turn> turns;
    };
    const Case cases[] = {
        {{{1980, 1990, PhaseKind::kContinuous}}, {{"2026-03-02 09:00:00", kOpen, 20260302}}},
        {{{1980, 1981, PhaseKind::kContinuous},
          {1981, 1982, PhaseKind::kAuction},
          {1990, 1991, PhaseKind::kContinuous}},
         {{"2026-03-02 09:00:00", kOpen, 20260302},
          {"2026-03-02 09:01:00", kAuction, 20260302},
          {"2026-03-02 09:02:00", kClosed, 20260302},
          {"2026-03-02 09:10:00", kOpen, 20260302}}},
        {{}, {}},
    };
    for (const Case& each : cases) {
        papercore::ContractTerms terms = TermsOf(kGold);
        terms.sessions = each.sessions;
        papercore::TermsTable table;
        table.Add(terms);
        EXPECT_EQ(each.turns, TurnsOf(QuotesUntil(20260302, table)));
    }
}

TEST(SimulatorSessions, TheClockOfTheMarketSaysTheSame) {
    Market market(std::make_unique<Simulator>(TableOf({kGold}), SimulatorOptions{}));
    const auto step_to = [&market](const std::string& text) {
        while (TimeText(market.Now()) < text) market.Step(kSecond);
    };
    const Turn cases[] = {
        {"2026-03-02 15:29:59", kOpen, 20260302},    {"2026-03-02 19:49:59", kClosed, 20260303},
        {"2026-03-02 19:50:01", kAuction, 20260303}, {"2026-03-02 20:00:01", kOpen, 20260303},
        {"2026-03-03 02:29:59", kOpen, 20260303},    {"2026-03-03 08:59:59", kClosed, 20260303},
        {"2026-03-03 09:00:01", kOpen, 20260303},
    };
    for (const Turn& each : cases) {
        step_to(each.time);
        EXPECT_EQ(each, (Turn{TimeText(market.Now()), market.Phase(), market.TradingDay()}));
    }
}

/// Relative moves of a contract from minute to minute of a day.
std::vector<double> MovesOf(const std::vector<Quote>& quotes, const std::string& contract) {
    std::map<papercore::Instant, Price> closes;
    for (const Quote& quote : quotes) {
        if (quote.contract != contract || quote.bid[0].price == 0) continue;
        closes[quote.time / kMinute] = quote.bid[0].price;
    }
    std::vector<double> moves;
    Price before = 0;
    for (const auto& [minute, price] : closes) {
        const auto change = static_cast<double>(price - before);
        if (before > 0) moves.push_back(change / static_cast<double>(before));
        before = price;
    }
    return moves;
}

double Correlation(const std::vector<double>& a, const std::vector<double>& b) {
    double product = 0;
    double a_squares = 0;
    double b_squares = 0;
    for (std::size_t at = 0; at < std::min(a.size(), b.size()); ++at) {
        product += a[at] * b[at];
        a_squares += a[at] * a[at];
        b_squares += b[at] * b[at];
    }
    return product / std::sqrt(a_squares * b_squares);
}

TEST(SimulatorPrices, GoldMovesTogetherAndSilverByItself) {
    for (const std::uint64_t seed : {1U, 2U, 3U}) {
        const auto quotes = QuotesUntil(20260303, TableOf({kGold, "Au99.99", "Ag(T+D)"}),
                                        SimulatorOptions{.seed = seed});
        const auto gold = MovesOf(quotes, kGold);
        ASSERT_GT(gold.size(), 900U);
        EXPECT_GT(Correlation(gold, MovesOf(quotes, "Au99.99")), 0.8) << seed;
        EXPECT_LT(std::abs(Correlation(gold, MovesOf(quotes, "Ag(T+D)"))), 0.2) << seed;
    }
}

TEST(SimulatorPrices, CalmTimesAndBurstsFollowEachOther) {
    auto moves = MovesOf(QuotesUntil(20260306, TableOf({kGold})), kGold);
    for (double& move : moves) move = std::abs(move);
    std::sort(moves.begin(), moves.end());
    ASSERT_GT(moves.size(), 2000U);
    const double usual = moves[moves.size() / 2];
    EXPECT_GT(usual, 0);
    EXPECT_GT(moves[moves.size() * 99 / 100], 4.5 * usual)
        << "one deviation for all minutes would give 3.8";
}

/// Empty for a side as it has to be.
std::string FaultOf(const std::array<Level, papercore::kLevels>& levels, Price direction,
                    const Quote& quote, Price tick) {
    for (std::size_t at = 0; at < levels.size(); ++at) {
        const Level& level = levels[at];
        if (level.price == 0 && level.volume != 0) return "a size without a price";
        if (level.price == 0) continue;
        if (level.volume <= 0) return "a price without a size";
        if (level.price % tick != 0) return "off the tick";
        if (level.price > quote.upper_limit || level.price < quote.lower_limit) return "off limits";
        if (at == 0) continue;
        if (levels[at - 1].price == 0) return "a level behind none";
        if ((level.price - levels[at - 1].price) * direction <= 0) return "out of order";
    }
    return {};
}

TEST(SimulatorBooks, StandInOrderOnTheTickAndInsideTheLimits) {
    struct Case {
        Price tick;
        papercore::Ppm limit;
        double volatility;
        bool locks;
    };
    const Case cases[] = {{100, 150'000, 1, false},
                          {500, 150'000, 5, false},
                          {100, 1000, 3, true},
                          {100, 0, 1, true},
                          {1'000'000, 10'000, 10, true}};
    for (const Case& each : cases) {
        SCOPED_TRACE(testing::Message() << each.tick << " a tick, limit " << each.limit);
        papercore::ContractTerms terms = TermsOf(kGold);
        terms.tick = each.tick;
        terms.limit = each.limit;
        papercore::TermsTable table;
        table.Add(terms);
        std::size_t locked[2] = {};
        std::size_t open = 0;
        for (const Quote& quote : QuotesUntil(20260303, table, {.volatility = each.volatility})) {
            ASSERT_EQ("", FaultOf(quote.bid, -1, quote, each.tick));
            ASSERT_EQ("", FaultOf(quote.ask, 1, quote, each.tick));
            const Price bid = quote.bid[0].price;
            const Price ask = quote.ask[0].price;
            ASSERT_TRUE(bid == 0 || ask == 0 || bid < ask);
            if (quote.trade_volume > 0) {
                ASSERT_LE(quote.trade_price, quote.upper_limit);
                ASSERT_GE(quote.trade_price, quote.lower_limit);
                ASSERT_EQ(0, quote.trade_price % each.tick);
            }
            if (quote.phase != kOpen) continue;
            ++open;
            locked[0] += bid == 0 ? 1 : 0;
            locked[1] += ask == 0 ? 1 : 0;
        }
        EXPECT_GT(open, 5000U);
        EXPECT_EQ(each.locks, locked[0] + locked[1] > 0);
    }
}

std::int64_t SizeAt(const std::array<Level, papercore::kLevels>& levels, Price price) {
    for (const Level& level : levels) {
        if (level.price == price) return level.volume;
    }
    return 0;
}

TEST(SimulatorBooks, MostSizesStandFromQuoteToQuoteAndChangeInSteps) {
    const auto quotes = QuotesUntil(20260302, TableOf({kGold}));
    std::size_t both = 0;
    std::size_t same = 0;
    for (std::size_t at = 1; at < quotes.size(); ++at) {
        for (const Level& level : quotes[at - 1].bid) {
            const std::int64_t now = SizeAt(quotes[at].bid, level.price);
            if (level.price == 0 || now == 0) continue;
            ++both;
            same += now == level.volume ? 1 : 0;
            ASSERT_LE(std::abs(now - level.volume), 12 + 2 * 8);
        }
    }
    EXPECT_GT(both, quotes.size()) << "levels outlive their quote";
    EXPECT_GT(same, both * 7 / 10);
    EXPECT_LT(same, both) << "sizes never change";
}

TEST(SimulatorBooks, ATradeTakesWhatStoodThere) {
    Random random(5);
    MadeBook book;
    book.Follow({90'000, 100, 80'000, 100'000}, random);
    Quote before;
    book.Show(before);
    const Level best = before.ask[0];
    ASSERT_GT(best.price, 90'000);
    ASSERT_GT(best.volume, 1);
    EXPECT_EQ((Level{best.price, 1}), book.Take(papercore::Side::kSell, 1));
    Quote after;
    book.Show(after);
    EXPECT_EQ((Level{best.price, best.volume - 1}), after.ask[0]);
    EXPECT_EQ(before.bid, after.bid);
    EXPECT_EQ((Level{best.price, best.volume - 1}), book.Take(papercore::Side::kSell, 1000));
    book.Show(after);
    EXPECT_EQ(before.ask[1], after.ask[0]);
    EXPECT_GT(after.ask[4].price, before.ask[4].price) << "a deeper level comes into sight";
    book.Clear();
    EXPECT_EQ(Level{}, book.Take(papercore::Side::kBuy, 5));
}

TEST(SimulatorBooks, ABookFollowsItsMiddleAcrossAnyGap) {
    Random random(9);
    MadeBook book;
    for (const Price middle : {90'000, 90'100, 95'000, 89'900, 99'900, 100'000, 80'000, 80'100}) {
        book.Follow({middle, 100, 80'000, 100'000}, random);
        Quote quote;
        book.Show(quote);
        if (middle > 80'000) {
            EXPECT_LE(quote.bid[0].price, middle);
            EXPECT_GE(quote.bid[0].price, middle - 100);
        }
        EXPECT_EQ(middle == 80'000, quote.bid[0].price == 0) << middle;
        EXPECT_EQ(middle == 100'000, quote.ask[0].price == 0) << middle;
        if (middle < 100'000) {
            EXPECT_GT(quote.ask[0].price, middle);
            EXPECT_LE(quote.ask[0].price, middle + 200);
        }
    }
}

}  // namespace
}  // namespace market
