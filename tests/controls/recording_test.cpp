// The core and the host that tests stand in for must themselves keep to the contract.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"

namespace tests {

namespace {

using ::testing::ElementsAre;

TEST(RecordingCore, ReadsListsInTwoSteps) {
    RecordingCore core;
    core.orders.resize(3);
    core.orders[1].nVolume = 7;
    core.promised_too_many = 2;
    CZebOrder buffer[8]{};
    EXPECT_EQ(core.GetOrderList(nullptr, 0), 5);
    EXPECT_EQ(core.GetOrderList(buffer, 8), 3);
    EXPECT_EQ(int{buffer[1].nVolume}, 7);
    EXPECT_EQ(core.GetOrderList(buffer, 2), 2);
    EXPECT_EQ(core.GetOrderList(buffer, -1), 0);
    EXPECT_EQ(core.GetPositionGroupLegs("none", nullptr, 0), 2);
}

TEST(RecordingCore, TellsCallsFromAnotherThreadApart) {
    RecordingCore core;
    core.Omit({});
    std::thread other([&core] {
        core.QueryAccount(0);
        core.IsLoggedIn();
    });
    other.join();
    core.Logout();
    EXPECT_THAT(core.Calls(),
                ElementsAre("QueryAccount(0) [other thread]", "IsLoggedIn()", "Logout()"));
    EXPECT_THAT(core.CallsOf("Logout"), ElementsAre("Logout()"));
    EXPECT_EQ(core.TakeCalls().size(), 3U);
    EXPECT_TRUE(core.Calls().empty());
}

TEST(RecordingCore, AnswersFromACallOnceItIsRecorded) {
    RecordingCore core;
    std::string heard;
    core.on_call = [&](std::string_view line) {
        heard = line;
        if (core.Calls().size() == 1) core.RefreshOrders();
    };
    CQueryMaxVolume query{};
    text::CopyText(query.szContract, "Au(T+D)");
    query.cDirection = '1';
    core.max_volume = 12;
    core.QueryMaxVolume(&query, 0);
    EXPECT_EQ(heard, "RefreshOrders()");
    const CQueryMaxVolumeResult answer = core.MaxVolumeAnswer();
    EXPECT_EQ(text::FieldText(answer.szContract), "Au(T+D)");
    EXPECT_EQ(answer.cDirection, '1');
    EXPECT_EQ(int{answer.nMaxVolume}, 12);
}

TEST(RecordingHost, FindsSymbolsByTextWithoutDigitsAndByKeyWithThem) {
    RecordingHost host;
    const WPARAM key = host.AddSymbol("Au(T+D)", 12, 3, 2);
    const auto address = [](const void* of) { return reinterpret_cast<WPARAM>(of); };
    const auto ask = [](UINT message, WPARAM wParam, WPARAM lParam) {
        return RecordingHost::Function(message, wParam, static_cast<LPARAM>(lParam));
    };
    CHostSymbol symbol{};
    EXPECT_EQ(ask(HOST_FIND_SYMBOL, address(&symbol), address("Au(T+D)")), 0U);
    EXPECT_EQ(int{symbol.wMarket} + 100 * int{symbol.wCode}, 312);
    EXPECT_EQ(int{symbol.nDigits}, 0);
    EXPECT_NE(ask(HOST_FIND_SYMBOL, address(&symbol), address("Ag(T+D)")), 0U);
    EXPECT_EQ(ask(HOST_GET_SYMBOL, key, address(&symbol)), 0U);
    EXPECT_EQ(int{symbol.nDigits}, 2);
    JSDyn1 quote{};
    quote.dLast = 242.85;
    host.SetQuote(key, quote);
    JSDyn1 read{};
    ask(HOST_GET_QUOTE, key, address(&read));
    EXPECT_EQ(double{read.dLast}, 242.85);
    read.dLast = 1;
    ask(HOST_GET_QUOTE, SymbolKey(9, 9), address(&read));
    EXPECT_EQ(double{read.dLast}, 1.0);
    EXPECT_THAT(host.CallsOf("HOST_GET_QUOTE"),
                ElementsAre("HOST_GET_QUOTE(12|3)", "HOST_GET_QUOTE(9|9)"));
}

TEST(FrontEndDoors, PutBackWhatTheyFound) {
    CUICallBack* const core_before = g_pUICallBack;
    const HostFunction host_before = g_pfnHostCallBack;
    {
        RecordingCore core;
        const RecordingHost host;
        const FrontEndDoors doors(core, host);
        EXPECT_EQ(GetUICallBack(), &core);
        EXPECT_EQ(g_pfnHostCallBack, &RecordingHost::Function);
    }
    EXPECT_EQ(g_pUICallBack, core_before);
    EXPECT_EQ(g_pfnHostCallBack, host_before);
}

}  // namespace

}  // namespace tests
