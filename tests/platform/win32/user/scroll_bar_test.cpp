// A window's own scroll bars: what is stored, when a bar hides, and what a mouse on it makes.

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "platform/testing/input.h"
#include "tests/support/message_log.h"

namespace tests {

namespace {

using platform::testing::MovePointer;

constexpr int kHeight = 120;

class ScrollBars : public ::testing::Test {
protected:
    ScrollBars() {
        frame_ = log_.Create("frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {100, 100, 400, 300});
        child_ = log_.Create("child", WS_CHILD | WS_VISIBLE | WS_VSCROLL,
                             {10, 10, 110, 10 + kHeight}, frame_, 1);
        PumpQueue();
        log_.Only(
            {WM_SIZE, WM_NCLBUTTONDOWN, WM_SYSCOMMAND, WM_VSCROLL, WM_HSCROLL, WM_CAPTURECHANGED});
        log_.Take();
    }

    int Set(UINT mask, int minimum, int maximum, UINT page, int position) {
        SCROLLINFO info{sizeof info, mask, minimum, maximum, page, position, 0};
        return SetScrollInfo(child_, SB_VERT, &info, TRUE);
    }

    std::string Stored() {
        SCROLLINFO info{sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
        if (!GetScrollInfo(child_, SB_VERT, &info)) return "none";
        RECT client{};
        GetClientRect(child_, &client);
        const bool shown = (GetWindowLongA(child_, GWL_STYLE) & WS_VSCROLL) != 0;
        EXPECT_EQ(client.right, shown ? 100 - GetSystemMetrics(SM_CXVSCROLL) : 100);
        EXPECT_EQ(GetScrollPos(child_, SB_VERT), info.nPos);
        EXPECT_EQ(info.nTrackPos, info.nPos);
        return std::to_string(info.nMin) + ".." + std::to_string(info.nMax) + " page " +
               std::to_string(info.nPage) + " at " + std::to_string(info.nPos) +
               (shown ? "" : " hidden");
    }

    /// The middle of the bar, `y` pixels below its upper end.
    POINT OnBar(int y) const {
        RECT rect{};
        GetWindowRect(child_, &rect);
        return {rect.right - GetSystemMetrics(SM_CXVSCROLL) / 2, rect.top + y};
    }

    MessageLog log_;
    HWND frame_ = nullptr;
    HWND child_ = nullptr;
};

TEST_F(ScrollBars, KeepPositionAndPageWithinTheRange) {
    EXPECT_EQ(Stored(), "0..100 page 0 at 0");
    const struct {
        const char* what;
        UINT mask;
        int minimum;
        int maximum;
        UINT page;
        int position;
        int returned;
        const char* stored;
    } kSteps[] = {{"all", SIF_ALL, 0, 99, 10, 20, 20, "0..99 page 10 at 20"},
                  {"too far", SIF_POS, 0, 0, 0, 95, 90, "0..99 page 10 at 90"},
                  {"before the start", SIF_POS, 0, 0, 0, -5, 0, "0..99 page 10 at 0"},
                  {"larger page", SIF_PAGE, 0, 0, 60, 0, 0, "0..99 page 60 at 0"},
                  {"end of it", SIF_POS, 0, 0, 0, 90, 40, "0..99 page 60 at 40"},
                  {"page holds all", SIF_PAGE, 0, 0, 100, 0, 0, "0..99 page 100 at 0 hidden"},
                  {"page beyond all", SIF_PAGE, 0, 0, 500, 0, 0, "0..99 page 100 at 0 hidden"},
                  {"one value", SIF_RANGE, 0, 0, 0, 0, 0, "0..0 page 1 at 0 hidden"},
                  {"turned range", SIF_RANGE | SIF_PAGE, 5, 2, 0, 0, 0, "0..0 page 0 at 0 hidden"},
                  {"no page", SIF_ALL, 0, 99, 0, 99, 99, "0..99 page 0 at 99"},
                  {"page of one", SIF_ALL, 0, 99, 1, 99, 99, "0..99 page 1 at 99"},
                  {"disabled instead", SIF_PAGE | SIF_DISABLENOSCROLL, 0, 0, 100, 0, 0,
                   "0..99 page 100 at 0"},
                  {"widest range", SIF_ALL, INT_MIN, INT_MAX, 7, 5, 5,
                   "-2147483648..2147483647 page 7 at 5"}};
    for (const auto& step : kSteps) {
        EXPECT_EQ(Set(step.mask, step.minimum, step.maximum, step.page, step.position),
                  step.returned)
            << step.what;
        EXPECT_EQ(Stored(), step.stored) << step.what;
    }
}

TEST_F(ScrollBars, ABarThatHidesOrComesBackChangesTheClientArea) {
    Set(SIF_ALL, 0, 99, 10, 0);
    log_.Take();
    Set(SIF_PAGE, 0, 0, 100, 0);
    EXPECT_EQ(log_.Take(), "child WM_SIZE(0, 100x120)");
    Set(SIF_ALL, 0, 99, 10, 0);
    const std::string narrow =
        "child WM_SIZE(0, " + std::to_string(100 - GetSystemMetrics(SM_CXVSCROLL)) + "x120)";
    EXPECT_EQ(log_.Take(), narrow);
    ShowScrollBar(child_, SB_VERT, FALSE);
    EXPECT_EQ(log_.Take(), "child WM_SIZE(0, 100x120)");
    ShowScrollBar(child_, SB_VERT, TRUE);
    EXPECT_EQ(log_.Take(), narrow);
}

TEST_F(ScrollBars, TheOlderFunctionsAgree) {
    Set(SIF_ALL, 0, 99, 1, 99);
    EXPECT_EQ(SetScrollPos(child_, SB_VERT, 50, TRUE), 99);
    EXPECT_EQ(SetScrollPos(child_, SB_VERT, 500, TRUE), 50);
    EXPECT_EQ(Stored(), "0..99 page 1 at 99");
    EXPECT_TRUE(SetScrollRange(child_, SB_VERT, 0, 0, TRUE));
    EXPECT_EQ(Stored(), "0..0 page 1 at 0 hidden");
    EXPECT_TRUE(SetScrollRange(child_, SB_VERT, 0, 99, TRUE));
    EXPECT_EQ(Stored(), "0..99 page 1 at 0");
    EXPECT_TRUE(EnableScrollBar(child_, SB_VERT, ESB_DISABLE_BOTH));
    EXPECT_TRUE(EnableScrollBar(child_, SB_VERT, ESB_ENABLE_BOTH));
}

TEST_F(ScrollBars, AWindowThatNeverHadAnyHasNoData) {
    SCROLLINFO info{sizeof info, SIF_ALL, 1, 2, 3, 4, 5};
    EXPECT_FALSE(GetScrollInfo(frame_, SB_VERT, &info));
    EXPECT_EQ(GetScrollPos(frame_, SB_VERT), 0);
    EXPECT_TRUE(GetScrollInfo(child_, SB_HORZ, &info)) << "the other bar of a window with one";
    EXPECT_EQ(info.nMax, 100);
    info.cbSize = 3;
    EXPECT_FALSE(GetScrollInfo(child_, SB_VERT, &info));
    EXPECT_EQ(SetScrollInfo(nullptr, SB_VERT, &info, TRUE), 0);
}

TEST_F(ScrollBars, AClickBesideTheThumbPages) {
    Set(SIF_ALL, 0, 99, 10, 50);
    const struct {
        int y;
        const char* code;
    } kCases[] = {{4, "SB_PAGEUP"}, {kHeight - 4, "SB_PAGEDOWN"}};
    for (const auto& [y, code] : kCases) {
        MovePointer(OnBar(y));
        log_.Take();
        platform::testing::ClickAt(OnBar(y));
        EXPECT_EQ(log_.Take(),
                  std::string("*child WM_NCLBUTTONDOWN(7)* [child WM_SYSCOMMAND(SC_VSCROLL+7) "
                              "[child WM_VSCROLL(") +
                      code +
                      ", pos 0, null); child WM_CAPTURECHANGED(null); "
                      "child WM_VSCROLL(SB_ENDSCROLL, pos 0, null)]]");
    }
    EXPECT_EQ(GetScrollPos(child_, SB_VERT), 50) << "moving is up to the window";
}

HWND ScrolledChild() { return GetTopWindow(GetActiveWindow()); }

// What the handler of the window saw while the thumb was held.
std::string g_tracked;

bool NoteTracking(MessageLog&, const std::string& role, UINT message, WPARAM wParam, LPARAM,
                  LRESULT&) {
    if (role != "child" || message != WM_VSCROLL || LOWORD(wParam) != SB_THUMBTRACK) return false;
    SCROLLINFO info{sizeof info, SIF_TRACKPOS | SIF_POS, 0, 0, 0, 0, 0};
    GetScrollInfo(ScrolledChild(), SB_VERT, &info);
    g_tracked += std::to_string(info.nTrackPos == HIWORD(wParam)) + std::to_string(info.nPos) + " ";
    return false;
}

TEST_F(ScrollBars, TheThumbTellsWhereItIsHeld) {
    Set(SIF_ALL, 0, 99, 10, 0);
    g_tracked.clear();
    log_.SetHandler(NoteTracking);
    MovePointer(OnBar(6));
    log_.Take();
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    const POINT away = OnBar(kHeight + 60);
    SetCursorPos(away.x, away.y);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    EXPECT_EQ(log_.PumpAndTake(),
              "*child WM_NCLBUTTONDOWN(7)* [child WM_SYSCOMMAND(SC_VSCROLL+7) [child "
              "WM_VSCROLL(SB_THUMBTRACK, pos 0, null); child WM_VSCROLL(SB_THUMBTRACK, pos 90, "
              "null); child WM_CAPTURECHANGED(null); child WM_VSCROLL(SB_THUMBPOSITION, pos 90, "
              "null); child WM_VSCROLL(SB_ENDSCROLL, pos 0, null)]]");
    EXPECT_EQ(g_tracked, "10 10 ") << "the position itself stays";
}

TEST_F(ScrollBars, AThumbDraggedFarOffGoesBack) {
    Set(SIF_ALL, 0, 99, 10, 0);
    MovePointer(OnBar(6));
    log_.Take();
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    const POINT away = OnBar(60);
    SetCursorPos(away.x + 400, away.y);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    const std::string told = log_.PumpAndTake();
    EXPECT_NE(told.find("WM_VSCROLL(SB_THUMBPOSITION, pos 0"), std::string::npos) << told;
}

TEST_F(ScrollBars, ABarThatVanishesWhileItIsHeldEndsWell) {
    Set(SIF_ALL, 0, 99, 10, 0);
    log_.SetHandler(
        [](MessageLog&, const std::string&, UINT message, WPARAM wParam, LPARAM, LRESULT&) {
            if (message == WM_VSCROLL && LOWORD(wParam) == SB_PAGEDOWN) {
                SCROLLINFO info{sizeof info, SIF_PAGE, 0, 0, 100, 0, 0};
                SetScrollInfo(ScrolledChild(), SB_VERT, &info, TRUE);
            }
            return false;
        });
    MovePointer(OnBar(kHeight - 4));
    platform::testing::ClickAt(OnBar(kHeight - 4));
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(Stored(), "0..99 page 100 at 0 hidden");
}

TEST_F(ScrollBars, AWindowDestroyedByItsBarIsGone) {
    Set(SIF_ALL, 0, 99, 10, 0);
    log_.SetHandler([](MessageLog&, const std::string&, UINT message, WPARAM, LPARAM, LRESULT&) {
        if (message == WM_VSCROLL) DestroyWindow(ScrolledChild());
        return false;
    });
    for (const int y : {kHeight - 4}) {
        platform::testing::ClickAt(OnBar(y));
        EXPECT_FALSE(IsWindow(child_));
        EXPECT_EQ(GetCapture(), nullptr);
    }
}

TEST_F(ScrollBars, APressThatNobodyMadeEndsAtOnce) {
    Set(SIF_ALL, 0, 99, 10, 0);
    SendMessageA(child_, WM_NCLBUTTONDOWN, HTVSCROLL, MAKELPARAM(OnBar(6).x, OnBar(6).y));
    SendMessageA(frame_, WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(150, 110));
    EXPECT_EQ(GetCapture(), nullptr);
}

}  // namespace

}  // namespace tests
