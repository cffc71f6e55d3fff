#include "papercore/store.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <set>

#include "tests/papercore/scenario.h"
#include "tests/support/temp_folder.h"

namespace papercore_tests {
namespace {

namespace fs = std::filesystem;

class StoreTest : public Scenario {
protected:
    /// A day with everything that makes facts.
    void Trade() {
        Start(FenFromYuan(10'000'000));
        Feed().Previous(900.00).Bid(899.99, 50).Ask(900.00, 50).Last(900.00);
        Feed(kSpot).Previous(900.00).Bid(899.00, 50).Ask(900.00, 50).Last(900.00);
        Buy(3).At(900.00).Note("手动下单");
        ExpectAccepted();
        Buy(1).At(890.00).Note("\x81");
        CancelOrder();
        CPresetStop stop{};
        stop.dStopTicks = 10;
        stop.dStopFloat = 1;
        engine->SetPreset("SGE", kGold, stop);
        Buy(2).At(900.00);
        engine->SetLotStop(1, stop);
        Sell(1).Close().At(950.00);
        Feed().Bid(900.40, 50).Ask(900.45, 50).Last(900.45);
        Feed().Bid(899.80, 50).Ask(899.85, 50).Last(899.80);
        Buy(4).Of(kSpot).At(900.00);
        CTradeParam param{};
        param.nStopTicks = 3;
        engine->SetTradeParam(param);
        engine->ChangePassword("s", "h");
        EndDay(20260106, {{kGold, 901.00}, {kSpot, 900.50}});
        Feed().Day(20260106).Bid(899.99, 50).Ask(900.00, 50).Last(900.00);
        engine->WakeStops();
        Note();
    }

    std::string Path() const { return (temp_.path() / "account.db").string(); }
    std::unique_ptr<Store> Open() {
        std::string error;
        std::unique_ptr<Store> store = OpenStore(Path(), error);
        EXPECT_TRUE(store) << error;
        return store;
    }
    std::string OpenFault() const {
        std::string error;
        const std::unique_ptr<Store> store = OpenStore(Path(), error);
        State loaded;
        return store ? store->Load(loaded) : error;
    }
    static State Loaded(Store& store) {
        State state;
        EXPECT_EQ(store.Load(state), "");
        return state;
    }
    void KeepAll(Store& store) {
        for (const Fact& fact : journal) ASSERT_EQ(store.Append({&fact, 1}), "");
    }

    testing_support::TempFolder temp_;
};

TEST_F(StoreTest, LinesAndStatesComeBackByteForByte) {
    Trade();
    std::set<std::size_t> kinds;
    for (const Fact& fact : journal) {
        kinds.insert(fact.index());
        const std::string line = FactLine(fact);
        EXPECT_EQ(line.find('\n'), std::string::npos);
        Fact read;
        ASSERT_TRUE(ReadFactLine(line, read)) << line;
        EXPECT_EQ(read.index(), fact.index());
        EXPECT_EQ(FactLine(read), line);
    }
    EXPECT_GE(kinds.size(), 10u) << "the day has too little in it: "
                                 << testing::PrintToString(kinds);
    State read;
    ASSERT_TRUE(ReadStateText(StateText(state()), read));
    EXPECT_EQ(StateText(read), StateText(state()));
}

TEST_F(StoreTest, WhatIsNoLineIsRefused) {
    Trade();
    std::mt19937 random(7);
    Fact fact;
    for (const char* line :
         {"", "x", "[]", "{}", R"({"fact":"none"})", R"({"fact":"day_begun"})",
          R"({"fact":"day_begun","day":"x"})", R"({"fact":"day_begun","day":99999999999})"}) {
        EXPECT_FALSE(ReadFactLine(line, fact)) << line;
    }
    for (const Fact& good : journal) {
        std::string line = FactLine(good);
        for (int change = 0; change < 20; ++change) {
            line[random() % line.size()] = static_cast<char>(random());
            State other = state();
            if (ReadFactLine(line, fact)) Apply(other, fact);
        }
    }
}

TEST_F(StoreTest, TheSameStateComesOutOfTheFile) {
    Trade();
    {
        const std::unique_ptr<Store> store = Open();
        Loaded(*store);
        KeepAll(*store);
    }
    const std::unique_ptr<Store> store = Open();
    EXPECT_EQ(StateText(Loaded(*store)), StateText(state()));
    std::size_t lines = 0;
    EXPECT_EQ(store->Export([&](std::string_view) { ++lines; }), "");
    EXPECT_EQ(lines, journal.size()) << "a snapshot takes nothing out of the journal";
    const std::unique_ptr<Store> memory = MemoryStore();
    KeepAll(*memory);
    EXPECT_EQ(StateText(Loaded(*memory)), StateText(state()));
}

TEST_F(StoreTest, AFileInUseIsLeftAlone) {
    const std::unique_ptr<Store> store = Open();
    Loaded(*store);
    EXPECT_EQ(OpenFault(), "is in use by another program");
}

TEST_F(StoreTest, OtherFilesAreRefusedAndStayAsTheyAre) {
    const auto content = [&] {
        std::ifstream file(Path(), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    std::ofstream(Path(), std::ios::binary) << std::string(5000, 'x');
    const std::string before = content();
    EXPECT_NE(OpenFault().find("is no account file"), std::string::npos) << OpenFault();
    EXPECT_EQ(content(), before);
    fs::remove(Path());
    fs::create_directory(Path());
    EXPECT_EQ(OpenFault(), "is a folder");
}

TEST_F(StoreTest, DamageIsToldAndNeverCrashes) {
    Trade();
    {
        const std::unique_ptr<Store> store = Open();
        Loaded(*store);
        KeepAll(*store);
    }
    std::string good;
    {
        std::ifstream file(Path(), std::ios::binary);
        good.assign(std::istreambuf_iterator<char>(file), {});
    }
    ASSERT_GT(good.size(), 8000u);
    std::mt19937 random(17);
    for (int round = 0; round < 150; ++round) {
        std::string bytes = good;
        const int changes = 1 + static_cast<int>(random() % 40);
        for (int change = 0; change < changes; ++change) {
            bytes[random() % bytes.size()] = static_cast<char>(random());
        }
        if (round % 5 == 0) bytes.resize(random() % bytes.size());
        for (const char* tail : {"", "-wal", "-shm"}) fs::remove(Path() + tail);
        std::ofstream(Path(), std::ios::binary) << bytes;
        OpenFault();
    }
}

}  // namespace
}  // namespace papercore_tests
