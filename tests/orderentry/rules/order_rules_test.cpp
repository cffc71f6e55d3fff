#include "orderentry/order_rules.h"

#include <array>
#include <cstring>
#include <limits>
#include <random>

#include "orderentry/contract_rules.h"
#include "tests/orderentry/rules/trading.h"

namespace {

using testing::ElementsAre;

using Bytes = std::array<char, 1256>;

class Orders : public tests::Trading {
protected:
    Orders() {
        JSDyn1 quote{};
        quote.dAsk[0] = 300.00;
        quote.dBid[0] = 299.90;
        quote.dLast = 299.95;
        host.SetQuote(kKey, quote);
        text::CopyText(core.login_account.szAccount, "1080000001");
    }

    OrderTicket Ticket(const char* price, const char* volume) {
        return {.contract = &contract,
                .symbol = symbol,
                .volume_text = volume,
                .price_text = price,
                .direction = '0',
                .offset = '0',
                .net = false,
                .linked_position = 0};
    }
    /// The bytes that every accepted order of the ticket has.
    Bytes Expected(std::string_view price, std::string_view note, std::string_view codes,
                   unsigned char lots) {
        Bytes bytes{};
        const auto put = [&bytes](std::size_t at, std::string_view text) {
            std::memcpy(bytes.data() + at, text.data(), text.size());
        };
        put(0, "SGE");
        put(12, "Au(T+D)");
        put(84, price);
        put(100, note);
        put(124, codes);
        bytes[132] = static_cast<char>(lots);
        put(1084, "1080000001");
        bytes[1120] = 12;
        put(1122, "\x59\x01");  // 345
        return bytes;
    }
    static void ExpectBytes(const Bytes& expected, const PreparedOrder& order) {
        EXPECT_EQ(OrderRefusal::kNone, order.refusal);
        const auto* const got = reinterpret_cast<const char*>(&order.request);
        for (std::size_t at = 0; at < expected.size(); ++at) {
            ASSERT_EQ(expected[at], got[at]) << "at " << at;
        }
    }
};

TEST_F(Orders, AreTheExpectedBytes) {
    ExpectBytes(Expected("300.00", "手动下单", "0010", 7), PrepareOrder(Ticket("对手价", "007")));
    OrderTicket sell = Ticket("挂单价超一个价位", "3");
    sell.direction = '1';
    sell.offset = '1';
    sell.linked_position = 0x01020304;
    Bytes linked = Expected("299.99", "手动下单", "1110", 3);
    std::memcpy(linked.data() + 1116, "\4\3\2\1", 4);
    ExpectBytes(linked, PrepareOrder(sell));
}

TEST_F(Orders, LeaveTheOffsetToTheCoreByNetPosition) {
    OrderTicket ticket = Ticket("301.25", "2");
    ticket.net = true;
    ticket.offset = '1';
    const PreparedOrder order = PrepareOrder(ticket);
    Bytes expected = Expected("301.25", "净仓", "0-10", 2);
    expected[125] = '\0';
    ExpectBytes(expected, order);
    EXPECT_EQ(5, order.source);
    EXPECT_EQ(1, PrepareOrder(Ticket("301.25", "2")).source);
}

TEST_F(Orders, CarryTypeAndParametersOfTheMoment) {
    core.trade_param.nCloseOverTicks = 4711;
    const PreparedOrder order = PrepareOrder(Ticket("最新价", "1"));
    EXPECT_EQ(1, order.price_type);
    EXPECT_EQ(4711, static_cast<int>(order.param.nCloseOverTicks));
    EXPECT_EQ(6, PrepareOrder(Ticket("299", "1")).price_type);
    EXPECT_EQ(6, PrepareOrder(Ticket("挂单价超一个价位", "1")).price_type);
}

TEST_F(Orders, AskTheCoreForParametersThenForTheAccount) {
    PrepareOrder(Ticket("对手价", "1"));
    std::vector<std::string> names;
    for (const std::string& call : core.Calls()) names.push_back(call.substr(0, call.find('(')));
    EXPECT_THAT(names, ElementsAre("GetTradeParam", "GetTradeParam", "GetLoginAccount"));
}

struct Refusal {
    const char* price;
    const char* volume;
    OrderRefusal refusal;
    const char* text;
};

TEST_F(Orders, AreRefusedByContractThenVolumeThenPrice) {
    OrderTicket ticket = Ticket("", "0");
    ticket.contract = nullptr;
    EXPECT_GBK_EQ("请选择交易合约", RefusalText(PrepareOrder(ticket)));
    ticket = Ticket("", "0");
    ticket.symbol = {};
    EXPECT_GBK_EQ("请选择交易合约", RefusalText(PrepareOrder(ticket)));
    EXPECT_GBK_EQ("请选择交易合约", RefusalText(PreparePanelOrder(ticket, 1)));
    constexpr Refusal kCases[] = {
        {"", "0", OrderRefusal::kNoVolume, "错误的下单手数"},
        {"300", "", OrderRefusal::kNoVolume, "错误的下单手数"},
        {"300", "-1", OrderRefusal::kNoVolume, "错误的下单手数"},
        {"300", "x", OrderRefusal::kNoVolume, "错误的下单手数"},
        {"300", nullptr, OrderRefusal::kNoVolume, "错误的下单手数"},
        {"", "1", OrderRefusal::kNoPrice, "没有数据"},
        {nullptr, "1", OrderRefusal::kNoPrice, "没有数据"},
        {"市价", "1", OrderRefusal::kNoPrice, "市价没有数据"},
        {"涨停价", "1", OrderRefusal::kNoPrice, "涨停价没有数据"},
        {"0.00009", "1", OrderRefusal::kNoPrice, "0.00009没有数据"},
        {"-300", "1", OrderRefusal::kNoPrice, "-300没有数据"},
        {"1e999", "1", OrderRefusal::kNoPrice, "1e999没有数据"},
    };
    for (const Refusal& expected : kCases) {
        for (const double offset : {0.0, 0.01}) {
            const PreparedOrder order =
                PreparePanelOrder(Ticket(expected.price, expected.volume), offset);
            EXPECT_EQ(expected.refusal, order.refusal);
            EXPECT_GBK_EQ(expected.text, RefusalText(order));
        }
        const PreparedOrder order = PrepareOrder(Ticket(expected.price, expected.volume));
        EXPECT_EQ(expected.refusal, order.refusal);
        EXPECT_GBK_EQ(expected.text, RefusalText(order));
    }
    EXPECT_TRUE(core.CallsOf("GetLoginAccount").empty());
}

TEST_F(Orders, NeverCutAPrice) {
    EXPECT_STREQ("123456789012.00", PrepareOrder(Ticket("123456789012", "1")).request.szPrice);
    EXPECT_EQ(OrderRefusal::kNoPrice, PrepareOrder(Ticket("1234567890123", "1")).refusal);
    EXPECT_EQ(OrderRefusal::kNoPrice,
              PreparePanelOrder(Ticket("300.000000000001", "1"), 0).refusal);
    const std::string long_text(200, '9');
    const PreparedOrder order = PrepareOrder(Ticket(long_text.c_str(), "1"));
    EXPECT_EQ(std::string(63, '9'), RefusalText(order));
}

TEST_F(Orders, NeverPrintAPriceAsZero) {
    for (const char* const price : {"0.001", "0.0049"}) {
        const PreparedOrder order = PrepareOrder(Ticket(price, "1"));
        EXPECT_EQ(OrderRefusal::kNoPrice, order.refusal) << price;
        EXPECT_STREQ("", order.request.szPrice);
    }
    EXPECT_STREQ("0.01", PrepareOrder(Ticket("0.005", "1")).request.szPrice);
    contract.nPriceDigits = 3;
    EXPECT_STREQ("0.001", PrepareOrder(Ticket("0.001", "1")).request.szPrice);
}

TEST_F(Orders, SaturateTheirVolume) {
    EXPECT_EQ(std::numeric_limits<int>::max(),
              static_cast<int>(PrepareOrder(Ticket("300", "99999999999")).request.nVolume));
}

TEST_F(Orders, OfAPanelCarryTheTextUnlessThePriceIsMoved) {
    ExpectBytes(Expected("对手价", "手动下单", "0010", 1),
                PreparePanelOrder(Ticket("对手价", "1"), 0));
    EXPECT_EQ(0, PreparePanelOrder(Ticket("对手价", "1"), 0).price_type);
    ExpectBytes(Expected("301.5", "手动下单", "0010", 1),
                PreparePanelOrder(Ticket("301.5", "1"), 0));
    ExpectBytes(Expected("300.02", "手动下单", "0010", 1),
                PreparePanelOrder(Ticket("对手价", "1"), 0.02));
    EXPECT_EQ(6, PreparePanelOrder(Ticket("对手价", "1"), 0.02).price_type);
    EXPECT_EQ(OrderRefusal::kNoPrice, PreparePanelOrder(Ticket("0.02", "1"), -0.05).refusal);
    EXPECT_EQ(OrderRefusal::kNoPrice,
              PreparePanelOrder(Ticket("挂单价超一个价位", "1"), 0).refusal);
}

TEST_F(Orders, OfAnyTextsHaveAPriceThatCanBeRead) {
    std::mt19937 random(5);
    int accepted = 0;
    for (int i = 0; i < 10000; ++i) {
        std::string price(random() % 18, '\0');
        for (char& byte : price) {
            byte = random() % 9 ? "0123456789.e"[random() % 12] : static_cast<char>(random());
        }
        const std::string volume = std::to_string(static_cast<int>(random()));
        const PreparedOrder order = PrepareOrder(Ticket(price.c_str(), volume.c_str()));
        if (order.refusal != OrderRefusal::kNone) continue;
        ++accepted;
        const std::string_view sent = text::FieldText(order.request.szPrice);
        ASSERT_LE(sent.size(), 15U);
        ASSERT_EQ(std::string::npos, sent.find_first_not_of("0123456789."));
        ASSERT_EQ('.', sent[sent.size() - 3]);
        ASSERT_NE(std::string::npos, sent.find_first_of("123456789"));
        ASSERT_GE(static_cast<int>(order.request.nVolume), 1);
    }
    EXPECT_GT(accepted, 1000);
}

}  // namespace
