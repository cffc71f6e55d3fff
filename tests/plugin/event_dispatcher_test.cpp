#include "plugin/event_dispatcher.h"

#include <algorithm>
#include <cstdio>

#include "plugin/contract/core_access.h"
#include "plugin/contract/tagged_block.h"
#include "plugin/event_post.h"
#include "plugin/settings/login_blocks.h"
#include "plugin/settings/process_values.h"
#include "tests/plugin/live_blocks.h"
#include "tests/plugin/shell_test.h"
#include "tests/support/gbk_text.h"

namespace {

/// What a box shows between "box " and its buttons.
constexpr const char* kNone = nullptr;

class CoreEvents : public tests::ShellTest {
protected:
    /// The boxes since the last call, without the word and the button.
    std::string TakeBoxes() {
        std::string boxes = TakeLog({"box "});
        if (boxes.starts_with("box ")) boxes.erase(0, 4);
        return boxes;
    }
};

struct BoxRow {
    int code;
    const char* success;
    const char* success_without;
    const char* failure;
    const char* failure_without;
};

// 文 stands for the text in the block.
constexpr BoxRow kBoxRows[] = {
    {EV_CONNECTION_LOST, kNone, kNone, kNone, kNone},
    {EV_INSERT_REJECTED, "\"文\" \"错误\" information [确定]", kNone,
     "\"文\" \"错误\" information [确定]", kNone},
    {EV_CANCEL_RESULT, "\"文\" \"错误\" information [确定]", kNone,
     "\"文\" \"错误\" information [确定]", kNone},
    {EV_ACCOUNT_RESULT, kNone, kNone, "\"文\" \"提示2\" error [确定]",
     "\"查询失败！\" \"提示2\" error [确定]"},
    {EV_PASSWORD_RESULT, "\"文\" \"提示3\" information [确定]",
     "\"修改密码失败！\" \"提示3\" information [确定]", "\"文\" \"提示3\" error [确定]",
     "\"修改密码失败！\" \"提示3\" error [确定]"},
    {EV_MAX_VOLUME_RESULT, kNone, kNone, kNone, kNone},
    {EV_ORDER_CHANGE, kNone, kNone, kNone, kNone},
    {EV_TRADE, kNone, kNone, kNone, kNone},
    {EV_BANK_BALANCE, kNone, kNone, "\"文\" \"提示4\" error [确定]",
     "\"查询失败！\" \"提示4\" error [确定]"},
    {EV_BANK_TRANSFER_ROW, kNone, kNone, kNone, kNone},
    {EV_TRANSFER_KIND1_DONE, "\"文\" \"提示\" information [确定]",
     "\"转账成功\" \"提示\" information [确定]", "\"文\" \"提示\" information [确定]",
     "\"未知错误\" \"提示\" information [确定]"},
    {EV_TRANSFER_KIND2_DONE, "\"文\" \"提示\" information [确定]",
     "\"转账成功\" \"提示\" information [确定]", "\"文\" \"提示\" information [确定]",
     "\"未知错误\" \"提示\" information [确定]"},
    {EV_NOTICE, "\"文\" \"通知\" plain [确认][退出]", kNone, "\"文\" \"登录失败\" plain [确定]",
     "\"\" \"登录失败\" plain [确定]"},
    {EV_BATCH_QUERY_RESULT, kNone, kNone, "\"文\" \"提示12\" error [确定]",
     "\"查询失败！\" \"提示12\" error [确定]"},
    {EV_SYSTEM_NOTICE, "\"文\" \"交易通知\" plain [确定][退出]", kNone,
     "\"文\" \"提示12\" error [确定]", "\"内存不足\" \"提示12\" error [确定]"},
    {EV_TRADE_EXPORT_DONE, kNone, kNone, "\"文\" \"提示15\" error [确定]",
     "\"查询失败\" \"提示15\" error [确定]"},
    {EV_COMBINATION_MSG, kNone, kNone, kNone, kNone},
    {EV_FUNCTION_RESULT, kNone, kNone, kNone, kNone},
};

TEST_F(CoreEvents, ShowTheirBoxesAndFreeTheirBlocksOnce) {
    const int before = tests::LiveBlocks();
    for (const BoxRow& row : kBoxRows) {
        const bool numbered = row.code == EV_INSERT_REJECTED || row.code == EV_CANCEL_RESULT;
        const bool number_only = row.code == EV_CONNECTION_LOST;
        const auto block = [&] {
            if (number_only) return LPARAM{7};
            return numbered ? NumberedBlock(17, "文") : TextBlock("文");
        };
        SCOPED_TRACE(row.code);
        const auto expect = [&](const char* box) {
            EXPECT_GBK_EQ(box != nullptr ? box : "", TakeBoxes());
            EXPECT_EQ(before, tests::LiveBlocks());
        };
        Send(row.code, block());
        expect(row.success);
        Send(row.code);
        expect(row.success_without);
        SendFailed(row.code, block());
        expect(row.failure);
        SendFailed(row.code);
        expect(row.failure_without);
    }
}

TEST_F(CoreEvents, ReachTheCoreFirstAndOnceWhateverTheyAre) {
    for (const int code : {0,    0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x09,   0x0A,  0x0E,
                           0x0F, 0x15, 0x16, 0x17, 0x18, 0x19, 0x1A, 0x1B, 0x1C,   0x27,  0x28,
                           0x29, 0x2A, 0x2B, 0x2C, 0x2D, 0x2E, 0x31, 0x32, 0x2B11, 0xFFFF}) {
        for (const bool failed : {false, true}) {
            log.clear();
            char notified[40];
            snprintf(notified, sizeof(notified), "NotifyEvent(4, 0x%02X%s)", code,
                     failed ? " failed" : "");
            if (failed) {
                SendFailed(code);
            } else {
                Send(code);
            }
            ASSERT_FALSE(log.empty()) << notified;
            EXPECT_EQ(notified, log.front());
            EXPECT_EQ(1, std::count_if(log.begin(), log.end(), [](const std::string& line) {
                          return line.starts_with("NotifyEvent(");
                      }));
        }
    }
}

TEST_F(CoreEvents, OfUnknownCodesDoNothingElseAndKeepTheirPayload) {
    for (const int code : {0, 0x01, 0x03, 0x05, 0x0B, 0x32, 0x2B11, 0xFFFF}) {
        const LPARAM block = TextBlock("text");
        Send(code, block);
        SendFailed(code, block);
        EXPECT_EQ("", TakeLog());
        EXPECT_TRUE(tests::IsLiveBlock(reinterpret_cast<void*>(block)));
        FreeTaggedBlock(reinterpret_cast<void*>(block));
    }
}

TEST_F(CoreEvents, WithBlocksTooSmallForTheirRecordsChangeNothing) {
    for (const int code : {EV_ACCOUNT_RESULT, EV_MAX_VOLUME_RESULT, EV_ORDER_CHANGE,
                           EV_BANK_BALANCE, EV_BANK_TRANSFER_ROW, EV_FUNCTION_RESULT}) {
        Send(code, Block("ab", 2));
        EXPECT_EQ("", TakeLog()) << code;
    }
    EXPECT_EQ(0, g_dAvailable);
}

TEST_F(CoreEvents, PassWithoutACoreAndWithoutAHost) {
    const int before = tests::LiveBlocks();
    g_pUICallBack = nullptr;
    g_pfnHostCallBack = nullptr;
    g_hFrameWnd = nullptr;
    g_hParentWnd = nullptr;
    for (const BoxRow& row : kBoxRows) {
        Send(row.code, row.code == EV_CONNECTION_LOST ? -1 : TextBlock("0123456789"));
    }
    for (const int code : {0x08, 0x17, 0x28, 0x2A, 0x2B, 0x2D}) Send(code);
    EXPECT_EQ(before, tests::LiveBlocks());
}

TEST_F(CoreEvents, ThatWaitForAMainDialogThatGoesLoseTheirBlocks) {
    shell.reset();
    const int before = tests::LiveBlocks();
    MakeShell();
    PostCoreEvent(EV_ORDER_CHANGE, Outcome::kDone, EmptyBlock(1032));
    PostCoreEvent(EV_BATCH_QUERY_RESULT, Outcome::kFailed, EmptyBlock(1028));
    PostCoreEventValue(EV_CONNECTION_LOST, -1);
    shell.reset();
    EXPECT_EQ(before, tests::LiveBlocks());
    PostCoreEvent(EV_ORDER_CHANGE, Outcome::kDone, EmptyBlock(1032));
    EXPECT_EQ(before, tests::LiveBlocks());
    MakeShell();
    EXPECT_EQ("", TakeLog());
}

TEST_F(CoreEvents, AboutALoginKeepTheirBlockForGood) {
    const std::size_t kept = KeptLoginBlocks().size();
    const LPARAM success = Block("", 67128);
    const LPARAM failure = TextBlock("密码错误");
    Send(EV_LOGIN_RESULT, success);
    SendFailed(EV_LOGIN_RESULT, failure);
    SendFailed(EV_LOGIN_RESULT);
    EXPECT_EQ("", TakeLog());
    ASSERT_EQ(kept + 2, KeptLoginBlocks().size());
    EXPECT_EQ(success, reinterpret_cast<LPARAM>(KeptLoginBlocks()[kept]));
    EXPECT_EQ(failure, reinterpret_cast<LPARAM>(KeptLoginBlocks()[kept + 1]));
    EXPECT_TRUE(tests::IsLiveBlock(reinterpret_cast<void*>(success)));
    EXPECT_TRUE(tests::IsLiveBlock(reinterpret_cast<void*>(failure)));
}

TEST_F(CoreEvents, WhoseCoreClosesTheMainDialogEndThere) {
    for (const int code : {EV_ORDER_CHANGE, EV_LOGIN_RESULT, EV_SYSTEM_NOTICE}) {
        MakeShell();
        const std::size_t kept = KeptLoginBlocks().size();
        const LPARAM block = Block("text", 1032);
        core.on_call = [this](std::string_view line) {
            log.emplace_back(line);
            if (line.starts_with("NotifyEvent(")) shell.reset();
        };
        log.clear();
        Send(code, block);
        EXPECT_EQ(1U, log.size()) << code << ": " << log.back();
        const bool is_kept = code == EV_LOGIN_RESULT;
        EXPECT_EQ(is_kept, tests::IsLiveBlock(reinterpret_cast<void*>(block))) << code;
        EXPECT_EQ(kept + (is_kept ? 1 : 0), KeptLoginBlocks().size()) << code;
    }
}

/// Stands in for the login dialog: writes events down and frees blocks as it does.
class LoginWindow : public CWnd {
public:
    std::vector<WPARAM> events;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message != WM_CORE_EVENT) return CWnd::WindowProc(message, wParam, lParam);
        events.push_back(wParam);
        if (LOWORD(wParam) == EV_LOGIN_RESULT) FreeTaggedBlock(reinterpret_cast<void*>(lParam));
        return 0;
    }
};

TEST_F(CoreEvents, AboutALoginGoToTheOpenLoginDialog) {
    const int before = tests::LiveBlocks();
    const std::size_t kept = KeptLoginBlocks().size();
    LoginWindow login;
    login.CreateEx(0, nullptr, "", WS_POPUP, CRect(0, 0, 10, 10), &frame, 0);
    g_hLoginDlg = login;
    Send(EV_LOGIN_RESULT, Block("", 67128));
    SendFailed(EV_LOGIN_RESULT, TextBlock("密码错误"));
    char record[8] = "core's";
    Send(EV_SETTLE_RESULT, reinterpret_cast<LPARAM>(record));
    Send(EV_FUNCTION_RESULT, NumberedBlock(6095, "reply"));
    SendFailed(EV_FUNCTION_RESULT, NumberedBlock(6095, ""));
    Send(EV_SETTLE_RESULT, 0);
    EXPECT_THAT(login.events, testing::ElementsAre(0x09, 0x40009, 0x04, 0x31, 0x40031, 0x04));
    EXPECT_EQ(before, tests::LiveBlocks());
    EXPECT_EQ(kept, KeptLoginBlocks().size());
    g_hLoginDlg = nullptr;
}

}  // namespace
