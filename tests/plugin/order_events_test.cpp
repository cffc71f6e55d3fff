#include "platform/testing/input.h"
#include "platform/text/bounded_text.h"
#include "plugin/settings/process_values.h"
#include "tests/plugin/shell_test.h"
#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace {

class OrderEvents : public tests::ShellTest {
protected:
    // One record in each list, so that reading one shows.
    OrderEvents() {
        core.positions.resize(1);
        core.position_details.resize(1);
        core.trades.resize(1);
        core.orders.resize(1);
    }
};

CZebOrder Order() {
    CZebOrder order{};
    text::CopyText(order.szContract, "Au(T+D)");
    text::CopyText(order.szOrderNo, "17");
    order.cDirection = '0';
    order.cOffset = '0';
    order.cHedge = '1';
    order.cStatus = '1';
    order.dPrice = 300;
    order.nVolume = 3;
    return order;
}

TEST_F(OrderEvents, NoteTheTimeAndALineForAChangeButLeaveTheListAlone) {
    Send(EV_ORDER_CHANGE, RecordBlock(Order()));
    EXPECT_EQ(::GetTickCount(), g_dwLastActivityTick);
    EXPECT_GBK_EQ(
        "ShowStatusText(\"Au(T+D)|买|开仓|投机|委托价:300.00|委托数量:3|成交数量:0|"
        "委托号:17|已申报\", 3068)",
        TakeLog());
    g_dwLastActivityTick = 0;
    Send(EV_ORDER_CHANGE);
    EXPECT_EQ(::GetTickCount(), g_dwLastActivityTick);
    EXPECT_EQ("", TakeLog());
}

TEST_F(OrderEvents, ReadPositionsLotsAndTradesForATradeBeforeItsLine) {
    CZebTrade trade{};
    text::CopyText(trade.szContract, "Au(T+D)");
    Send(EV_TRADE, RecordBlock(trade));
    EXPECT_EQ(::GetTickCount(), g_dwLastActivityTick);
    EXPECT_GBK_EQ(
        "GetPositionList(read); GetPositionDetailList(read); GetTradeList(read); "
        "ShowStatusText(\"Au(T+D)|卖|平今|保值|成交价:0.00|成交数:0|成交号:\", 3069)",
        TakeLog({"GetPositionList(read", "GetPositionDetailList(read", "GetTradeList(read",
                 "ShowStatus"}));
    Send(EV_TRADE);
    EXPECT_EQ("GetTradeList(read)", TakeLog({"GetTradeList(read", "ShowStatus"}));
}

TEST_F(OrderEvents, PassAMaximumVolumeOnWhileItsBlockIsAlive) {
    CQueryMaxVolumeResult result{};
    result.nMaxVolume = 12;
    Send(EV_MAX_VOLUME_RESULT, RecordBlock(result, 1020));
    EXPECT_EQ("ForwardEvent(0x600, 0x0F)", TakeLog({"ForwardEvent"}));
    SendFailed(EV_MAX_VOLUME_RESULT, TextBlock("no"));
    Send(EV_MAX_VOLUME_RESULT);
    EXPECT_EQ("", TakeLog({"ForwardEvent"}));
}

TEST_F(OrderEvents, RereadTheListThatChangedAndThenPassTheEventOn) {
    struct {
        int code;
        const char* effects;
    } const cases[] = {
        {EV_POSITION_LIST, "GetPositionList(read)"},
        {EV_TRADE_LIST, "GetTradeList(read); ForwardEvent(0x600, 0x2A)"},
        {EV_ORDER_LIST, "GetOrderList(read); notice; ForwardEvent(0x600, 0x2B)"},
        {EV_POSITION_GROUP_LIST, "GetPositionDetailList(read); ForwardEvent(0x600, 0x2D)"},
    };
    for (const auto& one : cases) {
        Send(one.code);
        EXPECT_EQ(one.effects,
                  TakeLog({"GetPositionList(read", "GetPositionDetailList(read",
                           "GetTradeList(read", "GetOrderList(read", "ForwardEvent", "notice"}))
            << one.code;
    }
}

TEST_F(OrderEvents, LetPanelsReadPositionsBehindTheListAndOrdersFromIt) {
    core.orders.resize(3);
    AddPanel("a");
    AddPanel("b");
    log.clear();
    Send(EV_POSITION_LIST);
    EXPECT_EQ("GetPositionList(read); a positions; b positions",
              TakeLog({"GetPositionList(read", "a positions", "b positions"}));
    Send(EV_ORDER_LIST);
    EXPECT_EQ("GetOrderList(read); a 3 orders; b 3 orders; notice; ForwardEvent(0x600, 0x2B)",
              TakeLog({"GetOrderList(read", "a 3", "b 3", "notice", "ForwardEvent"}));
}

TEST_F(OrderEvents, ConsumeTheFileOfAnExport) {
    const testing_support::TempFolder folder;
    struct {
        const char* bytes;
        std::size_t size;
    } const files[] = {{"line\r\n", 6}, {"", 0}, {"a\0b", 3}};
    for (const auto& file : files) {
        folder.Write(u8"trade.txt", {file.bytes, file.size});
        Send(EV_TRADE_EXPORT_DONE, Block(".\\trade.txt", 256));
        EXPECT_EQ("(missing)", folder.Read(u8"trade.txt"));
        EXPECT_EQ("", TakeLog());
    }
    folder.Write(u8"trade.txt", "kept");
    SendFailed(EV_TRADE_EXPORT_DONE, Block(".\\trade.txt", 256));
    Send(EV_TRADE_EXPORT_DONE, Block("", 256));
    Send(EV_TRADE_EXPORT_DONE, Block(".\\none.txt", 256));
    Send(EV_TRADE_EXPORT_DONE);
    EXPECT_EQ("kept", folder.Read(u8"trade.txt"));
}

}  // namespace
