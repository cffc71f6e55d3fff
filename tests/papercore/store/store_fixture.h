#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "papercore/store.h"
#include "tests/papercore/scenario.h"
#include "tests/support/temp_folder.h"

namespace papercore_tests {

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
        Buy(1).At(900.00);
        Buy(1).At(891.00);
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

    /// The bytes of the file and of its log.
    std::string Bytes() const {
        return temp_.Read(u8"account.db") + temp_.Read(u8"account.db-wal");
    }
    void Put(const std::string& bytes) const {
        for (const char* tail : {"-wal", "-shm", "-journal"})
            std::filesystem::remove(Path() + tail);
        temp_.Write(u8"account.db", bytes);
    }
    /// The file of the day.
    void Make() {
        Trade();
        const std::unique_ptr<Store> store = Open();
        Loaded(*store);
        KeepAll(*store);
    }

    testing_support::TempFolder temp_;
};

}  // namespace papercore_tests
