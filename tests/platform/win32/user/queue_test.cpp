// Order, filters and results of the message queue, and hooks on what is fetched.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/testing/input.h"
#include "tests/support/message_log.h"

namespace tests {

namespace {

class Queue : public ::testing::Test {
protected:
    Queue() {
        frame_ = log_.Create("frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {100, 100, 400, 300});
        child_ = log_.Create("child", WS_CHILD | WS_VISIBLE, {10, 10, 90, 50}, frame_, 1);
        PumpQueue();
        log_.Only(
            {WM_KEYDOWN, WM_KEYUP, WM_PAINT, WM_TIMER, WM_USER + 1, WM_USER + 2, WM_USER + 3});
        log_.Take();
    }
    ~Queue() override {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
    }

    HWND DeadWindow() {
        const HWND window = log_.Create("dead", WS_POPUP, {0, 0, 10, 10});
        DestroyWindow(window);
        PumpQueue();
        log_.Take();
        SetLastError(0);
        return window;
    }

    MessageLog log_;
    HWND frame_ = nullptr;
    HWND child_ = nullptr;
};

TEST_F(Queue, SentPostedInputPaint) {
    InvalidateRect(frame_, nullptr, FALSE);
    ValidateRect(child_, nullptr);
    keybd_event('A', 0, 0, 0);
    keybd_event('A', 0, KEYEVENTF_KEYUP, 0);
    PostMessageA(frame_, WM_USER + 1, 0, 0);
    PostMessageA(frame_, WM_USER + 2, 0, 0);
    SendMessageA(frame_, WM_USER + 3, 0, 0);
    EXPECT_EQ(log_.PumpAndTake().substr(0, 136),
              "frame WM_USER+3(0, 0); *frame WM_USER+1(0, 0)*; *frame WM_USER+2(0, 0)*; "
              "*frame WM_KEYDOWN(0x41)*; *frame WM_KEYUP(0x41)*; *frame WM_PAI");
}

TEST_F(Queue, QuitComesAfterWhatWasPosted) {
    PostQuitMessage(3);
    PostMessageA(frame_, WM_USER + 1, 0, 0);
    MSG message{};
    ASSERT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, UINT{WM_USER + 1});
    EXPECT_EQ(GetMessageA(&message, nullptr, 0, 0), 0);
    EXPECT_EQ(message.message, UINT{WM_QUIT});
    EXPECT_EQ(message.wParam, WPARAM{3});
    EXPECT_EQ(message.hwnd, nullptr);
}

TEST_F(Queue, QuitPassesEveryFilterAndTheLastCodeCounts) {
    PostQuitMessage(1);
    PostQuitMessage(2);
    MSG message{};
    EXPECT_TRUE(PeekMessageA(&message, frame_, WM_USER, WM_USER + 5, PM_NOREMOVE));
    EXPECT_TRUE(PeekMessageA(&message, frame_, WM_USER, WM_USER + 5, PM_REMOVE));
    EXPECT_EQ(message.wParam, WPARAM{2});
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_QUIT}) << "left as it was";
}

TEST_F(Queue, FiltersTakeWhatTheyNameAndLeaveTheRest) {
    PostMessageA(frame_, WM_USER + 1, 0, 0);
    PostMessageA(child_, WM_USER + 2, 0, 0);
    PostMessageA(nullptr, WM_USER + 3, 0, 0);
    MSG message{};
    EXPECT_TRUE(PeekMessageA(&message, child_, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(message.message, UINT{WM_USER + 2});
    EXPECT_FALSE(PeekMessageA(&message, child_, WM_USER + 3, WM_USER + 9, PM_REMOVE));
    const HWND none = reinterpret_cast<HWND>(static_cast<INT_PTR>(-1));
    EXPECT_TRUE(PeekMessageA(&message, none, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_USER + 3});
    // A window stands for its children as well.
    EXPECT_TRUE(PeekMessageA(&message, frame_, WM_USER + 2, WM_USER + 2, PM_REMOVE));
    EXPECT_EQ(message.hwnd, child_);
    EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_USER + 1});
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_USER, WM_USER + 9, PM_REMOVE));
}

TEST_F(Queue, InputWaitsForAFilterThatTakesIt) {
    SetFocus(frame_);
    keybd_event('B', 0, 0, 0);
    keybd_event('B', 0, KEYEVENTF_KEYUP, 0);
    MSG message{};
    EXPECT_FALSE(PeekMessageA(&message, child_, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE));
    EXPECT_TRUE(PeekMessageA(&message, frame_, WM_KEYUP, WM_KEYUP, PM_REMOVE));
    EXPECT_TRUE(PeekMessageA(&message, frame_, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_KEYDOWN});
}

TEST_F(Queue, DeadWindowsAreRefused) {
    const HWND dead = DeadWindow();
    MSG message{};
    const struct {
        const char* call;
        LRESULT result;
        LRESULT expected;
    } kCases[] = {{"PostMessage", PostMessageA(dead, WM_USER, 0, 0), 0},
                  {"SendMessage", SendMessageA(dead, WM_USER, 0, 0), 0},
                  {"SendMessage(null)", SendMessageA(nullptr, WM_USER, 0, 0), 0},
                  {"SendNotifyMessage", SendNotifyMessageA(dead, WM_USER, 0, 0), 0},
                  {"PeekMessage", PeekMessageA(&message, dead, 0, 0, PM_REMOVE), 0},
                  {"GetMessage", GetMessageA(&message, dead, 0, 0), -1},
                  {"SetTimer", static_cast<LRESULT>(SetTimer(dead, 1, 10, nullptr)), 0},
                  {"KillTimer", KillTimer(dead, 1), 0},
                  {"DefWindowProc", DefWindowProcA(dead, WM_CLOSE, 0, 0), 0}};
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
    for (const auto& [call, result, expected] : kCases) EXPECT_EQ(result, expected) << call;
    EXPECT_FALSE(PostThreadMessageA(0x7FFFFFF0, WM_USER, 0, 0));
}

TEST_F(Queue, WhatWasPostedToADestroyedWindowIsGone) {
    PostMessageA(child_, WM_USER + 1, 0, 0);
    PostMessageA(frame_, WM_USER + 2, 0, 0);
    DestroyWindow(child_);
    EXPECT_EQ(log_.PumpAndTake().substr(0, 24), "*frame WM_USER+2(0, 0)*;");
}

TEST_F(Queue, AMessageWithoutAWindowReachesTheLoopOnly) {
    ASSERT_TRUE(PostMessageA(nullptr, WM_USER + 1, 7, 8));
    MSG message{};
    ASSERT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.hwnd, nullptr);
    EXPECT_EQ(message.wParam, WPARAM{7});
    EXPECT_EQ(message.lParam, LPARAM{8});
    EXPECT_EQ(DispatchMessageA(&message), 0);
}

TEST_F(Queue, AFullQueueRefuses) {
    int posted = 0;
    while (posted < 20'000 && PostMessageA(frame_, WM_USER + 9, 0, 0)) ++posted;
    EXPECT_EQ(posted, 10'000);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_NOT_ENOUGH_QUOTA});
    PumpQueue();
    EXPECT_TRUE(PostMessageA(frame_, WM_USER + 9, 0, 0));
}

TEST_F(Queue, APaintThatNobodyAnswersComesAgain) {
    InvalidateRect(child_, nullptr, FALSE);
    for (int round = 0; round < 3; ++round) {
        MSG message{};
        ASSERT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
        EXPECT_EQ(message.message, UINT{WM_PAINT});
        EXPECT_EQ(message.hwnd, child_);
    }
}

TEST_F(Queue, StatusTellsWhatIsThereAndWhatIsNew) {
    GetQueueStatus(QS_ALLINPUT);
    EXPECT_EQ(GetQueueStatus(QS_ALLINPUT), 0u);
    PostMessageA(frame_, WM_USER, 0, 0);
    EXPECT_EQ(GetQueueStatus(QS_POSTMESSAGE), DWORD{QS_POSTMESSAGE << 16 | QS_POSTMESSAGE});
    EXPECT_EQ(GetQueueStatus(QS_POSTMESSAGE), DWORD{QS_POSTMESSAGE << 16}) << "no longer new";
    EXPECT_EQ(GetQueueStatus(QS_KEY), 0u);
    PumpQueue();
    EXPECT_EQ(GetQueueStatus(QS_ALLINPUT), 0u);
}

TEST_F(Queue, WaitingEndsForWhatIsNewOnly) {
    PostMessageA(frame_, WM_USER, 0, 0);
    EXPECT_TRUE(WaitMessage());
    MSG message;
    PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);
    EXPECT_EQ(MsgWaitForMultipleObjects(0, nullptr, FALSE, 0, QS_ALLINPUT), DWORD{WAIT_TIMEOUT});
    PostMessageA(frame_, WM_USER, 0, 0);
    EXPECT_EQ(MsgWaitForMultipleObjects(0, nullptr, FALSE, 0, QS_KEY), DWORD{WAIT_TIMEOUT});
    EXPECT_EQ(MsgWaitForMultipleObjects(0, nullptr, FALSE, INFINITE, QS_ALLINPUT),
              DWORD{WAIT_OBJECT_0});
}

// ---- hooks ----

std::string g_seen;
HHOOK g_second = nullptr;

LRESULT CALLBACK FirstHook(int code, WPARAM wParam, LPARAM lParam) {
    const MSG& message = *reinterpret_cast<const MSG*>(lParam);
    if (message.message >= WM_USER) g_seen += wParam == PM_REMOVE ? "first " : "(first) ";
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK SecondHook(int code, WPARAM wParam, LPARAM lParam) {
    MSG& message = *reinterpret_cast<MSG*>(lParam);
    if (message.message >= WM_USER) g_seen += "second ";
    if (message.message == WM_USER + 2) message.message = WM_NULL;
    if (message.message == WM_USER + 3) UnhookWindowsHookEx(g_second);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

TEST_F(Queue, HooksSeeAndChangeWhatIsFetchedNewestFirst) {
    g_seen.clear();
    const HHOOK first = SetWindowsHookExA(WH_GETMESSAGE, FirstHook, nullptr, GetCurrentThreadId());
    g_second = SetWindowsHookExA(WH_GETMESSAGE, SecondHook, nullptr, GetCurrentThreadId());
    PostMessageA(frame_, WM_USER + 1, 0, 0);
    EXPECT_EQ(log_.PumpAndTake(), "*frame WM_USER+1(0, 0)*");
    EXPECT_EQ(g_seen, "second first ");
    PostMessageA(frame_, WM_USER + 2, 0, 0);
    EXPECT_EQ(log_.PumpAndTake(), "") << "the hook took it away";
    g_seen.clear();
    PostMessageA(frame_, WM_USER + 3, 0, 0);
    PumpQueue();
    EXPECT_EQ(g_seen, "second first ") << "a hook may take itself away";
    g_seen.clear();
    PostMessageA(frame_, WM_USER + 1, 0, 0);
    MSG message;
    PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);
    PumpQueue();
    EXPECT_EQ(g_seen, "(first) first ");
    EXPECT_TRUE(UnhookWindowsHookEx(first));
    EXPECT_FALSE(UnhookWindowsHookEx(first));
    EXPECT_FALSE(UnhookWindowsHookEx(g_second));
}

TEST_F(Queue, HooksOfOtherKindsAreRefused) {
    EXPECT_EQ(SetWindowsHookExA(WH_GETMESSAGE, nullptr, nullptr, GetCurrentThreadId()), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_FILTER_PROC});
    EXPECT_EQ(SetWindowsHookExA(999, FirstHook, nullptr, GetCurrentThreadId()), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_HOOK_FILTER});
}

TEST_F(Queue, MessagesRememberWhenAndWhereTheyWereMade) {
    platform::testing::MovePointer({700, 500});
    const DWORD before = GetTickCount();
    PostMessageA(frame_, WM_USER + 1, 0, 0);
    platform::testing::MovePointer({10, 20});
    MSG message{};
    PostMessageA(frame_, WM_USER + 2, 0, 0);
    ASSERT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.pt.x, 10);
    EXPECT_EQ(GetMessagePos(), static_cast<DWORD>(MAKELONG(10, 20)));
    EXPECT_LE(before, static_cast<DWORD>(GetMessageTime()));
}

TEST_F(Queue, RegisteredMessagesAreOneForEachName) {
    const UINT first = RegisterWindowMessageA("tests.first");
    EXPECT_GE(first, 0xC000u);
    EXPECT_EQ(RegisterWindowMessageA("TESTS.FIRST"), first);
    EXPECT_NE(RegisterWindowMessageA("tests.second"), first);
    EXPECT_EQ(RegisterWindowMessageA(nullptr), 0u);
}

}  // namespace

}  // namespace tests
