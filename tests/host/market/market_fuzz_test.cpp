#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

#include "host/market/replay.h"
#include "host/market/simulator.h"
#include "tests/host/market/market_fixture.h"

// Bytes instead of files. MARKET_FUZZ sets the number of rounds of each test.

namespace market {
namespace {

using papercore::Quote;

class Spoiler {
public:
    explicit Spoiler(unsigned seed) : random_(seed) {}
    std::size_t Pick(std::size_t below) {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(random_);
    }
    std::string Bytes(std::size_t count) {
        std::string bytes(count, ' ');
        for (char& byte : bytes) byte = static_cast<char>(Pick(256));
        return bytes;
    }
    /// Flips, cuts, doubles and puts in what has often broken readers.
    std::string Spoil(std::string text) {
        static const char* const kOdd[] = {"\n",
                                           ",",
                                           ",,",
                                           "nan",
                                           "inf",
                                           "-0",
                                           "1e308",
                                           "1e-320",
                                           "0x10",
                                           "\xFF",
                                           "\xEF\xBB\xBF",
                                           "9999-12-31T23:59:59",
                                           "1900-01-01T00:00:00",
                                           "99999999999999999999",
                                           "0",
                                           "-1",
                                           "{",
                                           "[",
                                           "]",
                                           "\"",
                                           "null",
                                           "1.5",
                                           "T"};
        for (std::size_t faults = 1 + Pick(4); faults > 0 && !text.empty(); --faults) {
            const std::size_t at = Pick(text.size());
            switch (Pick(5)) {
                case 0: text[at] = static_cast<char>(Pick(256)); break;
                case 1: text.erase(at, 1 + Pick(12)); break;
                case 2: text.insert(at, text.substr(Pick(text.size()), Pick(60))); break;
                case 3: text.insert(at, kOdd[Pick(std::size(kOdd))]); break;
                default: text.replace(at, Pick(8), kOdd[Pick(std::size(kOdd))]); break;
            }
        }
        return text;
    }

private:
    std::mt19937 random_;
};

const std::string kSamples[] = {
    "time,trading_day,open,high,low,close,volume,open_interest_start,open_interest_end\n"
    "2026-03-01T21:00:00,2026-03-02,300,303,299,302,9,10,11\n"
    "2026-03-02T21:00:00,2026-03-03,302,303,299,300,8,10,11\n",
    "time,open,high,low,close,volume,bid_close,bid_qty,ask_close,ask_qty\n"
    "2026-03-02T09:00:00Z,300,303,299,302,9,301,3,302,4\n"
    "2026-03-02T09:01:00Z,,,,,,300,3,302,4\n",
    "time,last,volume,turnover,open_interest,bid1,bid1_qty,ask1,ask1_qty,bid5,bid5_qty\n"
    "2026-03-02T09:00:00.5,300,70,1,2,299,4,301,5,,\n2026-03-02T09:00:01,301,75,3,4,300,4,301,5,1,"
    "1\n",
    "time,bid,ask\n2026-03-02T01:00:00.123Z,299,301\n2026-03-02T01:00:00.123Z,299.5,301\n",
    "time,price,qty\n2026-03-02T09:00:00,300,2\n2026-03-02T09:00:00,301,3\n",
};

/// What has to hold of everything that is told of a file.
struct Watch {
    papercore::Instant time = std::numeric_limits<papercore::Instant>::min();
    papercore::Day day = 0;
    std::size_t quotes = 0;

    std::string FaultOf(const Event& event) {
        if (TimeOf(event) < time) return "time falls";
        time = TimeOf(event);
        if (const auto* end = std::get_if<papercore::DayEnd>(&event)) {
            if (end->next_trading_day <= end->trading_day) return "the next day is no later one";
            for (const auto& each : end->settlements) {
                if (each.price < 0) return "a settlement price below 0";
            }
            return {};
        }
        const auto& quote = std::get<Quote>(event);
        ++quotes;
        if (!IsSane(quote)) return "no sane quote";
        if (quote.trading_day < day) return "the day falls";
        day = quote.trading_day;
        if (quote.trade_volume < 0 || quote.volume < 0 || quote.turnover < 0) return "below 0";
        for (const auto* side : {&quote.bid, &quote.ask}) {
            for (const auto& level : *side) {
                if (level.volume < 0 || (level.price == 0 && level.volume > 0)) return "a level";
            }
        }
        return {};
    }
};

void PlayAnything(const std::string& text) {
    std::vector<std::size_t> lines;
    Replay replay(std::make_unique<std::istringstream>(text), {kGold, OunceFactor(7), 2},
                  TableOf({kGold}), [&](std::size_t line, const std::string& fault) {
                      EXPECT_FALSE(fault.empty());
                      lines.push_back(line);
                  });
    Watch watch;
    while (const auto event = replay.Next()) ASSERT_EQ("", watch.FaultOf(*event));
    EXPECT_EQ(replay.Fault().empty(), watch.quotes > 0) << replay.Fault();
    EXPECT_EQ(lines.size(), replay.Malformed());
    EXPECT_EQ(lines.end(), std::adjacent_find(lines.begin(), lines.end(), std::greater_equal<>()));
    const auto all = std::count(text.begin(), text.end(), '\n') + 1;
    if (!lines.empty()) {
        EXPECT_LE(lines.back(), static_cast<std::size_t>(all));
    }
}

TEST(MarketFuzz, BytesAsARecordingAreRefused) {
    for (int round = 0; round < Rounds("MARKET_FUZZ", 2000); ++round) {
        Spoiler spoiler(static_cast<unsigned>(round));
        PlayAnything(spoiler.Bytes(spoiler.Pick(300)));
        const std::string header =
            kSamples[round % 5].substr(0, kSamples[round % 5].find('\n') + 1);
        PlayAnything(header + spoiler.Bytes(spoiler.Pick(300)));
        ASSERT_FALSE(testing::Test::HasFailure()) << "round " << round;
    }
}

TEST(MarketFuzz, SpoiltRecordingsAreReadAsFarAsTheyGo) {
    for (int round = 0; round < Rounds("MARKET_FUZZ", 3000); ++round) {
        Spoiler spoiler(static_cast<unsigned>(round));
        const std::string text = spoiler.Spoil(kSamples[round % 5]);
        PlayAnything(text);
        ASSERT_FALSE(testing::Test::HasFailure()) << "round " << round << "\n" << text;
    }
}

TEST(MarketFuzz, AGoodRowAfterAnyBytesIsTold) {
    for (int round = 0; round < Rounds("MARKET_FUZZ", 1000); ++round) {
        Spoiler spoiler(static_cast<unsigned>(round));
        const std::string& sample = kSamples[round % 5];
        const std::size_t first = sample.find('\n') + 1;
        const std::size_t second = sample.find('\n', first) + 1;
        std::string junk = spoiler.Bytes(spoiler.Pick(200));
        const std::string text = sample.substr(0, second) + junk + "\n" + sample.substr(second);
        std::size_t told = 0;
        Replay replay(std::make_unique<std::istringstream>(text), {kGold, 1, 1}, TableOf({kGold}),
                      {});
        Replay clean(std::make_unique<std::istringstream>(sample), {kGold, 1, 1}, TableOf({kGold}),
                     {});
        std::size_t expected = 0;
        while (replay.Next()) ++told;
        while (clean.Next()) ++expected;
        EXPECT_EQ(expected, told) << "round " << round;
        EXPECT_GT(replay.Malformed(), 0U);
    }
}

TEST(MarketFuzz, WhateverTermsAreAcceptedMakeAMarket) {
    std::ifstream file(CONTRACT_TERMS, std::ios::binary);
    const std::string shipped{std::istreambuf_iterator<char>(file), {}};
    ASSERT_FALSE(shipped.empty());
    int accepted = 0;
    for (int round = 0; round < Rounds("MARKET_FUZZ", 300); ++round) {
        Spoiler spoiler(static_cast<unsigned>(round));
        papercore::TermsTable terms;
        const std::string fault = terms.Parse(spoiler.Spoil(shipped));
        EXPECT_EQ(std::string::npos, fault.find('\n'));
        EXPECT_EQ(fault.empty(), !terms.Contracts().empty());
        if (!fault.empty()) continue;
        ++accepted;
        Simulator simulator(terms, {.seed = static_cast<std::uint64_t>(round)});
        Watch watch;
        for (int told = 0; told < 300; ++told) {
            const auto event = simulator.Next();
            ASSERT_TRUE(event);
            ASSERT_EQ("", watch.FaultOf(*event)) << "round " << round;
        }
    }
    EXPECT_GT(accepted, 0);
}

}  // namespace
}  // namespace market
