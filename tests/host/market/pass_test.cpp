#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "tests/host/market/market_fixture.h"

// How market time passes, and who hears of it.

namespace market {
namespace {

const papercore::Instant kNine = MidnightOf(20260302) + 9 * 60 * kMinute;

std::vector<std::int64_t> UpTo(std::int64_t last) {
    std::vector<std::int64_t> numbers(static_cast<std::size_t>(last));
    std::iota(numbers.begin(), numbers.end(), 1);
    return numbers;
}

/// A market of a beat every 100 ms, and the beats that it told.
struct Beating {
    explicit Beating(int beats = 1'000'000)
        : market(std::make_unique<Metronome>(kNine, 100, beats)) {
        market.Subscribe(
            {[this](const papercore::Quote& quote) { told.push_back(quote.trade_volume); }, {}});
    }
    papercore::Instant Passed() const { return market.Now() - kNine; }

    Market market;
    std::vector<std::int64_t> told;
};

TEST(Pass, MarketTimeIsTheUsersTimesTheSpeed) {
    struct Case {
        double speed;
        std::int64_t wall;  // of each call
        int calls;
        papercore::Instant passed;
    };
    const Case cases[] = {
        {1, 10, 250, 2500},     {1, 2500, 1, 2500},  {60, 16, 100, 96'000},
        {0.5, 1, 999, 499},     {0.5, 1, 1000, 500}, {0.25, 7, 1000, 1750},
        {0.001, 1, 999, 0},     {2.5, 1, 3, 7},      {1'000'000, 1, 1, 1'000'000},
        {0, 1000, 10, 0},       {-2, 1000, 10, 0},   {std::nan(""), 1000, 10, 0},
        {1'000'001, 10, 10, 0}, {1, 0, 10, 0},       {1, -5, 10, 0},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(testing::Message() << each.speed << " times, " << each.wall << " ms");
        Beating beating;
        beating.market.SetSpeed(each.speed);
        std::size_t answered = 0;
        for (int call = 0; call < each.calls; ++call) answered += beating.market.Pass(each.wall);
        EXPECT_EQ(each.passed, beating.Passed());
        EXPECT_EQ(UpTo(each.passed / 100), beating.told);
        EXPECT_EQ(beating.told.size(), answered);
    }
}

TEST(Pass, PartsThatHaveNoExactNumberDontDriftAway) {
    for (const int part : {3, 7, 60}) {
        Beating beating;
        beating.market.SetSpeed(1.0 / part);
        for (int call = 0; call < 1000 * part; ++call) beating.market.Pass(1);
        EXPECT_NEAR(1000.0, static_cast<double>(beating.Passed()), 1) << part;
    }
}

TEST(Pass, AtMaximumSpeedEveryEventIsToldOnceAndTheClockStopsAtTheLast) {
    Beating beating(1003);
    beating.market.SetSpeed(kMaximumSpeed);
    EXPECT_EQ(1U, beating.market.Pass(1, 1));
    EXPECT_EQ(100, beating.Passed());
    EXPECT_EQ(500U, beating.market.Pass(1, 500));
    EXPECT_FALSE(beating.market.AtEnd());
    EXPECT_EQ(502U, beating.market.Pass(1, 20'000));
    EXPECT_TRUE(beating.market.AtEnd());
    EXPECT_EQ(0U, beating.market.Pass(1));
    EXPECT_EQ(UpTo(1003), beating.told);
    EXPECT_EQ(100'300, beating.Passed());
}

TEST(Pass, ChangesOfSpeedLoseAndDoubleNothing) {
    Beating beating;
    for (const double speed : {1.0, 0.3, kMaximumSpeed, 0.0, 60.0, 1.0}) {
        beating.market.SetSpeed(speed);
        for (int call = 0; call < 20; ++call) {
            beating.market.Pass(33, 2);
            beating.market.Step(call % 2);
        }
    }
    EXPECT_GT(beating.told.size(), 400U);
    EXPECT_EQ(UpTo(beating.Passed() / 100), beating.told);
}

TEST(Pass, LongPausesAreLeaptOverOneAtATime) {
    constexpr papercore::Instant kPause = 30 * kMinute;
    Market market(std::make_unique<Metronome>(kNine, kPause, 10));
    int told = 0;
    market.Subscribe({[&](const papercore::Quote&) { ++told; }, {}});
    market.Step(kPause);
    EXPECT_EQ(1, told) << "the leap takes no time, so none is left for the second";
    EXPECT_LT(kNine + 2 * kPause - kMinute, market.Now());
    market.Step(kMinute / 2);
    EXPECT_GT(told, 1);
    for (int step = 0; step < 20; ++step) market.Step(kMinute / 2);
    EXPECT_EQ(10, told);
}

TEST(Subscribers, AreToldInTheirOrderUntilTheyEnd) {
    Beating beating;
    std::string heard;
    const auto hears = [&heard](char name) {
        return Subscriber{[&heard, name](const papercore::Quote&) { heard += name; }, {}};
    };
    const int a = beating.market.Subscribe(hears('a'));
    const int b = beating.market.Subscribe(hears('b'));
    beating.market.Step(200);
    EXPECT_EQ("abab", heard);
    beating.market.Unsubscribe(a);
    beating.market.Unsubscribe(a);
    beating.market.Unsubscribe(12345);
    beating.market.Step(100);
    EXPECT_EQ("ababb", heard);
    beating.market.Subscribe(hears('c'));
    beating.market.Step(100);
    EXPECT_EQ("ababbbc", heard);
    beating.market.Unsubscribe(b);
}

TEST(Subscribers, MayEndThemselvesAndOthersWhileAQuoteIsTold) {
    Beating beating;
    std::string heard;
    int own = 0;
    int other = 0;
    own = beating.market.Subscribe({[&](const papercore::Quote&) {
                                        heard += 'a';
                                        beating.market.Unsubscribe(own);
                                        beating.market.Unsubscribe(other);
                                    },
                                    {}});
    other = beating.market.Subscribe({[&](const papercore::Quote&) { heard += 'b'; }, {}});
    beating.market.Step(500);
    EXPECT_EQ("a", heard) << "the other was ended before its turn";
    EXPECT_EQ(UpTo(5), beating.told);
}

TEST(Subscribers, SeeInTheMarketWhatTheyAreTold) {
    Beating beating;
    int agreed = 0;
    beating.market.Subscribe({[&](const papercore::Quote& quote) {
                                  const auto last = beating.market.Last(kGold);
                                  agreed += last && last->trade_volume == quote.trade_volume &&
                                                    beating.market.Now() == quote.time
                                                ? 1
                                                : 0;
                              },
                              {}});
    beating.market.Step(1000);
    EXPECT_EQ(10, agreed);
}

TEST(Publish, NeverSendsTheClockBack) {
    Market market(std::make_unique<ManualSource>(kNine));
    std::vector<papercore::Instant> times;
    std::vector<papercore::DayEnd> ends;
    market.Subscribe({[&](const papercore::Quote& quote) { times.push_back(quote.time); },
                      [&](const papercore::DayEnd& end) { ends.push_back(end); }});
    papercore::Quote quote;
    quote.contract = kGold;
    quote.time = kNine + kMinute;
    market.Publish(quote);
    quote.time = kNine;
    market.Publish(quote);
    EXPECT_EQ((std::vector{kNine + kMinute, kNine + kMinute}), times);
    market.EndDay({});
    ASSERT_EQ(1U, ends.size());
    EXPECT_EQ(kNine + kMinute, ends[0].time);
    EXPECT_EQ(20260302, ends[0].trading_day);
    EXPECT_EQ(20260303, ends[0].next_trading_day);
    EXPECT_EQ(20260303, market.TradingDay());
    EXPECT_EQ(papercore::MarketPhase::kClosed, market.Phase());
}

}  // namespace
}  // namespace market
