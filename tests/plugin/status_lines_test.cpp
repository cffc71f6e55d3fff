#include "plugin/status_lines.h"

#include <gtest/gtest.h>

#include <cstring>

#include "lists/order_status_rules.h"
#include "platform/text/bounded_text.h"
#include "tests/support/gbk_text.h"

namespace {

CZebOrder Order(char direction, char offset, char hedge, char status) {
    CZebOrder order{};
    text::CopyText(order.szContract, "Au(T+D)");
    text::CopyText(order.szOrderNo, "000017");
    order.cDirection = direction;
    order.cOffset = offset;
    order.cHedge = hedge;
    order.cStatus = status;
    order.dPrice = 301.256;
    order.nVolume = 5;
    order.nFilled = 2;
    return order;
}

TEST(OrderStatus, HasWordsForEveryCodeAndMarksWhatCanBeCancelled) {
    struct {
        char code;
        const char* words;
        bool cancellable;
    } const cases[] = {
        {'0', "正在申报", true},      {'1', "已申报", true},    {'2', "部分成交", true},
        {'3', "全部成交", false},     {'4', "已撤", false},     {'5', "部成部撤", false},
        {'6', "待撤", false},         {'7', "部成待撤", false}, {'e', "废单", false},
        {'p', "本地开盘触发", false}, {'x', "未知", false},     {'\0', "未知", false},
        {'8', "未知", false},         {'\xFF', "未知", false},
    };
    for (const auto& one : cases) {
        EXPECT_GBK_EQ(one.words, OrderStatusText(one.code));
        EXPECT_EQ(one.cancellable, IsCancellable(one.code)) << one.code;
    }
}

TEST(OrderStatus, TakesTheVolumeFromItsPartsWhenItIsZero) {
    CZebOrder order{};
    order.nFilled = 3;
    order.nRemaining = 4;
    EXPECT_EQ(7, OrderVolume(order));
    order.nVolume = 9;
    EXPECT_EQ(9, OrderVolume(order));
    order.nVolume = 0;
    order.nFilled = order.nRemaining = 0x7FFFFFFF;
    EXPECT_EQ(-2, OrderVolume(order));  // a broken record; nothing may overflow
}

TEST(StatusLines, SpeakOfAnOrder) {
    struct {
        char direction;
        char offset;
        char hedge;
        const char* line;
    } const cases[] = {
        {'0', '0', '1', "Au(T+D)|买|开仓|投机|"},
        {'1', '1', '3', "Au(T+D)|卖|平仓|保值|"},
        {'x', '2', '2', "Au(T+D)|卖|平今|保值|"},
        {'\0', '\0', '\0', "Au(T+D)|卖|平今|保值|"},
    };
    for (const auto& one : cases) {
        const std::string rest = "委托价:301.26|委托数量:5|成交数量:2|委托号:000017|部分成交";
        EXPECT_GBK_EQ(one.line + rest,
                      OrderStatusLine(Order(one.direction, one.offset, one.hedge, '2')));
    }
}

TEST(StatusLines, SpeakOfATrade) {
    CZebTrade trade{};
    text::CopyText(trade.szContract, "Ag(T+D)");
    text::CopyText(trade.szTradeId, "T-9");
    text::CopyText(trade.szTradeNo, "not shown");
    trade.cDirection = '0';
    trade.cOffset = '2';
    trade.cHedge = '2';
    trade.dPrice = 3850;
    trade.nVolume = 12;
    EXPECT_GBK_EQ("Ag(T+D)|买|平今|保值|成交价:3850.00|成交数:12|成交号:T-9",
                  TradeStatusLine(trade));
}

TEST(StatusLines, TakeFieldsWithoutAnEndAndNumbersOfAnySize) {
    CZebOrder order;
    std::memset(static_cast<void*>(&order), 'A', sizeof(order));
    order.dPrice = -1e308;
    const std::string line = OrderStatusLine(order);
    EXPECT_EQ(std::string(32, 'A') + '|', line.substr(0, 33));
    EXPECT_NE(std::string::npos, line.find(std::string(120, 'A') + '|'));
    CZebTrade trade;
    std::memset(static_cast<void*>(&trade), 'A', sizeof(trade));
    trade.dPrice = 1e308;
    EXPECT_TRUE(TradeStatusLine(trade).ends_with(':' + std::string(64, 'A')));
}

}  // namespace
