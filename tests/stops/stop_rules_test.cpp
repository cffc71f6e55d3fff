#include "stops/stop_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <random>

#include "orderentry/number_rules.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"
#include "plugin/contract/ui_callback.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

CPresetStop StopOf(std::string_view contract) {
    CPresetStop stop{};
    text::CopyText(stop.szExchange, "SGE");
    text::CopyText(stop.szContract, contract);
    return stop;
}

/// The record with one value at the place of a double.
CPresetStop With(std::size_t offset, double value) {
    CPresetStop stop{};
    std::memcpy(reinterpret_cast<char*>(&stop) + offset, &value, sizeof value);
    return stop;
}

TEST(PresetStop, IsActiveByTheSixValuesThatSwitchARuleOn) {
    for (const std::size_t offset : {65U, 81U, 97U, 105U, 113U, 121U}) {
        SCOPED_TRACE(offset);
        EXPECT_TRUE(IsPresetStopActive(With(offset, 10)));
        EXPECT_FALSE(IsPresetStopActive(With(offset, 0.00005)));
        EXPECT_FALSE(IsPresetStopActive(With(offset, 0.0001)));
        EXPECT_FALSE(IsPresetStopActive(With(offset, -10)));
        EXPECT_FALSE(IsPresetStopActive(With(offset, kNan)));
    }
    EXPECT_FALSE(IsPresetStopActive(With(73, 10))) << "a pull-back alone";
    EXPECT_FALSE(IsPresetStopActive(With(89, 10))) << "a floating step alone";
}

TEST(PresetStop, IsDescribedInOneLineThatDiffersByPage) {
    CPresetStop stop = StopOf("Au(T+D)");
    stop.dLongStop = 290.5;
    stop.dLongProfit = 310.25;
    stop.dShortStop = 311;
    stop.dShortProfit = 289.125;
    stop.dStopTicks = 10;
    stop.dStopFloat = 2;
    stop.dProfitTicks = 20;
    stop.dProfitPullback = 3;
    EXPECT_GBK_EQ(
        "Au(T+D)预设止盈止损策略|绝对值做多止损:290.500,止盈:310.250|"
        "绝对值做空止损:311.000,止盈:289.125|相对止损:10.000,浮动:2.000|"
        "相对止盈:20.000,回撤:3.000|\n",
        DescribePresetStop(stop, StopPage::kOrderPage).text);
    EXPECT_GBK_EQ(
        "Au(T+D)预设止盈止损策略| 绝对值做多止损:290.500,止盈:310.250|"
        "绝对值做空止损:311.000,止盈:289.125|相对止损:10.0,浮动:2.0|"
        "相对止盈:20.0,回撤:3.0|\n",
        DescribePresetStop(stop, StopPage::kPanel).text);
}

TEST(PresetStop, SwitchedOffIsDescribedAsCancelled) {
    CPresetStop stop = StopOf("Ag(T+D)");
    stop.dStopFloat = 5;
    for (const StopPage page : {StopPage::kOrderPage, StopPage::kPanel}) {
        EXPECT_GBK_EQ("Ag(T+D)取消预设止盈止损!\n", DescribePresetStop(stop, page).text);
    }
}

TEST(PresetStop, DescriptionsOfAnyRecordStayInTheirBuffer) {
    std::mt19937 random(20);
    for (int i = 0; i < 10000; ++i) {
        CPresetStop stop{};
        auto* const bytes = reinterpret_cast<unsigned char*>(&stop);
        for (std::size_t at = 0; at < sizeof stop; ++at) {
            bytes[at] = static_cast<unsigned char>(random());
        }
        for (const StopPage page : {StopPage::kOrderPage, StopPage::kPanel}) {
            const StopDescription line = DescribePresetStop(stop, page);
            ASSERT_LT(text::FieldText(line.text).size(), sizeof line.text);
        }
    }
    CPresetStop huge = StopOf("Au(T+D)");
    huge.dLongStop = 1e300;
    EXPECT_EQ(255U, text::FieldText(DescribePresetStop(huge, StopPage::kPanel).text).size());
}

TEST(PresetStop, GoesToTheStatusLineWhenLogged) {
    tests::RecordingCore core;
    const tests::FrontEndDoors doors(core);
    LogPresetStop(StopOf("Au99.99"), StopPage::kPanel);
    ASSERT_EQ(1U, core.Calls().size());
    EXPECT_THAT(core.Calls()[0], testing::HasSubstr("Au99.99取消预设止盈止损!\n"));
    EXPECT_THAT(core.Calls()[0], testing::StartsWith("ShowStatusText("));
}

TEST(PresetStop, TitlesTellWhetherPositionsExist) {
    EXPECT_GBK_EQ("Au(T+D)预设止盈止损", PresetStopTitle("Au(T+D)"));
    EXPECT_TRUE(IsPresetStopTitle(PresetStopTitle("Au(T+D)").c_str()));
    EXPECT_TRUE(IsPresetStopTitle("预设"));
    EXPECT_FALSE(IsPresetStopTitle("Au(T+D)止盈止损"));
    EXPECT_FALSE(IsPresetStopTitle(""));
    EXPECT_FALSE(IsPresetStopTitle(nullptr));
    EXPECT_FALSE(IsPresetStopTitle("\xB0\xD4\xA4\xC9\xE8\xB0")) << "halves of other characters";
    const std::string title = PresetStopTitle(std::string(61, 'x').c_str());
    EXPECT_GBK_EQ(std::string(61, 'x') + "预", title) << "63 bytes, cut between characters";
}

struct StateCase {
    const char* reply;
    int validity;
    MarketVerdict verdict;
};

TEST(MarketState, DecidesWhetherStopsMayBeSet) {
    using enum MarketVerdict;
    const std::string long_field(500, 'x');
    const std::string long_head = long_field + "|b|c|Y|e|f|1";
    const std::string long_answer = "a|b|c|Y" + long_field + "|e|f|1";
    const std::string long_state = "a|b|c|Y|e|f|1" + long_field;
    const StateCase cases[] = {
        {"a|b|c|Y|e|f|1", 0, kAllowed},
        {"a|b|c|Y|e|f|1", 1, kAllowed},
        {"a|b|c|Y|e|f|1|more", 0, kAllowed},
        {"|||Y|||1", 0, kAllowed},
        {"a|b|c|Yes|e|f|1", 0, kAllowed},
        {"a|b|c|Y|e|f|2", 0, kRefused},
        {"a|b|c|Y|e|f|2", 1, kAllowed},
        {"a|b|c|Y|e|f|2", -1, kAllowed},
        {"a|b|c|Y|e|f|3", 1, kRefused},
        {"a|b|c|Y|e|f|0", 1, kRefused},
        {"a|b|c|Y|e|f|", 1, kRefused},
        {"a|b|c|Y|e|f", 1, kRefused},
        {"a|b|c|Y", 1, kRefused},
        {"a|b|c|N|e|f|1", 1, kQueryFailed},
        {"a|b|c|y|e|f|1", 1, kQueryFailed},
        {"a|b|c||e|f|1", 1, kQueryFailed},
        {"a|b|c", 1, kQueryFailed},
        {"a|b|Y", 1, kQueryFailed},
        {"Y", 1, kQueryFailed},
        {"", 1, kQueryFailed},
        {nullptr, 1, kQueryFailed},
        {long_head.c_str(), 0, kAllowed},
        {long_answer.c_str(), 0, kQueryFailed},
        {long_state.c_str(), 0, kRefused},
    };
    for (const StateCase& state : cases) {
        EXPECT_EQ(state.verdict, JudgeMarketState(state.reply, state.validity))
            << (state.reply ? state.reply : "null") << ", " << state.validity;
    }
}

TEST(MarketState, HeedsTheValidityThatIsStoredNow) {
    tests::RecordingCore core;
    const tests::FrontEndDoors doors(core);
    EXPECT_EQ(MarketVerdict::kRefused, CheckMarketState("a|b|c|Y|e|f|2"));
    core.trade_param.nValidity = 1;
    EXPECT_EQ(MarketVerdict::kAllowed, CheckMarketState("a|b|c|Y|e|f|2"));
}

TEST(MarketState, SurvivesRepliesOfAnyBytes) {
    std::mt19937 random(21);
    for (int i = 0; i < 10000; ++i) {
        std::string reply(random() % 600, '\0');
        for (char& byte : reply) {
            byte = random() % 8 == 0 ? '|' : static_cast<char>(random() % 256);
        }
        const MarketVerdict verdict = JudgeMarketState(reply.c_str(), 1);
        ASSERT_GE(verdict, MarketVerdict::kQueryFailed);
        ASSERT_LE(verdict, MarketVerdict::kAllowed);
    }
}

TEST(MarketState, IsAskedForByExchangeAndContract) {
    EXPECT_EQ("SGE|Au(T+D)", MarketStateRequest(StopOf("Au(T+D)")));
    CPresetStop full{};
    std::memset(full.szExchange, 'e', sizeof full.szExchange);
    std::memset(full.szContract, 'c', sizeof full.szContract);
    EXPECT_EQ(std::string(32, 'e') + "|" + std::string(32, 'c'), MarketStateRequest(full));
}

// One test, since the process keeps each text as it was read first.
TEST(StopPrompts, ComeFromTheFileOrHaveDefaults) {
    const testing_support::TempFolder folder;
    folder.Write(u8"cfg/Trade/ConditionPrompt.ini",
                 "[StopLossProfit]\r\nRefuseSetSLP=已收盘,100%s\\n明日再试\r\n");
    EXPECT_GBK_EQ("已收盘,100%s\n明日再试", MarketVerdictText(MarketVerdict::kRefused));
    EXPECT_GBK_EQ(
        "止损止盈单设置成功，如您设置的是永久有效，在每日19:00至开盘前，登录交易后自动启动.",
        MarketVerdictText(MarketVerdict::kAllowed));
    EXPECT_GBK_EQ("市场状态查询失败，禁止设置止盈止损条件单",
                  MarketVerdictText(MarketVerdict::kQueryFailed));
    const std::string rest =
        "止损止盈单设置成功，如您设置的是永久有效，请在每日19:00至开盘前，登录交易后手动启动，"
        "以确保您的止损止盈单生效";
    EXPECT_GBK_EQ("有效范围：永久有效。" + rest, StopNote(1));
    EXPECT_GBK_EQ("有效范围：当日有效。" + rest, StopNote(0));
}

}  // namespace
