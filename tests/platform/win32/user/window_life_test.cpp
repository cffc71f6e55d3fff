// Which messages come, and in which order, when windows are made, shown, moved, hidden and
// destroyed.

#include <gtest/gtest.h>

#include <string>

#include "tests/support/message_log.h"

namespace tests {

namespace {

constexpr RECT kFramePlace{100, 100, 400, 300};
constexpr RECT kChildPlace{10, 10, 90, 50};

std::string SizeText(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return "WM_SIZE(0, " + std::to_string(client.right) + "x" + std::to_string(client.bottom) + ")";
}

std::string MoveText(HWND window) {
    POINT place{};
    ClientToScreen(window, &place);
    return "WM_MOVE(" + std::to_string(place.x) + "," + std::to_string(place.y) + ")";
}

class WindowLife : public ::testing::Test {
protected:
    WindowLife() {
        // The pointer stays away from the windows: it has tests of its own.
        SetCursorPos(1200, 780);
        PumpQueue();
    }

    HWND MakeFrame(DWORD style = WS_OVERLAPPEDWINDOW) {
        return log_.Create("frame", style, kFramePlace);
    }

    HWND MakeShownFrame() {
        const HWND frame = MakeFrame();
        ShowWindow(frame, SW_SHOW);
        log_.PumpAndTake();
        return frame;
    }

    HWND MakeChild(HWND parent, DWORD style = WS_CHILD | WS_VISIBLE) {
        const HWND child = log_.Create("child", style, kChildPlace, parent, 7);
        log_.PumpAndTake();
        return child;
    }

    MessageLog log_;
};

TEST_F(WindowLife, AFrameHearsItsSizeWhenItIsFirstShown) {
    const HWND frame = MakeFrame();
    EXPECT_EQ(log_.Take(), "frame WM_NCCREATE; frame WM_CREATE");
    ShowWindow(frame, SW_SHOW);
    EXPECT_EQ(log_.PumpAndTake(),
              "frame WM_SHOWWINDOW(1, 0); frame POSCHANGING(-size -move +show); "
              "frame WM_ACTIVATEAPP(1); frame WM_NCACTIVATE(1); "
              "frame WM_ACTIVATE(active, null) [frame WM_SETFOCUS(null)]; frame WM_ERASEBKGND; "
              "frame POSCHANGED(-size -move -z +show); frame " +
                  SizeText(frame) + "; frame " + MoveText(frame) + "; *frame WM_PAINT*");
    ShowWindow(frame, SW_SHOW);
    EXPECT_EQ(log_.PumpAndTake(), "");
}

TEST_F(WindowLife, AChildOfAShownFrameIsShownAtOnce) {
    const HWND frame = MakeShownFrame();
    log_.Create("child", WS_CHILD | WS_VISIBLE, kChildPlace, frame, 7);
    EXPECT_EQ(log_.PumpAndTake(),
              "child WM_NCCREATE; child WM_CREATE; child WM_SIZE(0, 80x40); child WM_MOVE(10,10); "
              "frame WM_PARENTNOTIFY(WM_CREATE id 7, child); child WM_SHOWWINDOW(1, 0); "
              "child POSCHANGING(-size -move -z -act +show); child WM_ERASEBKGND; "
              "child POSCHANGED(-size -move -z -act +show); *child WM_PAINT*");
}

TEST_F(WindowLife, AChildOfAHiddenFrameIsOnlyMarkedVisible) {
    const HWND frame = MakeFrame();
    log_.Take();
    const HWND child = log_.Create("child", WS_CHILD | WS_VISIBLE, kChildPlace, frame, 7);
    EXPECT_EQ(log_.PumpAndTake(),
              "child WM_NCCREATE; child WM_CREATE; child WM_SIZE(0, 80x40); child WM_MOVE(10,10); "
              "frame WM_PARENTNOTIFY(WM_CREATE id 7, child); child WM_SHOWWINDOW(1, 0)");
    EXPECT_FALSE(IsWindowVisible(child));
    EXPECT_FALSE(ShowWindow(child, SW_HIDE) == 0);
    EXPECT_EQ(log_.PumpAndTake(), "child WM_SHOWWINDOW(0, 0)");
    EXPECT_EQ(ShowWindow(child, SW_SHOW), 0);
    EXPECT_EQ(log_.PumpAndTake(), "child WM_SHOWWINDOW(1, 0)");
    EXPECT_NE(static_cast<DWORD>(GetWindowLongA(child, GWL_STYLE)) & WS_VISIBLE, 0U);
}

TEST_F(WindowLife, OnlyWhatChangedIsTold) {
    const HWND frame = MakeShownFrame();
    const HWND child = MakeChild(frame);
    const auto resize = [&](int x, int y, int width, int height) {
        MoveWindow(child, x, y, width, height, TRUE);
        log_.Omit({WM_PAINT, WM_ERASEBKGND, WM_NCPAINT});
        return log_.PumpAndTake();
    };
    EXPECT_EQ(resize(20, 10, 80, 40),
              "child POSCHANGING(-z -act); child POSCHANGED(-size -z -act) [child WM_MOVE(20,10)]");
    EXPECT_EQ(
        resize(20, 10, 90, 40),
        "child POSCHANGING(-z -act); child POSCHANGED(-move -z -act) [child WM_SIZE(0, 90x40)]");
    EXPECT_EQ(resize(30, 20, 100, 50),
              "child POSCHANGING(-z -act); child POSCHANGED(-z -act) [child WM_MOVE(30,20); child "
              "WM_SIZE(0, 100x50)]");
    EXPECT_EQ(resize(30, 20, 100, 50), "child POSCHANGING(-z -act)");
    SetWindowPos(child, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    EXPECT_EQ(log_.PumpAndTake(),
              "child POSCHANGING(-size -move -z -act +frame); child POSCHANGED(-size -move -z -act "
              "+frame)");
}

TEST_F(WindowLife, AMovedChildBringsItsPixelsAlong) {
    const HWND frame = MakeShownFrame();
    const HWND child = MakeChild(frame);
    log_.Only({WM_PAINT, WM_ERASEBKGND});
    MoveWindow(child, 40, 10, 80, 40, TRUE);
    EXPECT_EQ(log_.PumpAndTake(), "*frame WM_PAINT* [frame WM_ERASEBKGND]");
    MoveWindow(child, 40, 10, 100, 50, TRUE);
    EXPECT_EQ(log_.PumpAndTake(), "*child WM_PAINT* [child WM_ERASEBKGND]");
    MoveWindow(child, 40, 10, 80, 40, TRUE);
    EXPECT_EQ(log_.PumpAndTake(),
              "frame WM_ERASEBKGND; *frame WM_PAINT*; *child WM_PAINT* [child WM_ERASEBKGND]");
    MoveWindow(child, 10, 10, 80, 40, FALSE);
    EXPECT_EQ(log_.PumpAndTake(), "");
}

TEST_F(WindowLife, HidingAChildUncoversItsParent) {
    const HWND frame = MakeShownFrame();
    const HWND child = MakeChild(frame);
    ShowWindow(child, SW_HIDE);
    EXPECT_EQ(log_.PumpAndTake(),
              "child WM_SHOWWINDOW(0, 0); child POSCHANGING(-size -move -z -act +hide); frame "
              "WM_ERASEBKGND; "
              "child POSCHANGED(-size -move -z -act +hide); *frame WM_PAINT*");
    ShowWindow(child, SW_HIDE);
    EXPECT_EQ(log_.PumpAndTake(), "");
}

TEST_F(WindowLife, HidingTheOnlyFrameLeavesNothingActive) {
    const HWND frame = MakeShownFrame();
    ShowWindow(frame, SW_HIDE);
    EXPECT_EQ(log_.PumpAndTake(),
              "frame WM_SHOWWINDOW(0, 0); frame POSCHANGING(-size -move +hide); frame "
              "POSCHANGED(-size -move -z +hide); "
              "frame WM_NCACTIVATE(0); frame WM_ACTIVATE(inactive, null); frame WM_ACTIVATEAPP(0); "
              "frame WM_KILLFOCUS(null)");
    EXPECT_EQ(GetActiveWindow(), nullptr);
    EXPECT_EQ(GetFocus(), nullptr);
}

TEST_F(WindowLife, DestructionGoesDownAndComesBackUp) {
    const HWND frame = MakeShownFrame();
    const HWND child = MakeChild(frame, WS_CHILD);
    log_.Create("grandchild", WS_CHILD, {0, 0, 5, 5}, child, 6);
    log_.PumpAndTake();
    DestroyWindow(child);
    EXPECT_EQ(
        log_.PumpAndTake(),
        "frame WM_PARENTNOTIFY(WM_DESTROY id 7, child); child WM_DESTROY; grandchild WM_DESTROY; "
        "grandchild WM_NCDESTROY; child WM_NCDESTROY");
    MakeChild(frame);
    DestroyWindow(frame);
    EXPECT_EQ(log_.PumpAndTake(),
              "frame POSCHANGING(-size -move -z -act +hide); frame POSCHANGED(-size -move -z -act "
              "+hide); "
              "frame WM_NCACTIVATE(0); frame WM_ACTIVATE(inactive, null); frame WM_ACTIVATEAPP(0); "
              "frame WM_KILLFOCUS(null); frame WM_DESTROY; child WM_DESTROY; child WM_NCDESTROY; "
              "frame WM_NCDESTROY");
}

TEST_F(WindowLife, AnOwnerTakesItsPopupsAlong) {
    const HWND frame = MakeShownFrame();
    const HWND popup = log_.Create("popup", WS_POPUP | WS_VISIBLE, {150, 150, 210, 190}, frame);
    EXPECT_EQ(
        log_.PumpAndTake(),
        "popup WM_NCCREATE; popup WM_CREATE; popup WM_SIZE(0, 60x40); popup WM_MOVE(150,150); "
        "popup WM_SHOWWINDOW(1, 0); popup POSCHANGING(-size -move +show); frame WM_NCACTIVATE(0); "
        "frame WM_ACTIVATE(inactive, popup); popup WM_NCACTIVATE(1); "
        "popup WM_ACTIVATE(active, frame) [frame WM_KILLFOCUS(popup); popup WM_SETFOCUS(frame)]; "
        "popup WM_ERASEBKGND; popup POSCHANGED(-size -move -z +show); *popup WM_PAINT*");
    EXPECT_EQ(GetParent(popup), frame);
    DestroyWindow(frame);
    EXPECT_FALSE(IsWindow(popup));
    EXPECT_FALSE(IsWindow(frame));
}

bool RefuseCreation(MessageLog& log, const std::string& role, UINT message, WPARAM, LPARAM,
                    LRESULT& answer) {
    static_cast<void>(log);
    if (role == "refused" && message == WM_NCCREATE) {
        answer = 0;
        return true;
    }
    if (role == "failed" && message == WM_CREATE) {
        answer = -1;
        return true;
    }
    return false;
}

TEST_F(WindowLife, RefusedCreationLeavesNothingBehind) {
    const HWND frame = MakeShownFrame();
    log_.SetHandler(RefuseCreation);
    EXPECT_EQ(log_.Create("refused", WS_CHILD, kChildPlace, frame, 1), nullptr);
    EXPECT_EQ(log_.PumpAndTake(), "refused WM_NCCREATE; refused WM_NCDESTROY");
    EXPECT_EQ(log_.Create("failed", WS_CHILD, kChildPlace, frame, 1), nullptr);
    EXPECT_EQ(log_.PumpAndTake(), "failed WM_NCCREATE; failed WM_CREATE; failed WM_NCDESTROY");
    EXPECT_EQ(GetWindow(frame, GW_CHILD), nullptr);
    log_.SetHandler(nullptr);
    EXPECT_EQ(log_.Create("orphan", WS_CHILD, kChildPlace), nullptr);
    EXPECT_EQ(
        CreateWindowExA(0, "NoSuchClass", "", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr),
        nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_CLASS_DOES_NOT_EXIST});
}

bool DestroyInCreate(MessageLog& log, const std::string& role, UINT message, WPARAM, LPARAM,
                     LRESULT&) {
    static_cast<void>(role);
    if (message == WM_USER + 1) DestroyWindow(FindWindowA(nullptr, "doomed"));
    static_cast<void>(log);
    return false;
}

TEST_F(WindowLife, AWindowMayDestroyItselfInItsOwnMessage) {
    const HWND frame = log_.Create("doomed", WS_OVERLAPPEDWINDOW, kFramePlace);
    SetWindowTextA(frame, "doomed");
    log_.Take();
    log_.SetHandler(DestroyInCreate);
    EXPECT_EQ(SendMessageA(frame, WM_USER + 1, 0, 0), 0);
    EXPECT_EQ(log_.Take(), "doomed WM_USER+1(0, 0) [doomed WM_DESTROY; doomed WM_NCDESTROY]");
    EXPECT_FALSE(IsWindow(frame));
}

TEST_F(WindowLife, DeadHandlesFailAsDocumented) {
    const HWND dead = MakeFrame();
    DestroyWindow(dead);
    RECT rect{1, 2, 3, 4};
    const struct {
        const char* name;
        bool failed;
    } kCalls[] = {{"PostMessage", PostMessageA(dead, WM_USER, 0, 0) == 0},
                  {"SendMessage", SendMessageA(dead, WM_USER, 0, 0) == 0},
                  {"SendMessage null", SendMessageA(nullptr, WM_USER, 0, 0) == 0},
                  {"ShowWindow", ShowWindow(dead, SW_SHOW) == 0},
                  {"SetWindowText", SetWindowTextA(dead, "x") == 0},
                  {"GetParent", GetParent(dead) == nullptr},
                  {"GetClientRect", GetClientRect(dead, &rect) == 0},
                  {"InvalidateRect", InvalidateRect(dead, nullptr, TRUE) == 0},
                  {"SetTimer", SetTimer(dead, 1, 10, nullptr) == 0},
                  {"SetFocus", SetFocus(dead) == nullptr},
                  {"GetDC", GetDC(dead) == nullptr},
                  {"MoveWindow", MoveWindow(dead, 0, 0, 1, 1, TRUE) == 0},
                  {"DestroyWindow", DestroyWindow(dead) == 0}};
    for (const auto& [name, failed] : kCalls) EXPECT_TRUE(failed) << name;
    SetLastError(0);
    EXPECT_EQ(GetParent(dead), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
    EXPECT_EQ(rect.left, 1);
}

}  // namespace

}  // namespace tests
