#include "plugin/settings/start_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "plugin/settings/process_values.h"
#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

class StartSettingsTest : public testing::Test {
protected:
    ~StartSettingsTest() override { ReadWithout(); }

    void Read(std::string_view server, std::string_view trade = "") {
        folder_.Write(u8"TradeServer_KX_Gold.ini", server);
        folder_.Write(u8"Cfg/Trade/TradeParam.ini", trade);
        ReadStartSettings();
    }
    /// Back to what holds without files.
    static void ReadWithout() {
        const testing_support::TempFolder empty;
        ReadStartSettings();
    }

    testing_support::TempFolder folder_;
};

TEST_F(StartSettingsTest, ReadsFactorsAndMarginsForProfileOneOnly) {
    for (const char* profile : {"", "useProfile=\n", "useProfile=0\n", "useProfile=2\n",
                                "useProfile=x\n", "useProfile=-1\n"}) {
        Read(std::string("[gtserver]\nAg(T+D)=0.1\n") + profile + "[ContractMargin]\na=2\n");
        EXPECT_THAT(g_dMarginFactor, Each(-1.0)) << profile;
        EXPECT_THAT(g_mapContractMargin, IsEmpty()) << profile;
    }
    EXPECT_EQ(-1, g_nUseProfile);
}

TEST_F(StartSettingsTest, ReadsEachProductsFactor) {
    Read(
        "[gtserver]\nuseProfile=1 yes\nAg(T+D)=0.1\nAu(T+D)=0.2\nmAu(T+D)=0.3\nAu100g=0.4\n"
        "Au99.99=0.5\nAu99.95=0.6\n");
    EXPECT_EQ(1, g_nUseProfile);
    EXPECT_THAT(g_dMarginFactor, ElementsAre(0.1, 0.2, 0.3, 0.4, 0.5, 0.6));
    EXPECT_THAT(g_mapContractMargin, IsEmpty());
}

TEST_F(StartSettingsTest, TakesAMissingFactorForNought) {
    Read("[gtserver]\nuseProfile=1\nAu100g=12.5x\nAu99.99=x\n");
    EXPECT_THAT(g_dMarginFactor, ElementsAre(0.0, 0.0, 0.0, 12.5, 0.0, 0.0));
}

TEST_F(StartSettingsTest, ReadsMarginsByContract) {
    Read(
        "[gtserver]\r\nuseProfile=1\r\n[ContractMargin]\r\nAu(T+D)=12.5\r\n铂金= 3\r\nAg=x\r\n"
        ";Au=4\r\nAu(T+D)=99\r\n[other]\r\nb=5\r\n");
    EXPECT_THAT(g_mapContractMargin,
                UnorderedElementsAre(Pair("Au(T+D)", 12.5), Pair("铂金", 3.0), Pair("Ag", 0.0)));
}

TEST_F(StartSettingsTest, ForgetsTheFormerSettings) {
    Read("[gtserver]\nuseProfile=1\nAu100g=2\n[ContractMargin]\na=2\n", "[GOLD]\nNeedShow=0\n");
    ReadWithout();
    EXPECT_EQ(0, g_nUseProfile);
    EXPECT_THAT(g_dMarginFactor, Each(-1.0));
    EXPECT_THAT(g_mapContractMargin, IsEmpty());
    EXPECT_EQ(1, g_bNeedShowStopLossAndProfit);
}

TEST_F(StartSettingsTest, OffersStopsUnlessTheFileSaysOtherwise) {
    const struct {
        const char* content;
        int expected;
    } cases[] = {
        {"", 1},
        {"[GOLD]\nNeedShowStopLossAndProfit=0\n", 0},
        {"[gold]\nneedshowstoplossandprofit=1\n", 1},
        {"[GOLD]\nNeedShowStopLossAndProfit=2\n", 2},
        {"[GOLD]\nNeedShowStopLossAndProfit=-1\n", -1},
        {"[GOLD]\nNeedShowStopLossAndProfit=no\n", 0},
        {"[OTHER]\nNeedShowStopLossAndProfit=0\n", 1},
    };
    for (const auto& c : cases) {
        Read("", c.content);
        EXPECT_EQ(c.expected, g_bNeedShowStopLossAndProfit) << c.content;
    }
}

TEST_F(StartSettingsTest, LastsThroughFilesOfAnyContent) {
    constexpr std::size_t kSize = 10'000'000;
    const std::string head = "[gtserver]\nuseProfile=1\n[ContractMargin]\n";
    for (const char filler : {'=', '\0', '1'}) {
        const std::string content = head + std::string(kSize, filler);
        Read(content, content);
        EXPECT_EQ(1, g_nUseProfile) << static_cast<int>(filler);
        EXPECT_EQ(1, g_bNeedShowStopLossAndProfit) << static_cast<int>(filler);
    }
    std::mt19937 random(3);
    std::string bytes(300'000, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    Read(bytes, bytes);
    EXPECT_EQ(0, g_nUseProfile);
    EXPECT_EQ(1, g_bNeedShowStopLossAndProfit);
}

TEST_F(StartSettingsTest, LastsWhereTheFilesAreFolders) {
    folder_.Write(u8"TradeServer_KX_Gold.ini/x", "");
    folder_.Write(u8"Cfg/Trade/TradeParam.ini/x", "");
    ReadStartSettings();
    EXPECT_EQ(0, g_nUseProfile);
    EXPECT_EQ(1, g_bNeedShowStopLossAndProfit);
}

}  // namespace
