// The order of siblings, parents that change, and who has focus and activation.

#include <gtest/gtest.h>

#include <string>

#include "tests/support/message_log.h"

namespace tests {

namespace {

class WindowTree : public ::testing::Test {
protected:
    WindowTree() {
        SetCursorPos(1200, 780);
        PumpQueue();
        frame_ = log_.Create("frame", WS_OVERLAPPEDWINDOW, {100, 100, 400, 300});
        ShowWindow(frame_, SW_SHOW);
        a_ = MakeChild("A", 10, 1);
        b_ = MakeChild("B", 20, 2);
        c_ = MakeChild("C", 30, 1);
        log_.PumpAndTake();
        log_.Omit({WM_PAINT, WM_ERASEBKGND});
    }

    HWND MakeChild(const char* role, int left, int id) {
        return log_.Create(role, WS_CHILD | WS_VISIBLE, {left, 10, left + 80, 50}, frame_, id);
    }

    std::string Order() {
        std::string order;
        for (HWND child = GetWindow(frame_, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            order += log_.RoleOf(child);
        }
        return order;
    }

    void Place(HWND window, HWND after) {
        SetWindowPos(window, after, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }

    MessageLog log_;
    HWND frame_;
    HWND a_;
    HWND b_;
    HWND c_;
};

TEST_F(WindowTree, TheFirstSiblingIsOnTopAndFoundFirst) {
    EXPECT_EQ(Order(), "ABC");
    EXPECT_EQ(GetTopWindow(frame_), a_);
    EXPECT_EQ(GetDlgItem(frame_, 1), a_);
    EXPECT_EQ(GetDlgItem(frame_, 99), nullptr);
    EXPECT_EQ(ChildWindowFromPoint(frame_, {35, 20}), a_);
    Place(c_, HWND_TOP);
    EXPECT_EQ(Order(), "CAB");
    EXPECT_EQ(GetDlgItem(frame_, 1), c_);
    EXPECT_EQ(ChildWindowFromPoint(frame_, {35, 20}), c_);
    BringWindowToTop(b_);
    EXPECT_EQ(Order(), "BCA");
    Place(b_, HWND_BOTTOM);
    EXPECT_EQ(Order(), "CAB");
    Place(b_, c_);
    EXPECT_EQ(Order(), "CBA");
    Place(b_, b_);
    EXPECT_EQ(Order(), "CBA");
}

TEST_F(WindowTree, AChildOfAnotherParentGoesThere) {
    log_.Take();
    RECT before{};
    GetWindowRect(c_, &before);
    EXPECT_EQ(SetParent(c_, a_), frame_);
    EXPECT_EQ(Order(), "AB");
    EXPECT_EQ(GetParent(c_), a_);
    RECT after{};
    GetWindowRect(c_, &after);
    // The place within the parent stays.
    EXPECT_EQ(after.left, before.left + 10);
    EXPECT_EQ(after.top, before.top + 10);
    EXPECT_TRUE(IsWindowVisible(c_));
    DestroyWindow(a_);
    EXPECT_FALSE(IsWindow(c_));
    // Nobody becomes its own ancestor.
    EXPECT_EQ(SetParent(frame_, b_), nullptr);
}

TEST_F(WindowTree, StyleAndTextChangesAreTold) {
    log_.PumpAndTake();
    SetWindowTextA(frame_, "abc中文");
    char text[5]{};
    EXPECT_EQ(GetWindowTextA(frame_, text, 5), 3);
    EXPECT_STREQ(text, "abc");
    EXPECT_EQ(GetWindowTextLengthA(frame_), 7);
    log_.Take();
    SetWindowLongA(frame_, GWL_STYLE, GetWindowLongA(frame_, GWL_STYLE));
    EXPECT_EQ(log_.Take(), "frame WM_STYLECHANGING(style); frame WM_STYLECHANGED(style)");
}

TEST_F(WindowTree, FocusGoesFromOneToTheOther) {
    SetFocus(frame_);
    log_.PumpAndTake();
    const auto focus = [&](HWND window) {
        SetFocus(window);
        return log_.Take() + " " + log_.RoleOf(GetFocus());
    };
    EXPECT_EQ(focus(a_), "frame WM_KILLFOCUS(A); A WM_SETFOCUS(frame) A");
    EXPECT_EQ(focus(a_), " A");
    EXPECT_EQ(focus(b_), "A WM_KILLFOCUS(B); B WM_SETFOCUS(A) B");
    EnableWindow(a_, FALSE);
    EXPECT_EQ(log_.Take(), "A WM_CANCELMODE; A WM_ENABLE(0)");
    EXPECT_EQ(focus(a_), " B");
    EnableWindow(a_, TRUE);
    log_.Take();
    EXPECT_EQ(focus(nullptr), "B WM_KILLFOCUS(null) null");
}

TEST_F(WindowTree, WhoLosesItsPlaceLosesTheFocus) {
    SetFocus(a_);
    log_.PumpAndTake();
    EnableWindow(a_, FALSE);
    EXPECT_EQ(log_.Take(), "A WM_CANCELMODE; A WM_KILLFOCUS(null); A WM_ENABLE(0)");
    EXPECT_EQ(GetFocus(), nullptr);
    EnableWindow(a_, TRUE);
    SetFocus(a_);
    log_.Only({WM_SETFOCUS, WM_KILLFOCUS, WM_ACTIVATE});
    log_.Take();
    ShowWindow(a_, SW_HIDE);
    EXPECT_EQ(log_.Take(), "A WM_KILLFOCUS(frame); frame WM_SETFOCUS(A)");
    ShowWindow(a_, SW_SHOW);
    SetFocus(a_);
    log_.Take();
    DestroyWindow(a_);
    EXPECT_EQ(log_.Take(), "A WM_KILLFOCUS(frame); frame WM_SETFOCUS(A)");
    EXPECT_EQ(GetFocus(), frame_);
}

TEST_F(WindowTree, ActivationBringsTheFocusAlong) {
    SetFocus(a_);
    log_.Only({WM_SETFOCUS, WM_KILLFOCUS, WM_ACTIVATE});
    log_.PumpAndTake();
    const HWND second =
        log_.Create("second", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {450, 100, 650, 200});
    EXPECT_EQ(log_.PumpAndTake(),
              "frame WM_ACTIVATE(inactive, second); second WM_ACTIVATE(active, frame) "
              "[A WM_KILLFOCUS(second); second WM_SETFOCUS(A)]");
    SetFocus(a_);
    EXPECT_EQ(log_.PumpAndTake(),
              "second WM_ACTIVATE(inactive, frame); frame WM_ACTIVATE(active, second) "
              "[second WM_KILLFOCUS(frame); frame WM_SETFOCUS(second)]; "
              "frame WM_KILLFOCUS(A); A WM_SETFOCUS(frame)");
    EnableWindow(frame_, FALSE);
    EXPECT_EQ(GetFocus(), a_);
    EXPECT_EQ(GetActiveWindow(), frame_);
    EnableWindow(frame_, TRUE);
    DestroyWindow(second);
    EXPECT_EQ(log_.PumpAndTake(), "");
    const HWND popup = log_.Create("popup", WS_POPUP | WS_VISIBLE, {150, 150, 210, 190}, frame_);
    EXPECT_EQ(GetFocus(), popup);
    log_.PumpAndTake();
    DestroyWindow(popup);
    EXPECT_EQ(log_.PumpAndTake(),
              "popup WM_ACTIVATE(inactive, frame); frame WM_ACTIVATE(active, popup) "
              "[popup WM_KILLFOCUS(frame); frame WM_SETFOCUS(popup)]");
    const HWND quiet = log_.Create("quiet", WS_POPUP, {150, 150, 210, 190}, frame_);
    ShowWindow(quiet, SW_SHOWNOACTIVATE);
    EXPECT_EQ(GetActiveWindow(), frame_);
    EXPECT_EQ(log_.PumpAndTake(), "");
}

}  // namespace

}  // namespace tests
