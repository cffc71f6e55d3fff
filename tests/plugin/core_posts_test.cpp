// Which event each operation of the core's side posts, under which guard.

#include <cstring>
#include <functional>

#include "platform/testing/input.h"
#include "tests/plugin/interface_test.h"
#include "tests/plugin/live_blocks.h"
#include "tests/support/temp_folder.h"

namespace {

enum class Guard { kNothing, kMain, kMainAndLogin };

struct Row {
    const char* name;
    Guard guard;
    std::function<void(CBaseUI&)> call;
    const char* events;
};

CAccountInfo g_account;
CZebError g_refused = tests::MakeError(7, "资金不足");
CZebError g_fine = tests::MakeError(0, "");
CLoginResult g_login;
CZebAccountSummary g_summary;
CZebAccountSummary g_summary_with_extra = [] {
    CZebAccountSummary summary{};
    std::strcpy(summary.szExtra, "x");
    return summary;
}();
CQueryMaxVolumeResult g_max_volume;
CZebTrade g_trade;
CZebOrder g_order;
CInsertOrderRequest g_request;
CBankTransfer g_transfer;
const StepDataMap g_steps;

CBankResult* Transferred(int kind) {
    static CBankResult result;
    result.nKind = kind;
    return &result;
}

constexpr auto kTrading = ZEB_CONNECTION_TRADE;
constexpr auto kOtherConnection = static_cast<ZEB_CONNECTION>(1);
constexpr ZEB_CONNECTION_STATUS Status(int value) {
    return static_cast<ZEB_CONNECTION_STATUS>(value);
}

// `[]` of one operation on `ui`; the account is never looked at, so some calls have none.
#define CALL(...) [](CBaseUI& ui) { ui.__VA_ARGS__; }

const Row kRows[] = {
    {"login", Guard::kMain, CALL(OnLoginResult(&g_account, &g_fine, &g_login, 1)), "9[67128]"},
    {"login, null error", Guard::kMain, CALL(OnLoginResult(nullptr, nullptr, &g_login, 1)),
     "9[67128]"},
    {"login refused", Guard::kMain, CALL(OnLoginResult(&g_account, &g_refused, &g_login, 1)),
     "40009[67128]"},
    {"login without a result", Guard::kMain, CALL(OnLoginResult(&g_account, &g_fine, nullptr, 1)),
     "40009[67128]"},
    {"login without anything", Guard::kMain, CALL(OnLoginResult(nullptr, nullptr, nullptr, 1)),
     "40009[67128]"},
    {"notice", Guard::kMain, CALL(OnQueryNoticeResult(&g_account, &g_fine, "abc", 1)), "1C[203]"},
    {"no notice", Guard::kMain, CALL(OnQueryNoticeResult(&g_account, nullptr, nullptr, 1)),
     "1C(0)"},
    {"empty notice", Guard::kMain, CALL(OnQueryNoticeResult(&g_account, &g_fine, "", 1)), "1C(0)"},
    {"notice refused", Guard::kMain, CALL(OnQueryNoticeResult(nullptr, &g_refused, "abc", 1)),
     "4001C[1228]"},
    {"monitoring centre", Guard::kNothing,
     CALL(OnQueryCFMMCResult(&g_account, &g_refused, nullptr, 1)), ""},
    {"batch query", Guard::kMainAndLogin, CALL(OnBatchQueryResult(&g_account, &g_fine, 1)),
     "27[1028]"},
    {"batch query, null error", Guard::kMainAndLogin, CALL(OnBatchQueryResult(nullptr, nullptr, 1)),
     "27[1028]"},
    {"batch query failed", Guard::kMainAndLogin, CALL(OnBatchQueryResult(nullptr, &g_refused, 1)),
     "40027[1028]"},
    {"funds", Guard::kMainAndLogin,
     CALL(OnQueryAccountResult(&g_account, &g_fine, &g_summary, 1, g_steps)), "A[67096]"},
    {"funds with extra text", Guard::kMainAndLogin,
     CALL(OnQueryAccountResult(&g_account, &g_fine, &g_summary_with_extra, 1, g_steps)),
     "A[67096] 31[65536]"},
    {"funds failed with extra text", Guard::kMainAndLogin,
     CALL(OnQueryAccountResult(&g_account, &g_refused, &g_summary_with_extra, 1, g_steps)),
     "4000A[67096] 31[65536]"},
    {"funds without a summary", Guard::kMainAndLogin,
     CALL(OnQueryAccountResult(nullptr, nullptr, nullptr, 1, g_steps)), "A(0)"},
    {"funds failed without a summary", Guard::kMainAndLogin,
     CALL(OnQueryAccountResult(nullptr, &g_refused, nullptr, 1, g_steps)), "4000A[67096]"},
    {"margin rate", Guard::kNothing,
     CALL(OnQueryMarginRateResult(&g_account, &g_refused, "SGE", "Au(T+D)", 1)), ""},
    {"maximum volume", Guard::kMainAndLogin,
     CALL(OnQueryMaxVolumeResult(&g_account, &g_fine, &g_max_volume, 1)), "F[1228]"},
    {"maximum volume without a record", Guard::kMainAndLogin,
     CALL(OnQueryMaxVolumeResult(nullptr, nullptr, nullptr, 1)), "F(0)"},
    {"maximum volume refused", Guard::kMainAndLogin,
     CALL(OnQueryMaxVolumeResult(nullptr, &g_refused, &g_max_volume, 1)), "4000F[1228]"},
    {"past trade", Guard::kMainAndLogin,
     CALL(OnQueryTradeByDateResult(&g_account, &g_fine, &g_trade, 1, 0)), ""},
    {"last past trade", Guard::kMainAndLogin,
     CALL(OnQueryTradeByDateResult(&g_account, nullptr, &g_trade, 1, 1)), "2C[256]"},
    {"no past trade", Guard::kMainAndLogin,
     CALL(OnQueryTradeByDateResult(nullptr, &g_fine, nullptr, 1, 1)), "2C[256]"},
    {"past trades failed", Guard::kMainAndLogin,
     CALL(OnQueryTradeByDateResult(nullptr, &g_refused, nullptr, 1, 1)), "4002C[256]"},
    {"past trades failed and go on", Guard::kMainAndLogin,
     CALL(OnQueryTradeByDateResult(nullptr, &g_refused, nullptr, 1, 0)), ""},
    {"insert taken", Guard::kMainAndLogin,
     CALL(OnInsertOrderResult(&g_account, &g_fine, &g_request, 5)), ""},
    {"insert taken, null error", Guard::kMainAndLogin,
     CALL(OnInsertOrderResult(nullptr, nullptr, nullptr, 5)), ""},
    {"insert refused", Guard::kMainAndLogin,
     CALL(OnInsertOrderResult(&g_account, &g_refused, nullptr, 5)), "40006[1480]"},
    {"cancel", Guard::kMainAndLogin, CALL(OnCancelOrderResult(&g_account, &g_fine, "a", "b", 5)),
     "7[1228]"},
    {"cancel without texts", Guard::kMainAndLogin,
     CALL(OnCancelOrderResult(nullptr, nullptr, nullptr, nullptr, 5)), "7[1228]"},
    {"cancel refused", Guard::kMainAndLogin,
     CALL(OnCancelOrderResult(nullptr, &g_refused, nullptr, "b", 5)), "40007[1228]"},
    {"password changed", Guard::kMainAndLogin, CALL(OnChangePasswordResult(&g_account, nullptr, 1)),
     "E[1228]"},
    {"password refused", Guard::kMainAndLogin,
     CALL(OnChangePasswordResult(&g_account, &g_refused, 1)), "4000E[1228]"},
    {"bank balance", Guard::kMainAndLogin,
     CALL(OnQueryBankBalanceResult(&g_account, &g_fine, Transferred(0), 1)), "18[1028]"},
    {"bank balance without a record", Guard::kMainAndLogin,
     CALL(OnQueryBankBalanceResult(nullptr, nullptr, nullptr, 1)), "18(0)"},
    {"bank balance refused", Guard::kMainAndLogin,
     CALL(OnQueryBankBalanceResult(nullptr, &g_refused, nullptr, 1)), "40018[1028]"},
    {"transfer row", Guard::kMainAndLogin,
     CALL(OnQueryBankTransferResult(&g_account, &g_fine, &g_transfer, 1, 0)), "19[320]"},
    {"last transfer row", Guard::kMainAndLogin,
     CALL(OnQueryBankTransferResult(&g_account, nullptr, &g_transfer, 1, 1)), "19[320] 19(0)"},
    {"no transfer row", Guard::kMainAndLogin,
     CALL(OnQueryBankTransferResult(nullptr, nullptr, nullptr, 1, 1)), "40019[1228] 19(0)"},
    {"transfer rows refused", Guard::kMainAndLogin,
     CALL(OnQueryBankTransferResult(&g_account, &g_refused, &g_transfer, 1, 1)), "40019[1228]"},
    {"transfer rows by number", Guard::kNothing,
     CALL(OnQueryBankTransferWithLSHResult(&g_account, &g_refused, &g_transfer, 1, 1)), ""},
    {"transfer of kind 1", Guard::kMainAndLogin,
     CALL(OnBankTransferResult(&g_account, &g_fine, Transferred(1), 1)), "1A[1028]"},
    {"transfer of kind 2", Guard::kMainAndLogin,
     CALL(OnBankTransferResult(&g_account, nullptr, Transferred(2), 1)), "1B[1028]"},
    {"transfer of kind 3", Guard::kMainAndLogin,
     CALL(OnBankTransferResult(&g_account, &g_fine, Transferred(3), 1)), ""},
    {"transfer of kind 1 refused", Guard::kMainAndLogin,
     CALL(OnBankTransferResult(&g_account, &g_refused, Transferred(1), 1)), "4001B[1028]"},
    {"transfer without a record", Guard::kMainAndLogin,
     CALL(OnBankTransferResult(nullptr, nullptr, nullptr, 1)), "4001B[1028]"},
    {"order change", Guard::kMainAndLogin, CALL(OnOrderChange(&g_account, &g_order)), "15[1032]"},
    {"order change without a record", Guard::kMainAndLogin, CALL(OnOrderChange(nullptr, nullptr)),
     "15(0)"},
    {"trade", Guard::kMainAndLogin, CALL(OnTrade(&g_account, &g_trade)), "16[824]"},
    {"trade without a record", Guard::kMainAndLogin, CALL(OnTrade(nullptr, nullptr)), "16(0)"},
    {"connection broken", Guard::kMain, CALL(OnNetworkStatus(&g_account, kTrading, Status(-1))),
     "2(-1)"},
    {"connection dropped", Guard::kMain, CALL(OnNetworkStatus(nullptr, kTrading, Status(-2))),
     "2(-2)"},
    {"connection lost otherwise", Guard::kMain,
     CALL(OnNetworkStatus(nullptr, kTrading, Status(-3))), "2(-3)"},
    {"connection made", Guard::kMain, CALL(OnNetworkStatus(nullptr, kTrading, Status(0))), ""},
    {"other connection broken", Guard::kMain,
     CALL(OnNetworkStatus(nullptr, kOtherConnection, Status(-1))), ""},
    {"exchange status", Guard::kNothing,
     CALL(OnExchangeStatus(&g_account, "SGE", ZEB_EXCHANGE_STATUS{})), ""},
    {"system notice", Guard::kMain, CALL(OnSystemNotice(&g_account, "abc")), "29[13]"},
    {"empty system notice", Guard::kMain, CALL(OnSystemNotice(nullptr, "")), "29[10]"},
    {"no system notice", Guard::kMain, CALL(OnSystemNotice(&g_account, nullptr)), ""},
    {"system init", Guard::kNothing, CALL(OnSystemInit(&g_account, 1)), ""},
    {"low memory", Guard::kNothing, CALL(OnLowMemory()), ""},
    {"error", Guard::kNothing, CALL(OnError(&g_account, &g_refused)), ""},
    {"order list", Guard::kMainAndLogin, CALL(OnUpdateOrderList(&g_account)), "2B(0)"},
    {"trade list", Guard::kMainAndLogin, CALL(OnUpdateTradeList(nullptr)), "2A(0)"},
    {"position list", Guard::kMainAndLogin, CALL(OnUpdatePositionList(nullptr)), "28(0)"},
    {"lot list", Guard::kNothing, CALL(OnUpdatePositionDetailList(&g_account)), ""},
    {"group list", Guard::kMainAndLogin, CALL(OnUpdatePositionGroupList(nullptr)), "2D(0)"},
    {"stop message", Guard::kNothing,
     CALL(OnStopProfitLossMsg(&g_account, "SGE", "Au(T+D)", 1.0, 1)), ""},
    {"chase message", Guard::kNothing,
     CALL(OnChasePriceMsg(&g_account, "SGE", "Au(T+D)", ChasePrice_STATUS{}, 1, 1.0, 1)), ""},
    {"combination message", Guard::kMainAndLogin, CALL(OnCombinationMsg("key", 1)), "2E[35]"},
    {"combination message without a key", Guard::kMainAndLogin, CALL(OnCombinationMsg(nullptr, 1)),
     "2E[32]"},
    {"chase list", Guard::kNothing, CALL(OnUpdateChasePriceList()), ""},
    {"function reply", Guard::kMain, CALL(OnResult_WithReturnData(4, &g_account, &g_fine, "Y|a")),
     "31[65536]"},
    {"function reply without a text", Guard::kMain,
     CALL(OnResult_WithReturnData(4, nullptr, nullptr, nullptr)), "31[65536]"},
    {"function failed", Guard::kMain,
     CALL(OnResult_WithReturnData(4, nullptr, &g_refused, nullptr)), "40031[65536]"},
    {"heart beat", Guard::kNothing, CALL(OnHeartRequestResult(&g_account, &g_refused, nullptr, 1)),
     ""},
};

class CorePosts : public tests::InterfaceTest {
protected:
    /// Creates the main dialog, destroys its window, and tells what the pages still hold.
    int BlocksOfADestroyedDialog() {
        Start();
        ui->OnDestroyWindow(0);
        return tests::LiveBlocks();
    }

    testing_support::TempFolder folder_;
};

TEST_F(CorePosts, CarryTheirEventAndItsBlock) {
    Start();
    for (const Row& row : kRows) {
        row.call(*ui);
        EXPECT_EQ(TakeSummary(), row.events) << row.name;
    }
}

TEST_F(CorePosts, PassBeforeTheLoginOnlyWhenALoginNeedsThem) {
    Start();
    core.logged_in = false;
    for (const Row& row : kRows) {
        row.call(*ui);
        const char* expected = row.guard == Guard::kMainAndLogin ? "" : row.events;
        EXPECT_EQ(TakeSummary(), expected) << row.name;
    }
    EXPECT_EQ(folder_.Read(u8"trade.txt"), "(missing)");
}

TEST_F(CorePosts, CountALostCoreAsNotLoggedIn) {
    Start();
    ui->SetUICallBack(nullptr);
    for (const Row& row : kRows) {
        row.call(*ui);
        const char* expected = row.guard == Guard::kMainAndLogin ? "" : row.events;
        EXPECT_EQ(TakeSummary(), expected) << row.name;
    }
    ui->SetUICallBack(&core);
}

TEST_F(CorePosts, DoNothingWithoutAMainDialogOfTheirOwn) {
    Start();
    QmInterfaceUI bare;
    QmInterfaceUI copy(*ui);
    for (CBaseUI* one : {static_cast<CBaseUI*>(&bare), static_cast<CBaseUI*>(&copy)}) {
        for (const Row& row : kRows) {
            row.call(*one);
            EXPECT_EQ(TakeSummary(), "") << row.name;
        }
    }
    EXPECT_EQ(folder_.Read(u8"trade.txt"), "(missing)");
    EXPECT_TRUE(core.Calls().empty());
}

TEST_F(CorePosts, FreeTheirBlocksWhenTheWindowIsGone) {
    const int left = BlocksOfADestroyedDialog();
    for (const Row& row : kRows) {
        row.call(*ui);
        EXPECT_EQ(tests::LiveBlocks(), left) << row.name;
    }
}

TEST_F(CorePosts, FreeTheBlocksOfWhatStillWaitsWhenTheWindowGoes) {
    const int left = BlocksOfADestroyedDialog();
    Start();
    for (const Row& row : kRows) row.call(*ui);
    EXPECT_GT(tests::LiveBlocks(), blocks_in_use + 30);
    ui->OnDestroyWindow(0);
    EXPECT_EQ(tests::LiveBlocks(), left);
}

TEST_F(CorePosts, FreeWhatWaitsWhenTheHostDestroysItsOwnWindow) {
    const int left = BlocksOfADestroyedDialog();
    Start();
    ui->OnOrderChange(nullptr, &g_order);
    frame.DestroyWindow();
    EXPECT_EQ(tests::LiveBlocks(), left);
    ui->OnOrderChange(nullptr, &g_order);
    EXPECT_EQ(tests::LiveBlocks(), left);
}

TEST_F(CorePosts, FreeTheBlocksThatAFullQueueRefuses) {
    Start();
    constexpr int kMoreThanAQueueHolds = 10'500;
    for (int i = 0; i < kMoreThanAQueueHolds; ++i) ui->OnTrade(nullptr, &g_trade);
    const int waiting = tests::LiveBlocks() - blocks_in_use;
    EXPECT_LE(waiting, 10'000);
    EXPECT_EQ(TakeEvents().size(), static_cast<std::size_t>(waiting));
    EXPECT_EQ(tests::LiveBlocks(), blocks_in_use);
}

}  // namespace
