#include "orderentry/contract_rules.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "plugin/contract/core_access.h"
#include "plugin/settings/process_values.h"
#include "tests/orderentry/rules/trading.h"

namespace {

class Contracts : public tests::Trading {
protected:
    ~Contracts() override { CContractManager::ClearContracts(); }
};

TEST_F(Contracts, AreFoundByTheirExactCode) {
    CContractManager::AddContract(contract);
    CZebContract* const found = CContractManager::FindContract("Au(T+D)");
    ASSERT_NE(nullptr, found);
    EXPECT_NE(&contract, found) << "a copy";
    EXPECT_EQ(tests::BytesOf(contract), tests::BytesOf(*found));
    EXPECT_EQ(nullptr, CContractManager::FindContract("au(t+d)"));
    EXPECT_EQ(nullptr, CContractManager::FindContract("Au(T+D) "));
    EXPECT_EQ(nullptr, CContractManager::FindContract(""));
}

TEST_F(Contracts, KeepTheFirstRecordOfACodeUntilCleared) {
    CContractManager::AddContract(contract);
    contract.nUnit = 1;
    CContractManager::AddContract(contract);
    EXPECT_EQ(1000, static_cast<int>(CContractManager::FindContract("Au(T+D)")->nUnit));
    CContractManager::ClearContracts();
    EXPECT_EQ(nullptr, CContractManager::FindContract("Au(T+D)"));
    CContractManager::AddContract(contract);
    EXPECT_EQ(1, static_cast<int>(CContractManager::FindContract("Au(T+D)")->nUnit));
}

TEST_F(Contracts, WithCodesThatFillTheirFieldAreWhole) {
    std::memset(contract.szContract, 'x', sizeof contract.szContract);
    CContractManager::AddContract(contract);
    EXPECT_NE(nullptr, CContractManager::FindContract(std::string(32, 'x')));
    EXPECT_EQ(nullptr, CContractManager::FindContract(std::string(31, 'x')));
}

TEST_F(Contracts, OpenAndCloseUnlessTheMarketIsTheSpotMarket) {
    struct Case {
        const char* code;
        const char* market;
        bool has_offset;
    };
    constexpr Case kCases[] = {
        {"a", "GT-S", false}, {"b", "GT-F", true}, {"c", "gt-s", true},
        {"d", "GT-S ", true}, {"e", "", true},     {"f", "GT-SX", true},
    };
    for (const Case& expected : kCases) {
        CContractManager::AddContract(tests::MakeContract(expected.code, expected.market, 0.01, 2));
        EXPECT_EQ(expected.has_offset, HasOffset(expected.code)) << expected.market;
    }
    EXPECT_TRUE(HasOffset("unknown"));
    EXPECT_TRUE(HasOffset(nullptr));
}

TEST_F(Contracts, AreKnownToTheHostByName) {
    CHostSymbol found{};
    EXPECT_TRUE(GetSymbolByName(&found, "Au(T+D)"));
    EXPECT_EQ(kMarket | static_cast<unsigned>(kCode) << 16, PackSymbol(found));
    EXPECT_FALSE(GetSymbolByName(&found, "Ag(T+D)"));
    EXPECT_FALSE(GetSymbolByName(&found, nullptr));
    EXPECT_TRUE(GetSymbolInfo(kMarket, kCode, &found));
    EXPECT_EQ(2, static_cast<int>(found.nDigits));
    EXPECT_FALSE(GetSymbolInfo(kMarket, 1, &found));
    host.AddSymbol("", 7, 8, 2);
    EXPECT_FALSE(GetSymbolByName(&found, "")) << "found, but without a text";
    EXPECT_FALSE(GetSymbolInfo(7, 8, &found));
}

TEST_F(Contracts, AreSubscribedOnlyIfTheHostKnowsThem) {
    SubscribeSymbol("Ag(T+D)");
    EXPECT_THAT(host.CallsOf("HOST_SUBSCRIBE"), testing::IsEmpty());
    SubscribeSymbol("Au(T+D)");
    EXPECT_THAT(host.CallsOf("HOST_SUBSCRIBE"), testing::ElementsAre("HOST_SUBSCRIBE(12|345)"));
}

TEST_F(Contracts, AreNotFoundWithoutAHost) {
    g_pfnHostCallBack = nullptr;
    CHostSymbol found{};
    JSDyn1 quote{};
    EXPECT_FALSE(GetSymbolByName(&found, "Au(T+D)"));
    EXPECT_FALSE(GetQuoteByName(&quote, "Au(T+D)"));
    EXPECT_FALSE(GetSymbolInfo(kMarket, kCode, &found));
    SubscribeSymbol("Au(T+D)");
    GetQuote(&quote, PackSymbol(symbol));
    EXPECT_EQ(0, quote.dLast);
}

class Margins : public tests::Trading {
protected:
    Margins() {
        std::copy(std::begin(g_dMarginFactor), std::end(g_dMarginFactor), factors_.begin());
        // In the order of the enumeration: Ag, Au, mAu, Au100g, Au99.99, Au99.95
        constexpr double kFactors[] = {1, 2, 3, 4, 5, 6};
        std::copy(std::begin(kFactors), std::end(kFactors), g_dMarginFactor);
    }
    ~Margins() override {
        std::copy(factors_.begin(), factors_.end(), g_dMarginFactor);
        g_mapContractMargin = contracts_;
    }
    static double Margin(const char* code, double price) {
        const CZebContract contract = tests::MakeContract(code, "GT-F", 0.01, 2);
        return GetMarginPerLot(&contract, price);
    }

private:
    std::array<double, MARGIN_PRODUCT_COUNT> factors_{};
    std::map<std::string, double> contracts_ = g_mapContractMargin;
};

TEST_F(Margins, AreThoseOfTheContractBeforeThoseOfTheProduct) {
    g_mapContractMargin = {
        {"Au(T+D)", 0.5}, {"Ag(T+D)", 0}, {"mAu(T+D)", 1e-7}, {"x", 7}, {"Au99.99", -3}};
    struct Case {
        const char* code;
        double margin;
    };
    constexpr Case kCases[] = {
        {"Au(T+D)", 50},  {"Ag(T+D)", 100}, {"mAu(T+D)", 300}, {"Au100g", 400}, {"Au99.99", 500},
        {"Au99.95", 600}, {"x", 700},       {"y", 0},          {"", 0},         {"au100g", 0},
    };
    for (const Case& expected : kCases) {
        EXPECT_EQ(expected.margin, Margin(expected.code, 100)) << expected.code;
    }
    EXPECT_EQ(0, GetMarginPerLot(nullptr, 100));
}

TEST_F(Margins, AreNegativeAsLongAsNoProfileIsUsed) {
    std::fill(std::begin(g_dMarginFactor), std::end(g_dMarginFactor), -1.0);
    g_mapContractMargin.clear();
    EXPECT_EQ(-100, Margin("Au(T+D)", 100));
}

TEST_F(Margins, LoseTheirFractionAsIntegers) {
    g_mapContractMargin = {{"Au(T+D)", 0.5}};
    EXPECT_EQ(50, GetMarginPerLotInt(&contract, 101.9));
    EXPECT_EQ(std::numeric_limits<int>::max(), GetMarginPerLotInt(&contract, 1e30));
    EXPECT_EQ(0, GetMarginPerLotInt(&contract, std::numeric_limits<double>::quiet_NaN()));
    EXPECT_EQ(0, GetMarginPerLotInt(nullptr, 100));
}

}  // namespace
