#include "orderentry/price_rules.h"

#include <cmath>
#include <limits>
#include <random>

#include "orderentry/number_rules.h"
#include "plugin/contract/core_access.h"
#include "tests/orderentry/rules/trading.h"

namespace {

using testing::ElementsAre;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

TEST(PriceWords, HaveCodesThatTravelWithTheOrder) {
    struct Case {
        const char* text;
        int code;
    };
    constexpr Case kCases[] = {
        {"对手价", 0}, {"最新价", 1}, {"挂单价", 2},           {"涨停价", 3},
        {"跌停价", 4}, {"市价", 5},   {"挂单价超一个价位", 6}, {"300.02", 6},
        {"", 6},       {nullptr, 6},  {"对手价 ", 6},          {"对手", 6},
    };
    for (const Case& expected : kCases) {
        EXPECT_EQ(expected.code, GetPriceType(expected.text));
    }
}

TEST(PriceWords, FillTheBoxByTheDefaultThatIsSet) {
    constexpr const char* kExpected[] = {"对手价", "最新价", "挂单价", "涨停价",
                                         "跌停价", "",       "",       "挂单价超一个价位"};
    for (unsigned row = 0; row < 8; ++row) EXPECT_GBK_EQ(kExpected[row], DefaultPriceText(row));
    EXPECT_EQ(nullptr, DefaultPriceText(8));
    EXPECT_EQ(nullptr, DefaultPriceText(255));
}

TEST(UsablePrices, AreFiniteAndAtLeastATenThousandth) {
    for (const double price : {0.0001, 0.0001 + 1e-8, 300.0, 1e300}) {
        EXPECT_TRUE(IsUsablePrice(price));
    }
    for (const double price : {0.0, 1e-8, 0.00009, -300.0, kInfinity, -kInfinity, kNan}) {
        EXPECT_FALSE(IsUsablePrice(price));
    }
}

class Prices : public tests::Trading {
protected:
    void Quote(double ask, double bid, double last) {
        JSDyn1 quote{};
        quote.dAsk[0] = ask;
        quote.dBid[0] = bid;
        quote.dLast = last;
        host.SetQuote(kKey, quote);
    }
    double Order(const char* text, char direction = '0') {
        return GetOrderPrice(text, direction, &contract, kMarket, kCode);
    }
    std::string Step(const char* text, int delta, char direction = '0') {
        char stepped[kPriceTextSize] = "unchanged";
        EXPECT_TRUE(StepPrice(text, delta, direction, &contract, symbol, stepped));
        return stepped;
    }
};

TEST_F(Prices, LieAHairAboveTheirTick) {
    Quote(300.00, 299.98, 299.99);
    core.trade_param.bOverPrice = 1;
    core.trade_param.nOverTicks = 2;
    EXPECT_DOUBLE_EQ(300.02 + 1e-8, Order("对手价"));
    EXPECT_DOUBLE_EQ(301.5 + 1e-8, Order("301.5"));
    EXPECT_DOUBLE_EQ(1e-8 - 1, Order(""));
    EXPECT_DOUBLE_EQ(1e-8 - 1, Order(nullptr));
    EXPECT_DOUBLE_EQ(1e-8, Order("abc"));
    EXPECT_EQ(0, Order("市价"));
    EXPECT_EQ(0, GetPanelPrice("市价", '0', &contract));
    EXPECT_DOUBLE_EQ(1e-8 - 1, GetPanelPrice("", '0', &contract));
    EXPECT_DOUBLE_EQ(1e-8 - 1, GetOrderPriceByType(5, '0', &contract, kMarket, kCode));
}

TEST_F(Prices, AreNoneWithoutAContract) {
    EXPECT_EQ(0, GetOrderPrice("300", '0', nullptr, kMarket, kCode));
    EXPECT_EQ(0, GetOrderPriceByType(0, '0', nullptr, kMarket, kCode));
    EXPECT_DOUBLE_EQ(1e-8, GetPanelPrice("对手价", '0', nullptr));
    EXPECT_THAT(core.Calls(), ElementsAre());
    EXPECT_THAT(host.Calls(), ElementsAre());
}

TEST_F(Prices, AskHostAndCoreAnewEachTime) {
    Quote(300.00, 299.98, 299.99);
    Order("对手价");
    Quote(301.00, 299.98, 299.99);
    EXPECT_DOUBLE_EQ(301 + 1e-8, Order("对手价"));
    EXPECT_THAT(host.Calls(), ElementsAre("HOST_GET_QUOTE(12|345)", "HOST_GET_QUOTE(12|345)"));
    EXPECT_EQ(2U, core.CallsOf("GetTradeParam").size());
}

TEST_F(Prices, AreUnusableWithoutCoreAndHost) {
    g_pfnHostCallBack = nullptr;
    g_pUICallBack = nullptr;
    EXPECT_DOUBLE_EQ(1e-8, Order("对手价"));
    EXPECT_DOUBLE_EQ(1e-8, GetPanelPrice("对手价", '0', &contract));
    char stepped[kPriceTextSize];
    EXPECT_TRUE(StepPrice("300", -1, '0', &contract, symbol, stepped));
    EXPECT_STREQ("300.010", stepped) << "nobody knows the decimal places";
}

TEST_F(Prices, FollowWhateverTheCoreAllows) {
    Quote(300, 299, kNan);
    core.trade_param.bOverPrice = -1;
    core.trade_param.nOverTicks = -2;
    EXPECT_DOUBLE_EQ(299.98 + 1e-8, Order("对手价"));
    core.trade_param.nOverTicks = std::numeric_limits<int>::max();
    EXPECT_FALSE(IsUsablePrice(Order("对手价", '1')));
    EXPECT_FALSE(IsUsablePrice(Order("最新价")));
    EXPECT_TRUE(std::isnan(Order("最新价")));
    contract.dPriceTick = kInfinity;
    EXPECT_FALSE(IsUsablePrice(Order("对手价")));
    EXPECT_FALSE(IsUsablePrice(Order("对手价", '1')));
}

TEST_F(Prices, StepByATickFromWhatTheBoxMeans) {
    Quote(300.00, 299.90, 299.95);
    struct Case {
        const char* text;
        int delta;
        const char* buy;
        const char* sell;
    };
    constexpr Case kCases[] = {
        {"对手价", -1, "300.01", "299.91"}, {"对手价", 1, "299.99", "299.89"},
        {"301.25", -1, "301.26", "301.26"}, {"301.25", 3, "301.22", "301.22"},
        {"", -1, "299.96", "299.96"},       {"市价", 1, "299.94", "299.94"},
        {"0.01", 1, "0.00", "0.00"},        {"0.02", 5, "0.00", "0.00"},
        {"abc", -1, "299.96", "299.96"},    {"-5", -1, "299.96", "299.96"},
        {"1e999", 1, "299.94", "299.94"},
    };
    for (const Case& expected : kCases) {
        SCOPED_TRACE(testing_support::Readable(expected.text));
        EXPECT_EQ(expected.buy, Step(expected.text, expected.delta, '0'));
        EXPECT_EQ(expected.sell, Step(expected.text, expected.delta, '1'));
    }
}

TEST_F(Prices, StepFromTheLastPriceInAnEmptyBook) {
    Quote(0, 0, 299.95);
    EXPECT_EQ("299.96", Step("对手价", -1));
    Quote(0, 0, 0);
    EXPECT_EQ("0.01", Step("对手价", -1));
    EXPECT_EQ("0.00", Step("对手价", 1));
    Quote(kNan, kNan, kInfinity);
    EXPECT_EQ("0.00", Step("对手价", -1));
}

TEST_F(Prices, StepAtTheHostsDigitsAndStayShort) {
    Quote(300, 299, 299.5);
    host.AddSymbol("Au(T+D)", kMarket, kCode, 1);
    EXPECT_EQ("301.0", Step("301", 0));
    host.AddSymbol("Au(T+D)", kMarket, kCode, -7);
    EXPECT_EQ("301.010", Step("301", -1));
    EXPECT_EQ(31U, Step("1e200", -1).size());
    symbol.wCode = 1;
    EXPECT_EQ("301.010", Step("301", -1)) << "a symbol that the host has forgotten";
}

TEST_F(Prices, DoNotStepWithoutContractOrSymbol) {
    char stepped[kPriceTextSize] = "unchanged";
    EXPECT_FALSE(StepPrice("300", -1, '0', nullptr, symbol, stepped));
    EXPECT_FALSE(StepPanelPrice("300", -1, nullptr, symbol, stepped));
    EXPECT_FALSE(StepPrice("300", -1, '0', &contract, CHostSymbol{}, stepped));
    EXPECT_STREQ("unchanged", stepped);
    EXPECT_EQ(1U, core.CallsOf("GetTradeParam").size()) << "resolved all the same";
}

TEST_F(Prices, StepOnAPanelFromTheBuyersPrice) {
    Quote(300.00, 299.90, 299.95);
    core.trade_param.bOverPrice = 1;
    core.trade_param.nOverTicks = 5;
    char stepped[kPriceTextSize];
    EXPECT_TRUE(StepPanelPrice("对手价", -1, &contract, symbol, stepped));
    EXPECT_STREQ("300.01", stepped);
    EXPECT_TRUE(StepPanelPrice("挂单价超一个价位", -1, &contract, symbol, stepped));
    EXPECT_STREQ("299.96", stepped) << "no word there, so from the last price";
}

TEST_F(Prices, OfAnyTextAreNumbersOrRefused) {
    Quote(300.00, 299.90, 299.95);
    std::mt19937 random(3);
    for (int i = 0; i < 10000; ++i) {
        std::string text(random() % 32, '\0');
        for (char& byte : text) {
            byte =
                random() % 2 ? static_cast<char>(random() % 256) : "0123456789.e-"[random() % 13];
        }
        const double price = Order(text.c_str(), random() % 2 ? '0' : '1');
        ASSERT_FALSE(std::isnan(price));
        char stepped[kPriceTextSize];
        ASSERT_TRUE(StepPrice(text.c_str(), -1, '0', &contract, symbol, stepped));
        ASSERT_GT(text::FieldText(stepped).size(), 0U);
        ASSERT_EQ(std::string::npos, text::FieldText(stepped).find_first_not_of("0123456789."));
    }
}

}  // namespace
