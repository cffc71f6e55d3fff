#include "orderentry/confirmation_rules.h"

#include <cstring>
#include <random>

#include "orderentry/contract_rules.h"
#include "tests/orderentry/rules/trading.h"

namespace {

CInsertOrderRequest RequestFor(std::string_view contract, char direction, char offset) {
    CInsertOrderRequest request{};
    text::CopyText(request.szContract, contract);
    text::CopyText(request.szPrice, "300.02");
    request.cDirection = direction;
    request.cOffset = offset;
    request.cOrderType = '0';
    request.nVolume = 12;
    return request;
}

TEST(Confirmation, IsSkippedForQuickClosesOnlyByBothSettings) {
    struct Case {
        int no_order;
        int no_close;
        bool asks_order;
        bool asks_close;
    };
    constexpr Case kCases[] = {
        {0, 0, true, true},   {0, 1, true, true},      {1, 0, false, true},
        {1, 1, false, false}, {-1, 256, false, false},
    };
    for (const Case& expected : kCases) {
        CTradeParam param{};
        param.bNoOrderConfirm = expected.no_order;
        param.bNoCloseConfirm = expected.no_close;
        EXPECT_EQ(expected.asks_order, MustConfirm(param, OrderOrigin::kOrderPage));
        EXPECT_EQ(expected.asks_close, MustConfirm(param, OrderOrigin::kQuickClose));
    }
}

TEST(Confirmation, TellsTheOrderInWords) {
    const ConfirmationText lines = DescribeOrder(RequestFor("Au(T+D)", '0', '0'));
    EXPECT_GBK_EQ("合约代码：Au(T+D)", lines.contract);
    EXPECT_GBK_EQ("买卖方向：买", lines.direction);
    EXPECT_GBK_EQ("开平方向：开仓", lines.offset);
    EXPECT_GBK_EQ("委托价格：300.02", lines.price);
    EXPECT_GBK_EQ("委托数量：12手", lines.volume);
    EXPECT_GBK_EQ("委托方式：限价", lines.order_type);
    EXPECT_GBK_EQ("买卖方向：卖", DescribeOrder(RequestFor("x", '1', '0')).direction);
    EXPECT_GBK_EQ("买卖方向：卖", DescribeOrder(RequestFor("x", '\0', '0')).direction);
    EXPECT_EQ(0x0A0AF4U, ConfirmationColor(RequestFor("x", '0', '0')));
    EXPECT_EQ(0x019900U, ConfirmationColor(RequestFor("x", '1', '0')));
}

TEST(Confirmation, KnowsOffsetsButNotOfSpotContracts) {
    CContractManager::AddContract(tests::MakeContract("spot", "GT-S", 0.01, 2));
    CContractManager::AddContract(tests::MakeContract("deferred", "GT-F", 0.01, 2));
    for (const char* code : {"deferred", "unknown"}) {
        EXPECT_GBK_EQ("开平方向：开仓", DescribeOrder(RequestFor(code, '0', '0')).offset);
        EXPECT_GBK_EQ("开平方向：平仓", DescribeOrder(RequestFor(code, '0', '1')).offset);
        EXPECT_GBK_EQ("开平方向：自动", DescribeOrder(RequestFor(code, '0', '2')).offset);
        EXPECT_GBK_EQ("开平方向：自动", DescribeOrder(RequestFor(code, '0', '\0')).offset);
    }
    for (const char offset : {'0', '1', '\0'}) {
        EXPECT_GBK_EQ("开平方向：-", DescribeOrder(RequestFor("spot", '0', offset)).offset);
    }
    CContractManager::ClearContracts();
}

TEST(Confirmation, HasAWordForEveryOrderType) {
    struct Case {
        char type;
        const char* text;
    };
    constexpr Case kCases[] = {
        {'0', "限价"},
        {'1', "市价"},
        {'a', "最优五档立即成交剩余撤单"},
        {'b', "最优五档立即成交剩余转限价"},
        {'c', "立即成交剩余撤单"},
        {'d', "全部成交否则撤单"},
        {'e', "对方最优价格"},
        {'f', "本方最优价格"},
        {'g', "未知"},
        {'2', "未知"},
        {'\0', "未知"},
        {'A', "未知"},
    };
    for (const Case& expected : kCases) {
        EXPECT_GBK_EQ(expected.text, OrderTypeText(expected.type));
    }
}

TEST(Confirmation, TellsAnyRecordWithinItsLines) {
    std::mt19937 random(6);
    for (int i = 0; i < 10000; ++i) {
        CInsertOrderRequest request{};
        auto* const bytes = reinterpret_cast<unsigned char*>(&request);
        for (std::size_t at = 0; at < 140; ++at) bytes[at] = static_cast<unsigned char>(random());
        const ConfirmationText lines = DescribeOrder(request);
        for (const auto* line : {&lines.contract, &lines.direction, &lines.offset, &lines.price,
                                 &lines.volume, &lines.order_type}) {
            ASSERT_LT(text::FieldText(*line).size(), sizeof *line);
        }
        ASSERT_EQ(text::FieldText(request.szPrice), text::FieldText(lines.price).substr(10));
    }
}

}  // namespace
