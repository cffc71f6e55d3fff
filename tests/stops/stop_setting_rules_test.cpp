#include "stops/stop_setting_rules.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "platform/text/bounded_text.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

CZebContract Silver() {
    CZebContract contract{};
    text::CopyText(contract.szContract, "Ag(T+D)");
    contract.dPriceTick = 0.5;
    contract.nPriceDigits = 1;
    return contract;
}

TEST(StopSettings, AreCopiedFieldByFieldAndTouchNothingElse) {
    CTradeParam param{};
    auto* const bytes = reinterpret_cast<unsigned char*>(&param);
    for (std::size_t i = 0; i < sizeof param; ++i) bytes[i] = static_cast<unsigned char>(i * 7);
    const CTradeParam before = param;

    StopSettings settings = StopSettingsOf(param);
    EXPECT_EQ(bytes[93], settings.m_nStopTriggerPrice);
    EXPECT_EQ(bytes[98], settings.m_nProfitTriggerPrice);
    EXPECT_EQ(bytes[99], settings.m_nStopOrderPrice);
    EXPECT_EQ(bytes[100], settings.m_nProfitOrderPrice);
    PutStopSettings(param, settings);
    EXPECT_EQ(0, std::memcmp(&before, &param, sizeof param)) << "there and back";

    PutStopSettings(param, {.m_nStopTicks = 1,
                            .m_nStopTriggerPrice = 2,
                            .m_nProfitTicks = 3,
                            .m_nProfitTriggerPrice = 4,
                            .m_nStopOrderPrice = 5,
                            .m_nProfitOrderPrice = 6,
                            .m_nProfitAdjust = -3,
                            .m_nStopAdjust = 8,
                            .m_bAutoChase = 1,
                            .m_nValidity = 1});
    constexpr unsigned char kExpected[28] = {1,    0,    0, 0, 2, 3, 0, 0, 0, 4, 5, 6, 0xFD, 0xFF,
                                             0xFF, 0xFF, 8, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0,    0};
    EXPECT_EQ(0, std::memcmp(kExpected, bytes + 89, sizeof kExpected));
    EXPECT_EQ(0, std::memcmp(&before, &param, 89));
    EXPECT_EQ(0, std::memcmp(reinterpret_cast<const char*>(&before) + 117, bytes + 117,
                             sizeof param - 117));
}

TEST(StopSettings, RowsOfAListFitAByteOrAreTheFirst) {
    EXPECT_EQ(4, RowNumber(4));
    EXPECT_EQ(0, RowNumber(-1));
    EXPECT_EQ(0, RowNumber(256));
}

struct RelativeCase {
    double ticks;
    double step;
    bool on;
    bool fixed;
    bool floating;
    const char* fixed_distance;
    const char* distance;
    const char* step_text;
};

void ExpectRule(const RelativeCase& expected, const RelativeRule& rule) {
    SCOPED_TRACE(std::to_string(expected.ticks) + ", " + std::to_string(expected.step));
    EXPECT_EQ(expected.on, rule.on);
    EXPECT_EQ(expected.fixed, rule.fixed);
    EXPECT_EQ(expected.floating, rule.floating);
    EXPECT_EQ(expected.fixed_distance, rule.fixed_distance);
    EXPECT_EQ(expected.distance, rule.distance);
    EXPECT_EQ(expected.step_text, rule.step);
}

TEST(RelativeStop, ShowsWhatIsStored) {
    constexpr RelativeCase kBoth[] = {
        {0, 0, false, false, false, "", "", ""},    {1e-5, 3, false, false, false, "", "", ""},
        {10, 0, true, true, false, "10", "", ""},   {10, 2, true, false, true, "", "10", "2"},
        {kNan, 2, false, false, false, "", "", ""}, {10, kNan, true, false, false, "", "", ""},
        {10, 1e-5, true, false, false, "", "", ""},
    };
    for (const RelativeCase& expected : kBoth) {
        CPresetStop stop{};
        stop.dStopTicks = expected.ticks;
        stop.dStopFloat = expected.step;
        ExpectRule(expected, StopRuleOf(stop));
        stop = {};
        stop.dProfitTicks = expected.ticks;
        stop.dProfitPullback = expected.step;
        ExpectRule(expected, ProfitRuleOf(stop));
    }
    CPresetStop between{};
    between.dStopTicks = between.dProfitTicks = 10;
    between.dStopFloat = between.dProfitPullback = 0.00005;
    ExpectRule({10, 0.00005, true, false, false, "", "", ""}, StopRuleOf(between));
    ExpectRule({10, 0.00005, true, false, true, "", "10", "0"}, ProfitRuleOf(between));
}

TEST(RelativeStop, StoresWhatIsShown) {
    struct Case {
        RelativeRule rule;
        double ticks;
        double step;
    };
    const Case cases[] = {
        {{false, true, true, "10", "20", "2"}, 0, 0},
        {{true, true, false, "10", "20", "2"}, 10, 0},
        {{true, false, true, "10", "20", "2"}, 20, 2},
        {{true, false, false, "10", "20", "2"}, 0, 0},
        {{true, true, false, "", "20", "2"}, 0, 0},
        {{true, false, true, "", "99999999999", "x"}, 2147483647, 0},
    };
    for (const Case& expected : cases) {
        const RelativeDistance distance = DistanceOf(expected.rule);
        EXPECT_EQ(expected.ticks, distance.ticks);
        EXPECT_EQ(expected.step, distance.step);
    }
}

TEST(AbsoluteStop, IsAPriceOfTheContract) {
    const CZebContract contract = Silver();
    EXPECT_EQ("5012.5", AbsolutePriceText(5012.5, contract));
    EXPECT_EQ("", AbsolutePriceText(0.0001, contract));
    EXPECT_EQ("", AbsolutePriceText(kNan, contract));
    EXPECT_EQ("", AbsolutePriceText(kInfinity, contract));
    EXPECT_EQ(63U, AbsolutePriceText(1e300, contract).size());
    EXPECT_EQ(5012.5, AbsolutePrice(true, "5012.5"));
    EXPECT_EQ(0, AbsolutePrice(false, "5012.5"));
    EXPECT_EQ(0, AbsolutePrice(true, "inf"));
    EXPECT_EQ(0, AbsolutePrice(true, "1e999"));
    EXPECT_EQ(-1, AbsolutePrice(true, "-1")) << "nothing is checked here";
    EXPECT_EQ(0, AbsolutePrice(true, nullptr));
}

TEST(AbsoluteStop, IsSuggestedTwentyTicksAway) {
    tests::RecordingCore core;
    tests::RecordingHost host;
    const tests::FrontEndDoors doors(core, host);
    const CZebContract contract = Silver();
    EXPECT_EQ("", SuggestedPrice(&contract, 1)) << "the host does not know it";
    EXPECT_EQ("", SuggestedPrice(nullptr, 1));
    JSDyn1 quote{};
    quote.dLast = 5000;
    host.SetQuote(host.AddSymbol("Ag(T+D)", 3, 4, 1), quote);
    EXPECT_EQ("5010.0", SuggestedPrice(&contract, 1));
    EXPECT_EQ("4990.0", SuggestedPrice(&contract, -1));
    quote.dLast = kNan;
    host.SetQuote(3, 4, quote);
    EXPECT_EQ("", SuggestedPrice(&contract, -1));
}

TEST(StopSpins, StepPricesByTicksAndNoLowerThanOne) {
    const CZebContract contract = Silver();
    struct Case {
        const char* text;
        int delta;
        const char* stepped;
    };
    constexpr Case kCases[] = {
        {"5000.0", -1, "5000.5"}, {"5000.0", 1, "4999.5"}, {"0.5", 1, "0.5"},
        {"", 1, "0.5"},           {"abc", -1, "0.5"},      {"-7", -1, "0.5"},
    };
    for (const Case& expected : kCases) {
        EXPECT_EQ(expected.stepped, SteppedStopPrice(expected.text, expected.delta, contract))
            << expected.text;
    }
    EXPECT_EQ("-3", SteppedAdjustment("-2", 1));
    EXPECT_EQ("1", SteppedAdjustment("", -1));
    EXPECT_EQ("2147483647", SteppedAdjustment("99999999999", -1));
    EXPECT_EQ("-2147483648", SteppedAdjustment("-99999999999", 2147483647));
}

TEST(StopSpins, NeverShowWhatIsNoNumber) {
    CZebContract broken = Silver();
    broken.nPriceDigits = -5;
    EXPECT_EQ("0.500", SteppedStopPrice("1e999", -1, broken));
    for (const double tick : {kInfinity, -kInfinity, kNan}) {
        broken.dPriceTick = tick;
        EXPECT_EQ("5000.000", SteppedStopPrice("5000", -1, broken));
        EXPECT_EQ("0.000", SteppedStopPrice("", 0, broken));
    }
}

}  // namespace
