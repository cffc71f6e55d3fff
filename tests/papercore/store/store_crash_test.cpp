#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "papercore/store.h"
#include "tests/papercore/scenario.h"
#include "tests/papercore/store/cut_disk.h"
#include "tests/papercore/store/watched_disk.h"
#include "tests/support/temp_folder.h"

namespace papercore_tests {
namespace {

constexpr char kFile[] = "account.db";

/// How many disks each cut may leave are looked at; more by hand.
unsigned Disks() {
    const char* asked = std::getenv("STORE_CUT_DISKS");
    return asked ? static_cast<unsigned>(std::atoi(asked)) : 2;
}

class StoreCrashTest : public Scenario {
protected:
    StoreCrashTest() { Trade(); }

    /// Ends an event: its facts are kept together.
    void Then() {
        if (journal.size() != (ends_.empty() ? 0 : ends_.back())) ends_.push_back(journal.size());
    }
    void Trade() {
        Start(FenFromYuan(10'000'000));
        Then();
        Feed().Previous(900.00).Bid(899.99, 50).Ask(900.00, 50).Last(900.00);
        Then();
        Buy(3).At(900.00);
        Then();
        CPresetStop stop{};
        stop.dStopTicks = 10;
        engine->SetLotStop(1, stop);
        Note();
        Then();
        Buy(1).At(890.00);
        Then();
        CancelOrder();
        Then();
        Feed().Bid(899.80, 50).Ask(899.85, 50).Last(899.80);
        Then();
        Buy(4).At(899.85);
        Then();
        EndDay(20260106, {{kGold, 901.00}});
        Then();
        Feed().Day(20260106).Bid(899.99, 50).Ask(900.00, 50).Last(900.00);
        Then();
        Sell(2).Close().At(899.99);
        Then();
    }
    std::size_t Begin(std::size_t event) const { return event == 0 ? 0 : ends_[event - 1]; }

    /// Keeps events from `event` on; how many are kept in the end, as far as was told.
    std::size_t Keep(Store& store, std::size_t event) const {
        for (; event < ends_.size(); ++event) {
            const std::span<const Fact> all(journal);
            const auto facts = all.subspan(Begin(event), ends_[event] - Begin(event));
            if (!store.Append(facts).empty()) break;
        }
        return event;
    }
    /// Opens a new account and keeps the day as far as it goes, and why it goes no further.
    std::size_t GoOn() {
        fault_.clear();
        const std::unique_ptr<Store> store = OpenStore(kFile, fault_);
        State loaded;
        if (store) fault_ = store->Load(loaded);
        if (!fault_.empty()) return 0;
        const std::size_t told = Keep(*store, 0);
        if (told == ends_.size()) return told;
        fault_ = store->Append({&journal.front(), 1});
        EXPECT_NE(fault_, "") << "it must not go on behind what was lost";
        return told;
    }
    std::string TextAfter(std::size_t facts) const {
        State so_far;
        for (std::size_t i = 0; i < facts; ++i) EXPECT_TRUE(Apply(so_far, journal[i]));
        return StateText(so_far);
    }

    /// After a cut: all that was told is there, nothing twice, nothing in halves, and work goes on.
    void ExpectWhole(std::size_t told) {
        std::string error;
        std::unique_ptr<Store> store = OpenStore(kFile, error);
        ASSERT_TRUE(store) << error;
        State loaded;
        ASSERT_EQ(store->Load(loaded), "");
        std::size_t lines = 0;
        ASSERT_EQ(store->Export([&](std::string_view) { ++lines; }), "");
        std::size_t kept = told;
        if (lines > Begin(told)) ++kept;
        ASSERT_EQ(lines, Begin(kept)) << "told " << told;
        ASSERT_TRUE(StateText(loaded) == TextAfter(lines));
        ASSERT_NO_FATAL_FAILURE(ExpectOneOrderAStop(loaded));
        ASSERT_EQ(Keep(*store, kept), ends_.size());
        store.reset();
        store = OpenStore(kFile, error);
        ASSERT_TRUE(store) << error;
        State last;
        ASSERT_EQ(store->Load(last), "");
        ASSERT_TRUE(StateText(last) == TextAfter(journal.size()));
    }
    static void ExpectOneOrderAStop(const State& loaded) {
        std::map<LotId, int> sent;
        for (const auto& [id, order] : loaded.orders) {
            if (order.session == kCoreSession) ++sent[order.tied_lot];
        }
        for (const auto& [lot, orders] : sent) EXPECT_EQ(orders, 1) << lot;
        for (const auto& [id, lot] : loaded.lots) {
            EXPECT_EQ(lot.stop.triggered, sent.contains(id)) << id;
        }
    }

    std::vector<std::size_t> ends_;  ///< of events, in the journal
    std::string fault_;
};

TEST_F(StoreCrashTest, NothingToldIsLostWhereverPowerIsCut) {
    const auto triggers = std::ranges::count_if(
        journal, [](const Fact& fact) { return std::holds_alternative<StopTriggered>(fact); });
    ASSERT_EQ(triggers, 1);
    int operations = 0;
    {
        CutDisk disk;
        ASSERT_EQ(GoOn(), ends_.size());
        operations = disk.Operations();
    }
    ASSERT_GT(operations, 50);
    for (int cut = 1; cut <= operations; ++cut) {
        for (unsigned seed = 0; seed < Disks(); ++seed) {
            SCOPED_TRACE("operation " + std::to_string(cut) + ", disk " + std::to_string(seed));
            CutDisk disk;
            disk.CutAt(cut);
            const std::size_t told = GoOn();
            ASSERT_TRUE(disk.IsCut());
            disk.Restart(seed);
            ASSERT_NO_FATAL_FAILURE(ExpectWhole(told));
        }
    }
    RecordProperty("operations", operations);
}

TEST_F(StoreCrashTest, AStepThatFailsIsToldInWordsAndLeavesTheFileWhole) {
    const testing_support::TempFolder folder;
    const struct {
        int code;
        const char* words;
    } failures[] = {{SQLITE_OK, ""},
                    {SQLITE_FULL, "database or disk is full"},
                    {SQLITE_IOERR_WRITE, "disk I/O error"}};
    int steps = 1;
    int told_of = 0;
    for (int step = 1; step <= steps; ++step) {
        for (const auto& [code, words] : failures) {
            SCOPED_TRACE("step " + std::to_string(step) + ": " + words);
            for (const char* tail : {"", "-wal", "-journal"}) {
                std::filesystem::remove(kFile + std::string(tail));
            }
            WatchedDisk disk;
            disk.syncs = false;
            disk.before = [&, failure = code](WatchedDisk::Step, int number) {
                return number == step ? failure : SQLITE_OK;
            };
            const std::size_t told = GoOn();
            if (code == SQLITE_OK) steps = disk.Steps();
            disk.before = {};
            if (told < ends_.size()) {
                ++told_of;
                EXPECT_THAT(fault_, testing::AnyOf(words, "unable to open database file"));
            }
            ASSERT_NO_FATAL_FAILURE(ExpectWhole(told));
        }
    }
    EXPECT_GT(steps, 50);
    EXPECT_GT(told_of, steps);
}

}  // namespace
}  // namespace papercore_tests
