#include "session/msg_dlg.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/testing/input.h"
#include "plugin/settings/process_values.h"
#include "tests/pages/test_module.h"
#include "tests/support/gbk_text.h"

namespace {

/// What a dialog showed while it was open, and how it was left.
struct Seen {
    const char* body = "结算单";
    const char* ok = "确认";
    const char* cancel = "退出";
    const char* title = "通知";
    CWnd* parent = nullptr;
    void (*leave)(HWND dialog) = nullptr;

    INT_PTR result = 0;
    std::string shown_body = {};
    std::string shown_ok = {};
    std::string shown_cancel = {};
    std::string shown_title = {};
    HWND owner = nullptr;
    int focus = 0;
    bool body_selected = false;
    bool body_editable = true;
};

std::string TextOf(HWND window) {
    std::string text(static_cast<std::size_t>(::GetWindowTextLengthA(window)) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        ::GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

void LookAndLeave(void* context) {
    auto& seen = *static_cast<Seen*>(context);
    HWND dialog = ::GetActiveWindow();
    HWND body = ::GetDlgItem(dialog, CMsgDlg::kBody);
    seen.shown_title = TextOf(dialog);
    seen.shown_body = TextOf(body);
    seen.shown_ok = TextOf(::GetDlgItem(dialog, IDOK));
    seen.shown_cancel = TextOf(::GetDlgItem(dialog, IDCANCEL));
    seen.owner = ::GetWindow(dialog, GW_OWNER);
    seen.focus = ::GetDlgCtrlID(::GetFocus());
    DWORD start = 0;
    DWORD end = 0;
    ::SendMessageA(body, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                   reinterpret_cast<LPARAM>(&end));
    seen.body_selected = start != end;
    seen.body_editable = (::GetWindowLongA(body, GWL_STYLE) & ES_READONLY) == 0;
    seen.leave(dialog);
}

// The dialog's own loop must fetch the input, so nothing here waits for it.
void PressOk(HWND dialog) { ::PostMessageA(::GetDlgItem(dialog, IDOK), BM_CLICK, 0, 0); }
void PressCancel(HWND dialog) { ::PostMessageA(::GetDlgItem(dialog, IDCANCEL), BM_CLICK, 0, 0); }
void Strike(BYTE key) {
    ::keybd_event(key, 0, 0, 0);
    ::keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
}
void PressEnter(HWND) { Strike(VK_RETURN); }
void PressEscape(HWND) { Strike(VK_ESCAPE); }
void PressClose(HWND dialog) { ::PostMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0); }

Seen Show(Seen seen) {
    CMsgDlg dialog(seen.body, seen.ok, seen.cancel, seen.title, seen.parent);
    platform::testing::WhenIdle(LookAndLeave, &seen);
    seen.result = dialog.DoModal();
    return seen;
}

TEST(MsgDlg, ShowsItsTextsAndTakesNoTyping) {
    tests::PageFrame frame;
    const Seen seen = Show({.body = "第一行\r\n第二行",
                            .ok = "确定",
                            .cancel = "不同意",
                            .title = "交易通知",
                            .parent = &frame,
                            .leave = PressOk});
    EXPECT_GBK_EQ("第一行\r\n第二行", seen.shown_body);
    EXPECT_GBK_EQ("确定", seen.shown_ok);
    EXPECT_GBK_EQ("不同意", seen.shown_cancel);
    EXPECT_GBK_EQ("交易通知", seen.shown_title);
    EXPECT_FALSE(seen.body_editable);
}

TEST(MsgDlg, KeepsItsOwnWordsWhereNoneAreGiven) {
    tests::PageFrame frame;
    const Seen seen = Show({.body = nullptr,
                            .ok = nullptr,
                            .cancel = nullptr,
                            .title = nullptr,
                            .parent = &frame,
                            .leave = PressOk});
    EXPECT_GBK_EQ("", seen.shown_body);
    EXPECT_GBK_EQ("确认", seen.shown_ok);
    EXPECT_GBK_EQ("退出", seen.shown_cancel);
}

TEST(MsgDlg, AnswersOkForItsFirstButtonOnly) {
    struct Way {
        const char* name;
        void (*leave)(HWND dialog);
        INT_PTR result;
    };
    const Way ways[] = {
        {"first button", PressOk, IDOK},     {"second button", PressCancel, IDCANCEL},
        {"Enter", PressEnter, IDOK},         {"Escape", PressEscape, IDCANCEL},
        {"close box", PressClose, IDCANCEL},
    };
    tests::PageFrame frame;
    for (const Way& way : ways) {
        SCOPED_TRACE(way.name);
        EXPECT_EQ(Show({.parent = &frame, .leave = way.leave}).result, way.result);
    }
}

TEST(MsgDlg, OpensWithTheFirstButtonReadyAndTheTextUnselected) {
    tests::PageFrame frame;
    const Seen seen = Show({.parent = &frame, .leave = PressOk});
    EXPECT_EQ(seen.focus, IDOK);
    EXPECT_FALSE(seen.body_selected);
}

TEST(MsgDlg, ShowsALongTextWhole) {
    tests::PageFrame frame;
    std::string body;
    for (int line = 0; line < 4000; ++line) body += "期末结存      174,156.30\r\n";
    EXPECT_GBK_EQ(body,
                  Show({.body = body.c_str(), .parent = &frame, .leave = PressOk}).shown_body);
}

TEST(MsgDlg, BelongsToTheHostsFrameWithoutAParent) {
    tests::PageFrame frame;
    tests::PageFrame parent;
    g_hFrameWnd = frame;
    EXPECT_EQ(Show({.leave = PressOk}).owner, frame.m_hWnd);
    EXPECT_EQ(Show({.parent = &parent, .leave = PressOk}).owner, parent.m_hWnd);
    g_hFrameWnd = nullptr;
    EXPECT_EQ(Show({.leave = PressOk}).owner, nullptr);
}

TEST(MsgDlg, OpensWithoutTheFrameThatWasThere) {
    {
        tests::PageFrame gone;
        g_hFrameWnd = gone;
    }
    EXPECT_EQ(Show({.leave = PressOk}).result, IDOK);
    g_hFrameWnd = nullptr;
}

}  // namespace
