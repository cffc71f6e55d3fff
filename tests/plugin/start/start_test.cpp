#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>

#include "platform/system.h"
#include "plugin/qm_gold_trade_ui_app.h"
#include "plugin/qm_interface_ui.h"
#include "plugin/settings/application_directory.h"
#include "plugin/settings/process_values.h"
#include "tests/support/temp_folder.h"

namespace {

using testing_support::TempFolder;

// A process starts the library once, so each case has a process of its own.

void WriteSettings(const TempFolder& folder, const std::string& factor) {
    folder.Write(u8"TradeServer_KX_Gold.ini", "[gtserver]\nuseProfile=1\nAu100g=" + factor + "\n");
    folder.Write(u8"Cfg/Trade/TradeParam.ini", "[GOLD]\nNeedShowStopLossAndProfit=0\n");
}

[[noreturn]] void EndWith(bool right) { std::_Exit(right ? 0 : 1); }

bool IsStartedIn(const TempFolder& folder, double factor) {
    const auto before = std::filesystem::current_path();
    RestoreApplicationDirectory();
    const auto remembered = std::filesystem::current_path();
    std::filesystem::current_path(before);
    return std::filesystem::equivalent(remembered, folder.path()) && g_nUseProfile == 1 &&
           g_dMarginFactor[MARGIN_AU100G] == factor && g_bNeedShowStopLossAndProfit == 0 &&
           ::OleInitialize(nullptr) == S_FALSE;
}

bool IsUntouched() {
    return ApplicationDirectory().empty() && g_nUseProfile == 0 &&
           g_dMarginFactor[MARGIN_AU100G] == -1.0 && g_bNeedShowStopLossAndProfit == 1;
}

TEST(Start, WaitsUntilTheFirstCall) {
    EXPECT_EXIT(EndWith(IsUntouched()), testing::ExitedWithCode(0), "");
}

TEST(Start, TakesDirectoryAndSettingsAtTheFirstCallAndNeverAgain) {
    const TempFolder first;
    WriteSettings(first, "2");
    const auto start_twice = [&] {
        EnsureStarted();
        if (!IsStartedIn(first, 2)) EndWith(false);
        const TempFolder second;
        WriteSettings(second, "3");
        EnsureStarted();
        EndWith(IsStartedIn(first, 2));
    };
    EXPECT_EXIT(start_twice(), testing::ExitedWithCode(0), "");
}

TEST(Start, IsBroughtAboutByEachDoor) {
    const struct {
        const char* name;
        std::function<void()> pass;
    } doors[] = {
        {"SetCallBack", [] { QmInterfaceUI::SetCallBack(nullptr); }},
        {"construction", [] { const QmInterfaceUI ui; }},
    };
    const TempFolder folder;
    WriteSettings(folder, "2");
    for (const auto& door : doors) {
        const auto pass = [&] {
            door.pass();
            EndWith(IsStartedIn(folder, 2));
        };
        EXPECT_EXIT(pass(), testing::ExitedWithCode(0), "") << door.name;
    }
}

TEST(Start, LastsWithoutAnyFile) {
    const TempFolder empty;
    const auto start = [] {
        EnsureStarted();
        EndWith(g_nUseProfile == 0 && g_bNeedShowStopLossAndProfit == 1 &&
                !ApplicationDirectory().empty());
    };
    EXPECT_EXIT(start(), testing::ExitedWithCode(0), "");
}

TEST(Start, NamesTheApplication) {
    EXPECT_STREQ("QmGoldTradeUI", AfxGetStaticModuleState()->App().m_pszAppName);
}

}  // namespace
