// What windows hear of the pointer and its buttons, and in which order.

#include "tests/platform/win32/user/pointer_fixture.h"

namespace tests {

namespace {

using platform::testing::ScreenPoint;

class Mouse : public PointerTest {
protected:
    /// Everything about the pointer, questions included.
    void ShowQuestions() {
        log_.Only({WM_NCHITTEST, WM_SETCURSOR, WM_MOUSEACTIVATE, WM_PARENTNOTIFY, WM_MOUSEMOVE,
                   WM_LBUTTONDOWN, WM_LBUTTONUP, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_ACTIVATE,
                   WM_CONTEXTMENU});
        log_.ShowAnswers({WM_NCHITTEST, WM_MOUSEACTIVATE});
    }
};

TEST_F(Mouse, AMoveAsksForTheHitAndTheCursor) {
    ShowQuestions();
    const std::string expected =
        "A WM_NCHITTEST(0)=1; A WM_SETCURSOR(A, hit 1, WM_MOUSEMOVE) [frame WM_SETCURSOR(A, hit 1, "
        "WM_MOUSEMOVE)]; *A WM_MOUSEMOVE(0, 6,6)*";
    MoveTo(a_, 6, 6);
    EXPECT_EQ(log_.Take(), expected);
    MoveTo(a_, 6, 6);
    EXPECT_EQ(log_.Take(), expected) << "the same place again";
}

TEST_F(Mouse, OnlyTheLastOfSeveralMovesIsTold) {
    for (int x = 0; x < 20; ++x) SetCursorPos(ScreenPoint(a_, x, 5).x, ScreenPoint(a_, x, 5).y);
    EXPECT_EQ(log_.PumpAndTake(), "*A WM_MOUSEMOVE(0, 19,5)*");
}

TEST_F(Mouse, APressAsksParentsAndActivation) {
    MoveTo(a_, 10, 10);
    ShowQuestions();
    log_.Take();
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    EXPECT_EQ(
        log_.PumpAndTake(),
        "A WM_NCHITTEST(0)=1; frame WM_PARENTNOTIFY(WM_LBUTTONDOWN, 20,20); "
        "A WM_MOUSEACTIVATE(frame, hit 1, WM_LBUTTONDOWN)=1 [frame WM_MOUSEACTIVATE(frame, hit "
        "1, WM_LBUTTONDOWN)=1]; A WM_SETCURSOR(A, hit 1, WM_LBUTTONDOWN) [frame "
        "WM_SETCURSOR(A, hit 1, WM_LBUTTONDOWN)]; *A WM_LBUTTONDOWN(1, 10,10)*");
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    EXPECT_EQ(log_.PumpAndTake(),
              "A WM_NCHITTEST(0)=1; A WM_SETCURSOR(A, hit 1, WM_LBUTTONUP) [frame WM_SETCURSOR(A, "
              "hit 1, WM_LBUTTONUP)]; *A WM_LBUTTONUP(0, 10,10)*");
}

TEST_F(Mouse, APressActivatesBeforeItIsTold) {
    const HWND second =
        log_.Create("second", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {450, 100, 650, 200});
    PumpQueue();
    ASSERT_EQ(GetActiveWindow(), second);
    log_.Only({WM_PARENTNOTIFY, WM_MOUSEACTIVATE, WM_ACTIVATE, WM_SETFOCUS, WM_KILLFOCUS,
               WM_LBUTTONDOWN, WM_LBUTTONUP});
    EXPECT_EQ(AfterClickAt(a_, 10, 10),
              "frame WM_PARENTNOTIFY(WM_LBUTTONDOWN, 20,20); "
              "A WM_MOUSEACTIVATE(frame, hit 1, WM_LBUTTONDOWN) [frame WM_MOUSEACTIVATE(frame, hit "
              "1, WM_LBUTTONDOWN)]; second WM_ACTIVATE(inactive, frame); "
              "frame WM_ACTIVATE(click, second) [second WM_KILLFOCUS(frame); "
              "frame WM_SETFOCUS(second)]; *A WM_LBUTTONDOWN(1, 10,10)*; "
              "*A WM_LBUTTONUP(0, 10,10)*");
}

TEST_F(Mouse, TheAnswerToMouseActivateDecides) {
    static LRESULT activation = 0;
    log_.SetHandler(
        [](MessageLog&, const std::string& role, UINT message, WPARAM, LPARAM, LRESULT& answer) {
            answer = activation;
            return role == "A" && message == WM_MOUSEACTIVATE;
        });
    const HWND second =
        log_.Create("second", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {450, 100, 650, 200});
    const struct {
        LRESULT answer;
        bool activates;
        bool tells;
    } kCases[] = {{MA_ACTIVATE, true, true},
                  {MA_ACTIVATEANDEAT, true, false},
                  {MA_NOACTIVATE, false, true},
                  {MA_NOACTIVATEANDEAT, false, false}};
    for (const auto& [answer, activates, tells] : kCases) {
        SetActiveWindow(second);
        activation = answer;
        const std::string told = AfterClickAt(a_, 10, 10);
        EXPECT_EQ(GetActiveWindow() == frame_, activates) << answer;
        EXPECT_EQ(told.find("WM_LBUTTONDOWN") != std::string::npos, tells) << answer;
    }
}

TEST_F(Mouse, ARightClickAsksForTheMenu) {
    MoveTo(a_, 12, 12);
    log_.Take();
    ClickHere(MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP);
    EXPECT_EQ(log_.Take(),
              "*A WM_RBUTTONDOWN(2, 12,12)*; *A WM_RBUTTONUP(0, 12,12)* [A WM_CONTEXTMENU [frame "
              "WM_CONTEXTMENU]]");
}

TEST_F(Mouse, TheSecondPressIsADoubleClickWhereTheClassWantsIt) {
    EXPECT_EQ(AfterClickAt(a_, 30, 20) + "; " + AfterClickAt(a_, 30, 20),
              "*A WM_LBUTTONDOWN(1, 30,20)*; *A WM_LBUTTONUP(0, 30,20)*; "
              "*A WM_LBUTTONDOWN(1, 30,20)*; *A WM_LBUTTONUP(0, 30,20)*");
    const std::string single = "*B WM_LBUTTONDOWN(1, 30,20)*; *B WM_LBUTTONUP(0, 30,20)*";
    EXPECT_EQ(AfterClickAt(b_, 30, 20), single);
    EXPECT_EQ(AfterClickAt(b_, 30, 20),
              "*B WM_LBUTTONDBLCLK(1, 30,20)*; *B WM_LBUTTONUP(0, 30,20)*");
    EXPECT_EQ(AfterClickAt(b_, 30, 20), single) << "a third press begins anew";
}

TEST_F(Mouse, AClickElsewhereIsNoSecondOne) {
    AfterClickAt(b_, 30, 20);
    EXPECT_EQ(AfterClickAt(b_, 40, 20), "*B WM_LBUTTONDOWN(1, 40,20)*; *B WM_LBUTTONUP(0, 40,20)*");
    AfterClickAt(a_, 78, 20);
    EXPECT_EQ(AfterClickAt(b_, 1, 20), "*B WM_LBUTTONDOWN(1, 1,20)*; *B WM_LBUTTONUP(0, 1,20)*")
        << "near the first one, but in another window";
}

TEST_F(Mouse, ADisabledChildLetsThePointerThrough) {
    EnableWindow(b_, FALSE);
    EXPECT_EQ(AfterClickAt(b_, 30, 20),
              "*frame WM_LBUTTONDOWN(1, 130,30)*; *frame WM_LBUTTONUP(0, 130,30)*");
}

TEST_F(Mouse, ADisabledFrameTakesNothing) {
    EnableWindow(frame_, FALSE);
    EXPECT_EQ(AfterClickAt(a_, 10, 10), "");
    EnableWindow(frame_, TRUE);
    EXPECT_NE(AfterClickAt(a_, 10, 10), "");
}

TEST_F(Mouse, APressOnADisabledOwnerBringsItsDialog) {
    const HWND popup = log_.Create("popup", WS_POPUP | WS_VISIBLE, {450, 100, 550, 200}, frame_);
    EnableWindow(frame_, FALSE);
    const HWND other = log_.Create("other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {450, 300, 650, 400});
    ASSERT_EQ(GetActiveWindow(), other);
    AfterClickAt(frame_, 10, 100);
    EXPECT_EQ(GetActiveWindow(), popup);
}

TEST_F(Mouse, AWindowMayLetThePointerThrough) {
    log_.SetHandler(
        [](MessageLog&, const std::string& role, UINT message, WPARAM, LPARAM, LRESULT& answer) {
            answer = HTTRANSPARENT;
            return role == "A" && message == WM_NCHITTEST;
        });
    EXPECT_EQ(AfterClickAt(a_, 10, 10),
              "*frame WM_LBUTTONDOWN(1, 20,20)*; *frame WM_LBUTTONUP(0, 20,20)*");
}

TEST_F(Mouse, TheWheelTurnsWhatLiesUnderThePointer) {
    SetFocus(a_);
    MoveTo(b_, 30, 20);
    log_.Take();
    mouse_event(MOUSEEVENTF_WHEEL, 0, 0, WHEEL_DELTA, 0);
    EXPECT_EQ(log_.PumpAndTake(),
              "*B WM_MOUSEWHEEL(120, keys 0)* [frame WM_MOUSEWHEEL(120, keys 0)]");
    mouse_event(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(-WHEEL_DELTA), 0);
    EXPECT_EQ(log_.PumpAndTake(),
              "*B WM_MOUSEWHEEL(-120, keys 0)* [frame WM_MOUSEWHEEL(-120, keys 0)]");
}

TEST_F(Mouse, HeldKeysAndButtonsTravelWithMoves) {
    MoveTo(a_, 5, 5);
    log_.Take();
    keybd_event(VK_SHIFT, 0, 0, 0);
    keybd_event(VK_CONTROL, 0, 0, 0);
    mouse_event(MOUSEEVENTF_RIGHTDOWN, 0, 0, 0, 0);
    MoveTo(a_, 6, 5);
    keybd_event(VK_SHIFT, 0, KEYEVENTF_KEYUP, 0);
    keybd_event(VK_CONTROL, 0, KEYEVENTF_KEYUP, 0);
    mouse_event(MOUSEEVENTF_RIGHTUP, 0, 0, 0, 0);
    EXPECT_EQ(log_.PumpAndTake().substr(0, 62),
              "*A WM_RBUTTONDOWN(14, 5,5)*; *A WM_MOUSEMOVE(14, 6,5)*; *A WM_");
}

TEST_F(Mouse, AWindowDestroyedByAPressGetsNoMessage) {
    log_.SetHandler(
        [](MessageLog&, const std::string& role, UINT message, WPARAM wParam, LPARAM, LRESULT&) {
            if (role == "frame" && message == WM_PARENTNOTIFY && LOWORD(wParam) == WM_LBUTTONDOWN) {
                DestroyWindow(FindWindowA(nullptr, "no such window"));
                HWND child = GetTopWindow(GetActiveWindow());
                DestroyWindow(child);
            }
            return false;
        });
    const std::string told = AfterClickAt(a_, 10, 10);
    EXPECT_FALSE(IsWindow(a_));
    EXPECT_EQ(told, "*frame WM_LBUTTONUP(0, 20,20)*");
}

TEST_F(Mouse, PositionsAreThoseOfTheScreen) {
    SetCursorPos(-50, 100000);
    POINT place{};
    ASSERT_TRUE(GetCursorPos(&place));
    EXPECT_EQ(place.x, 0);
    EXPECT_EQ(place.y, GetSystemMetrics(SM_CYSCREEN) - 1);
    PumpQueue();
}

}  // namespace

}  // namespace tests
