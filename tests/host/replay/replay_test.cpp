#include "host/market/replay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "host/market/market.h"
#include "tests/papercore/crowd.h"
#include "tests/papercore/random_choices.h"

// Recorded markets at full speed, with 1,000 working orders and 100 watched lots. The recordings
// are no part of this tree: the CMake variable REPLAY_DATA names their folder.

namespace {

using papercore_tests::Crowd;

#ifdef NDEBUG
constexpr std::int64_t kUsualQuotes = 1'000'000'000;
#else
constexpr std::int64_t kUsualQuotes = 4000;  // with asserts every event adds up everything
#endif

papercore::ContractTerms Gold() {
    papercore::ContractTerms terms;
    terms.exchange = "SGE";
    terms.contract = "Au(T+D)";
    terms.unit = 1000;
    terms.tick = 100;
    terms.digits = 2;
    terms.margin = 180'000;
    terms.limit = 170'000;
    terms.fee_open = terms.fee_close = terms.fee_close_today = 800;
    terms.deferred = 175;
    terms.deferred_direction = papercore::DeferredDirection::kLongPays;
    terms.largest_order = 1000;
    terms.sessions = {{1200, 1590, papercore::PhaseKind::kContinuous},
                      {1980, 2370, papercore::PhaseKind::kContinuous}};
    return terms;
}

std::vector<std::string> Recordings() {
    std::vector<std::string> files;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(REPLAY_DATA, error)) {
        if (entry.path().extension() == ".csv") files.push_back(entry.path().string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// Puts every recording near the prices of gold in yuan per gram.
market::ReplayOptions OptionsFor(const std::string& name) {
    market::ReplayOptions options;
    options.contract = "Au(T+D)";
    if (name.starts_with("xauusd") || name.starts_with("comex")) {
        options.price_factor = market::OunceFactor(6.2);
    } else if (name.starts_with("shfe_cu")) {
        options.price_factor = 0.006;
    }
    return options;
}

/// What came of a recording.
struct Played {
    std::unique_ptr<Crowd> crowd;
    std::size_t malformed = 0;
};

Played Play(const std::string& file) {
    Played played;
    played.crowd = std::make_unique<Crowd>(Gold());
    papercore::TermsTable terms;
    terms.Add(Gold());
    auto replay = std::make_unique<market::Replay>(
        std::make_unique<std::ifstream>(file, std::ios::binary),
        OptionsFor(std::filesystem::path(file).filename().string()), terms,
        [&played](std::size_t, const std::string&) { ++played.malformed; });
    EXPECT_EQ(replay->Fault(), "");
    market::Market market(std::move(replay));
    Crowd& crowd = *played.crowd;
    market.Subscribe({[&crowd](const papercore::Quote& quote) { crowd.OnQuote(quote); },
                      [&crowd](const papercore::DayEnd& end) { crowd.OnDayEnd(end); }});
    market.SetSpeed(market::kMaximumSpeed);
    const std::int64_t most = papercore_tests::Setting("PAPERCORE_QUOTES", kUsualQuotes);
    while (!market.AtEnd() && crowd.Result().quotes < most) market.Pass(1, 100);
    return played;
}

TEST(Replay, EveryRecordingKeepsTheAccountWholeAndRepeatsItself) {
    const std::vector<std::string> files = Recordings();
    if (files.empty()) GTEST_SKIP() << "no recordings in REPLAY_DATA \"" REPLAY_DATA "\"";
    for (const std::string& file : files) {
        SCOPED_TRACE(file);
        const Played first = Play(file);
        const Crowd::Counts counts = first.crowd->Result();
        EXPECT_LT(first.malformed, 20U) << "some recordings hold trades of no volume";
        EXPECT_EQ(first.crowd->Broken(), "");
        EXPECT_GT(counts.fills, 0);
        EXPECT_GT(counts.crowded, counts.quotes / 10) << "of " << counts.quotes;
        const Played second = Play(file);
        EXPECT_TRUE(counts == second.crowd->Result());
        EXPECT_EQ(first.crowd->Digest(), second.crowd->Digest());
    }
}

}  // namespace
