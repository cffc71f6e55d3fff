#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <string>

#include "papercore/engine.h"
#include "papercore/store.h"
#include "tests/papercore/paper_core_fixture.h"
#include "tests/papercore/store/mortal.h"
#include "tests/papercore/store/trader.h"
#include "tests/support/temp_folder.h"

// A process that trades is killed; what it told must be in the file that it leaves.

namespace papercore_tests {
namespace {

namespace fs = std::filesystem;

/// How many processes are killed at random; more by hand.
int RandomKills() {
    const char* asked = std::getenv("STORE_KILLS");
    return asked ? std::atoi(asked) : 40;
}

/// What stands in an account's journal.
struct Journal {
    struct Life {
        int accepted = 0;
        int ended = 0;
        std::int64_t volume = 0;
        std::int64_t filled = 0;
    };
    std::map<OrderId, Life> orders;
    std::map<TradeId, int> trades;
    std::map<LotId, int> stops;  ///< that went off
    std::map<LotId, int> sent;   ///< orders of stops

    void Add(const Fact& fact) {
        if (const auto* accepted = std::get_if<OrderAccepted>(&fact)) {
            const Order& order = accepted->order;
            ++orders[order.id].accepted;
            orders[order.id].volume = order.volume;
            if (order.session == kCoreSession) ++sent[order.tied_lot];
        } else if (const auto* filled = std::get_if<OrderFilled>(&fact)) {
            orders[filled->order].filled += filled->volume;
            for (const Trade& trade : filled->trades) ++trades[trade.id];
        } else if (const auto* ended = std::get_if<OrderEnded>(&fact)) {
            ++orders[ended->order].ended;
        } else if (const auto* stop = std::get_if<StopTriggered>(&fact)) {
            ++stops[stop->lot];
        }
    }
    void ExpectNothingTwice() const {
        for (const auto& [id, order] : orders) {
            EXPECT_EQ(order.accepted, 1) << "order " << id;
            EXPECT_LE(order.ended, 1) << "order " << id;
            EXPECT_LE(order.filled, order.volume) << "order " << id;
        }
        for (const auto& [id, times] : trades) EXPECT_EQ(times, 1) << "trade " << id;
        EXPECT_EQ(stops, sent);
        for (const auto& [lot, times] : stops) EXPECT_EQ(times, 1) << "stop of lot " << lot;
    }
};

/// What the front end heard of an account, over all processes so far.
class Heard {
public:
    void Add(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) Add(line);
    }
    /// All of it is in the journal.
    void ExpectKept(const Journal& journal) const {
        for (const auto& [id, heard] : orders_) {
            const auto kept = journal.orders.find(id);
            ASSERT_TRUE(kept != journal.orders.end()) << "order " << id << " is missing";
            EXPECT_GE(kept->second.filled, heard.filled) << "order " << id;
            const bool works = kept->second.ended == 0 && kept->second.filled < kept->second.volume;
            EXPECT_TRUE(heard.works || !works) << "order " << id << " is back";
        }
        for (const TradeId id : trades_) EXPECT_TRUE(journal.trades.contains(id)) << "trade " << id;
    }

private:
    struct Last {
        bool works = true;
        std::int64_t filled = 0;
    };

    void Add(const std::string& line) {
        std::istringstream words(line);
        std::string what;
        words >> what;
        OrderId order = 0;
        if (what == "order") {
            char status = 0;
            std::int64_t filled = 0;
            words >> order >> status >> filled;
            orders_[order] = {status == '1' || status == '2', filled};
        } else if (what == "trade") {
            TradeId trade = 0;
            words >> trade;
            EXPECT_TRUE(trades_.insert(trade).second) << "told twice: " << line;
        } else if (what == "answer") {
            words >> order;
            EXPECT_TRUE(answers_.insert(order).second) << "told twice: " << line;
            EXPECT_TRUE(orders_.contains(order)) << line;
        } else {
            EXPECT_EQ(what, "done") << line;
        }
    }

    std::map<OrderId, Last> orders_;
    std::set<TradeId> trades_;
    std::set<OrderId> answers_;
};

class KillTest : public testing::Test {
protected:
    std::string Path() const { return (temp_.path() / "account.db").string(); }
    void Forget() {
        for (const char* tail : {"", "-wal", "-journal"}) fs::remove(Path() + tail);
        heard_ = {};
    }
    /// Reads what is left as a new process does.
    void ExpectWhole() {
        std::string fault;
        const std::unique_ptr<Store> store = OpenStore(Path(), fault);
        ASSERT_TRUE(store) << fault;
        State state;
        ASSERT_EQ(store->Load(state), "");
        EXPECT_EQ(Engine(SampleTerms(), {}, state).BrokenInvariant(), "");
        journal_ = {};
        fault = store->Export([&](std::string_view line) {
            Fact fact;
            ASSERT_TRUE(ReadFactLine(line, fact)) << line;
            journal_.Add(fact);
        });
        EXPECT_EQ(fault, "");
        journal_.ExpectNothingTwice();
        heard_.ExpectKept(journal_);
        ASSERT_FALSE(HasFailure());
    }
    /// Another process goes on with the file; quotes that set stops off come again.
    std::string LiveAgain() {
        Mortal rest([&](const Mortal::Mouth& mouth) { LiveOneDay(Path(), {}, mouth); });
        rest.HearOut();
        EXPECT_FALSE(rest.WasKilled());
        heard_.Add(rest.Lines());
        return rest.Lines().empty() ? "" : rest.Lines().back();
    }

    testing_support::TempFolder temp_;
    Heard heard_;
    Journal journal_;
};

TEST_F(KillTest, NothingToldIsLostAtWhateverStepOfTheStoreTheProcessDies) {
    const std::string done = LiveAgain();
    ASSERT_NO_FATAL_FAILURE(ExpectWhole());
    ASSERT_EQ(journal_.stops.size(), 2u);
    ASSERT_TRUE(done.starts_with("done ")) << done;
    const int steps = std::stoi(done.substr(5));
    ASSERT_GT(steps, 40);
    for (int step = 1; step <= steps; ++step) {
        for (const bool after : {false, true}) {
            SCOPED_TRACE((after ? "after step " : "before step ") + std::to_string(step));
            Forget();
            const Death death{step, after};
            Mortal trader([&](const Mortal::Mouth& mouth) { LiveOneDay(Path(), death, mouth); });
            trader.HearOut();
            ASSERT_TRUE(trader.WasKilled());
            heard_.Add(trader.Lines());
            ASSERT_NO_FATAL_FAILURE(ExpectWhole());
        }
        if (step % 8 != 0) continue;
        ASSERT_NE(LiveAgain(), "");
        ASSERT_NO_FATAL_FAILURE(ExpectWhole());
    }
}

TEST_F(KillTest, NothingToldIsLostWheneverTheProcessDies) {
    constexpr int kOnOneFile = 20;
    constexpr unsigned kMostLines = 80;
    constexpr unsigned kMostMicros = 3000;
    std::mt19937 random(5);
    std::array<std::size_t, 3> counts{};
    for (int kill = 1; kill <= RandomKills(); ++kill) {
        SCOPED_TRACE("kill " + std::to_string(kill));
        const auto seed = static_cast<unsigned>(random());
        Mortal trader([&](const Mortal::Mouth& mouth) { LiveUnderLoad(Path(), seed, mouth); });
        trader.HearLines(random() % kMostLines);
        trader.HearFor(static_cast<int>(random() % kMostMicros));
        trader.Kill();
        ASSERT_TRUE(trader.WasKilled());
        heard_.Add(trader.Lines());
        ASSERT_NO_FATAL_FAILURE(ExpectWhole());
        if (kill % kOnOneFile != 0) continue;
        counts[0] += journal_.orders.size();
        counts[1] += journal_.trades.size();
        counts[2] += journal_.stops.size();
        Forget();
    }
    for (const std::size_t count : counts) EXPECT_GT(count, 0u);
    RecordProperty("orders_trades_stops", testing::PrintToString(counts));
}

}  // namespace
}  // namespace papercore_tests
