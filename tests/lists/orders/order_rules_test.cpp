#include <gmock/gmock.h>

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <ostream>

#include "lists/order_cell_rules.h"
#include "lists/order_list_rules.h"
#include "lists/order_status_rules.h"
#include "platform/text/bounded_text.h"
#include "tests/support/gbk_text.h"

namespace {

using lists::CellText;
using lists::CellWeight;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr COLORREF kRed = 0x0001F6;
constexpr COLORREF kGreen = 0x019900;
constexpr COLORREF kGrey = 0x555555;
constexpr COLORREF kBlue = 0xB26429;
constexpr COLORREF kViolet = 0xC04AC1;

CZebContract Contract(int digits, const char* market = "GT-T") {
    CZebContract contract{};
    contract.nPriceDigits = digits;
    text::CopyText(contract.szMarket, market);
    return contract;
}

CZebOrder OrderOf(const char* ref, char status = '1') {
    CZebOrder order{};
    text::CopyText(order.szOrderRef, ref);
    order.cStatus = status;
    return order;
}

TEST(OrderCells, HaveTheirPlaceWeightAndColour) {
    CZebOrder order{};
    text::CopyText(order.szTime, "09:30:15");
    text::CopyText(order.szContract, "Au(T+D)");
    text::CopyText(order.szRemark, "交易所已受理");
    text::CopyText(order.szOrderNo, "10023");
    order.cDirection = '1';
    order.cOffset = '1';
    order.cStatus = '2';
    order.nVolume = 12;
    order.nFilled = 5;
    order.dPrice = 280.25;
    const CZebContract contract = Contract(2);
    const struct {
        const char* text;
        COLORREF color;
        UINT format;
        CellWeight weight;
    } kCases[] = {
        {"09:30:15", kGrey, 36, CellWeight::kNormal},
        {"Au(T+D)", kBlue, 36, CellWeight::kBold},
        {"卖出", kGreen, 37, CellWeight::kNormal},
        {"平仓", kViolet, 37, CellWeight::kNormal},
        {"280.25", kGrey, 38, CellWeight::kNormal},
        {"12", kGrey, 38, CellWeight::kNormal},
        {"5", kGrey, 38, CellWeight::kNormal},
        {"部分成交", kGrey, 37, CellWeight::kNormal},
        {"交易所已受理", kGrey, 37, CellWeight::kNormal},
        {"10023", kGrey, 38, CellWeight::kNormal},
    };
    int column = 0;
    for (const auto& [words, color, format, weight] : kCases) {
        const CellText cell = OrderCell(order, column++, &contract);
        EXPECT_GBK_EQ(words, cell.text);
        EXPECT_EQ(color, cell.color) << column;
        EXPECT_EQ(format, cell.format) << column;
        EXPECT_EQ(weight, cell.weight) << column;
    }
    EXPECT_STREQ("", OrderCell(order, column, &contract).text);
    EXPECT_STREQ("", OrderCell(order, -1, &contract).text);
}

TEST(OrderCells, TellTheDirection) {
    const struct {
        char code;
        const char* text;
        COLORREF color;
    } kCases[] = {
        {'0', "买入", kRed}, {'1', "卖出", kGreen}, {'2', "-", kGrey}, {'\0', "-", kGrey}};
    for (const auto& [code, words, color] : kCases) {
        CZebOrder order{};
        order.cDirection = code;
        const CellText cell = OrderCell(order, kOrderDirectionColumn, nullptr);
        EXPECT_GBK_EQ(words, cell.text);
        EXPECT_EQ(color, cell.color);
    }
}

TEST(OrderCells, TellTheOffsetWhereThereIsOne) {
    const CZebContract deferred = Contract(2);
    const CZebContract spot = Contract(2, "GT-S");
    const struct {
        char code;
        const CZebContract* contract;
        const char* text;
        COLORREF color;
    } kCases[] = {
        {'0', &deferred, "开仓", kGrey}, {'1', &deferred, "平仓", kViolet},
        {'2', &deferred, "平今", kGrey}, {'3', &deferred, "-", kGrey},
        {'\0', &deferred, "-", kGrey},   {'0', nullptr, "开仓", kGrey},
        {'1', nullptr, "平仓", kViolet}, {'0', &spot, "-", kGrey},
        {'1', &spot, "-", kGrey},        {'2', &spot, "-", kGrey},
    };
    for (const auto& [code, contract, words, color] : kCases) {
        CZebOrder order{};
        order.cOffset = code;
        const CellText cell = OrderCell(order, kOrderOffsetColumn, contract);
        EXPECT_GBK_EQ(words, cell.text) << code;
        EXPECT_EQ(color, cell.color) << code;
    }
}

TEST(OrderCells, PrintPricesByTheContractsDigits) {
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    constexpr int kUnknown = -99;  // no contract
    const struct {
        double price;
        int digits;
        const char* text;
    } kCases[] = {
        {280.1239, 3, "280.124"},
        {280.1239, 2, "280.12"},
        {280.6, 1, "281"},
        {280.6, 0, "280"},
        {280.6, 4, "280"},
        {280.6, -1, "280"},
        {280.6, kUnknown, "280.600"},
        {0.001, 3, "0.001"},
        {0.001, 0, "0"},
        {0.00099, 3, "市价"},
        {0, kUnknown, "市价"},
        {-5, 2, "市价"},
        {-kInfinite, 2, "市价"},
        {1e12, 2, "1000000000000.00"},
        {1e12, 0, "2147483647"},
        {kInfinite, 0, "2147483647"},
        {std::nan(""), 0, "0"},
    };
    for (const auto& [price, digits, words] : kCases) {
        CZebOrder order{};
        order.dPrice = price;
        const CZebContract contract = Contract(digits);
        EXPECT_GBK_EQ(
            words,
            OrderCell(order, kOrderPriceColumn, digits == kUnknown ? nullptr : &contract).text);
    }
}

TEST(OrderCells, AddUpVolumesThatAreOnlyToldInParts) {
    constexpr int kMost = std::numeric_limits<int>::max();
    const struct {
        int volume;
        int filled;
        int remaining;
        const char* text;
    } kCases[] = {{12, 5, 3, "12"},
                  {0, 5, 3, "8"},
                  {0, 0, 0, "0"},
                  {-1, 5, 3, "-1"},
                  {0, kMost, 1, "-2147483648"}};
    for (const auto& [volume, filled, remaining, words] : kCases) {
        CZebOrder order{};
        order.nVolume = volume;
        order.nFilled = filled;
        order.nRemaining = remaining;
        EXPECT_STREQ(words, OrderCell(order, kOrderVolumeColumn, nullptr).text);
    }
}

TEST(OrderCells, EndWithFieldsThatAreFullToTheLastByte) {
    CZebOrder order;
    std::memset(&order, '7', sizeof order);
    EXPECT_EQ(std::string(sizeof order.szTime, '7'),
              OrderCell(order, kOrderTimeColumn, nullptr).text);
    EXPECT_EQ(std::string(sizeof order.szOrderNo, '7'),
              OrderCell(order, kOrderNumberColumn, nullptr).text);
    EXPECT_EQ(std::string(sizeof order.szOrderRef, '7'), MakeCancelRequest(order).order_ref);
}

TEST(OrderStatus, HasWordsAndTellsWhatCanBeCancelled) {
    const struct {
        char code;
        const char* text;
        bool cancellable;
    } kKnown[] = {
        {'0', "正在申报", true},      {'1', "已申报", true},    {'2', "部分成交", true},
        {'3', "全部成交", false},     {'4', "已撤", false},     {'5', "部成部撤", false},
        {'6', "待撤", false},         {'7', "部成待撤", false}, {'e', "废单", false},
        {'p', "本地开盘触发", false},
    };
    std::array<bool, 256> known{};
    for (const auto& [code, words, cancellable] : kKnown) {
        EXPECT_GBK_EQ(words, OrderStatusText(code));
        EXPECT_EQ(cancellable, IsCancellable(code)) << code;
        known[static_cast<unsigned char>(code)] = true;
    }
    for (std::size_t code = 0; code < known.size(); ++code) {
        if (known[code]) continue;
        EXPECT_GBK_EQ("未知", OrderStatusText(static_cast<char>(code)));
        EXPECT_FALSE(IsCancellable(static_cast<char>(code))) << code;
    }
}

TEST(OrderList, KnowsNoRowBeforeTheFirstOrBehindTheLast) {
    const std::array orders{OrderOf("1", '3'), OrderOf("2", '0')};
    EXPECT_FALSE(IsRowCancellable(orders, -1));
    EXPECT_FALSE(IsRowCancellable(orders, 0));
    EXPECT_TRUE(IsRowCancellable(orders, 1));
    EXPECT_FALSE(IsRowCancellable(orders, 2));
    EXPECT_FALSE(IsRowCancellable(std::span(orders).first(1), 1));
    EXPECT_FALSE(IsRowCancellable({}, 0));
    EXPECT_TRUE(IsAnyCancellable(orders));
    EXPECT_FALSE(IsAnyCancellable(std::span(orders).first(1)));
    EXPECT_FALSE(IsAnyCancellable({}));
}

TEST(OrderList, KeepsTheCancellableOnesInTheirOrder) {
    EArray<CZebOrder> orders(32);
    const auto refs = [&orders] {
        std::vector<std::string> kept;
        for (int i = 0; i < orders.GetCount(); ++i)
            kept.emplace_back(orders.GetData()[i].szOrderRef);
        return kept;
    };
    KeepCancellable(orders);
    EXPECT_THAT(refs(), IsEmpty());
    const char kCodes[] = "0123e4x15";
    orders.SetSize(9);
    for (int i = 0; i < 9; ++i) orders.GetData()[i] = OrderOf(std::to_string(i).c_str(), kCodes[i]);
    KeepCancellable(orders);
    EXPECT_THAT(refs(), ElementsAre("0", "1", "2", "7"));
    for (int i = 0; i < 4; ++i) orders.GetData()[i].cStatus = '3';
    KeepCancellable(orders);
    EXPECT_THAT(refs(), IsEmpty());
}

TEST(OrderList, PutsTheHighestNumberFirstAndKeepsTheCoresOrderElse) {
    std::vector<CZebOrder> orders;
    int time = 0;
    for (const char* ref : {"9", "abc", "10", "", "-3", "10x", " 2", "007", "99999999999"}) {
        orders.push_back(OrderOf(ref));
        text::FormatText(orders.back().szTime, sizeof orders.back().szTime, "%d", time++);
    }
    SortOrders(orders);
    std::string times;
    for (const CZebOrder& order : orders) times += order.szTime;
    EXPECT_EQ("825076134", times);
}

TEST(OrderList, ReadsNoFurtherThanTheReference) {
    CZebOrder full{};
    std::fill(std::begin(full.szOrderRef), std::end(full.szOrderRef), '0');
    full.szOrderRef[sizeof full.szOrderRef - 1] = '5';
    full.nVolume = 0x39393939;  // digits behind it
    std::vector<CZebOrder> orders{full, OrderOf("7")};
    SortOrders(orders);
    EXPECT_STREQ("7", orders[0].szOrderRef);
}

TEST(OrderList, LeavesTheEndsOfRecordsWhereTheyAre) {
    std::vector<CZebOrder> orders;
    for (const char* ref : {"1", "2", "3"}) {
        CZebOrder order;
        std::memset(&order, *ref, sizeof order);
        text::CopyText(order.szOrderRef, ref);
        orders.push_back(order);
    }
    SortOrders(orders);
    std::string before;
    std::string behind;
    for (const CZebOrder& order : orders) {
        before += reinterpret_cast<const char*>(&order)[823];
        behind += reinterpret_cast<const char*>(&order)[824];
    }
    EXPECT_EQ("321", before);
    EXPECT_EQ("123", behind);
}

TEST(OrderList, CancelsAllThatCanBeInTheOrderOfTheList) {
    const std::array orders{OrderOf("9", '0'), OrderOf("8", '3'), OrderOf("7", '2'), OrderOf("6")};
    std::vector<std::string> refs;
    for (const CancelRequest& request : CancelRequestsOfAll(orders)) {
        refs.push_back(request.order_ref);
        EXPECT_EQ(request.order_ref, request.order.szOrderRef);
    }
    EXPECT_THAT(refs, ElementsAre("9", "7", "6"));
}

}  // namespace
