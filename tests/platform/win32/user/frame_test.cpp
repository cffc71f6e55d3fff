// The frame: where its parts are, what a mouse on them does, and answers of the default procedure.

#include <gtest/gtest.h>

#include <string>

#include "platform/testing/input.h"
#include "tests/support/message_log.h"

namespace tests {

namespace {

constexpr RECT kPlace{200, 150, 500, 350};

class Frame : public ::testing::Test {
protected:
    Frame() { frame_ = Make(WS_OVERLAPPEDWINDOW); }

    HWND Make(DWORD style, DWORD ex_style = 0) {
        const HWND window = log_.Create("frame", style | WS_VISIBLE, kPlace, nullptr, 0, ex_style);
        log_.PumpAndTake();
        return window;
    }

    static int HitAt(HWND window, int x, int y) {
        return static_cast<int>(SendMessageA(window, WM_NCHITTEST, 0, MAKELPARAM(x, y)));
    }

    /// The middle of the title bar.
    static POINT Title() {
        return {(kPlace.left + kPlace.right) / 2,
                kPlace.top + GetSystemMetrics(SM_CYSIZEFRAME) + GetSystemMetrics(SM_CYCAPTION) / 2};
    }

    /// The first place from the right, on the height of the title bar, that answers `hit`.
    POINT Box(int hit) {
        for (int x = kPlace.right - 1; x >= kPlace.left; --x) {
            if (HitAt(frame_, x, Title().y) == hit) return {x - 3, Title().y};
        }
        return {};
    }

    void DragTo(POINT from, POINT to) {
        platform::testing::Drag(from, to);
        PumpQueue();
    }

    RECT Place() const {
        RECT rect{};
        GetWindowRect(frame_, &rect);
        return rect;
    }

    MessageLog log_;
    HWND frame_ = nullptr;
};

TEST_F(Frame, ClientAreaAndAdjustedRectangleAgree) {
    const struct {
        DWORD style;
        DWORD ex_style;
    } kCases[] = {{WS_OVERLAPPEDWINDOW, 0},
                  {WS_POPUP | WS_CAPTION | WS_SYSMENU, 0},
                  {WS_POPUP | WS_CAPTION, WS_EX_DLGMODALFRAME},
                  {WS_POPUP | WS_BORDER, 0},
                  {WS_POPUP, 0},
                  {WS_POPUP | WS_BORDER, WS_EX_CLIENTEDGE},
                  {WS_POPUP, WS_EX_STATICEDGE},
                  {WS_POPUP | WS_THICKFRAME, 0}};
    for (const auto& [style, ex_style] : kCases) {
        const HWND window = Make(style, ex_style);
        RECT client{};
        GetClientRect(window, &client);
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
        ASSERT_TRUE(AdjustWindowRectEx(&client, style, FALSE, ex_style));
        EXPECT_TRUE(EqualRect(&client, &kPlace)) << std::hex << style << " " << ex_style;
        DestroyWindow(window);
    }
}

TEST_F(Frame, PartsAnswerTheHitTest) {
    const int left = kPlace.left;
    const int top = kPlace.top;
    const int right = kPlace.right - 1;
    const int bottom = kPlace.bottom - 1;
    const int middle_x = (left + right) / 2;
    const int middle_y = (top + bottom) / 2;
    const struct {
        int x;
        int y;
        int hit;
    } kCases[] = {{middle_x, middle_y, HTCLIENT},  {left, middle_y, HTLEFT},
                  {right, middle_y, HTRIGHT},      {middle_x, top, HTTOP},
                  {middle_x, bottom, HTBOTTOM},    {left, top, HTTOPLEFT},
                  {right, top, HTTOPRIGHT},        {left, bottom, HTBOTTOMLEFT},
                  {right, bottom, HTBOTTOMRIGHT},  {Title().x, Title().y, HTCAPTION},
                  {left - 1, middle_y, HTNOWHERE}, {middle_x, bottom + 1, HTNOWHERE}};
    for (const auto& [x, y, hit] : kCases) EXPECT_EQ(HitAt(frame_, x, y), hit) << x << "," << y;
    for (const int hit : {HTCLOSE, HTMAXBUTTON}) EXPECT_NE(Box(hit).x, 0) << hit;
}

TEST_F(Frame, WithoutASizingBorderNothingIsSized) {
    const HWND dialog = Make(WS_POPUP | WS_CAPTION);
    EXPECT_EQ(HitAt(dialog, kPlace.left, 250), HTBORDER);
    EXPECT_EQ(HitAt(dialog, kPlace.right - 10, Title().y), HTCAPTION) << "no menu, no close box";
}

TEST_F(Frame, ScrollBarsStandBesideTheClientArea) {
    const HWND scrolled = Make(WS_POPUP | WS_VSCROLL | WS_HSCROLL);
    RECT client{};
    GetClientRect(scrolled, &client);
    EXPECT_EQ(client.right, 300 - GetSystemMetrics(SM_CXVSCROLL));
    EXPECT_EQ(client.bottom, 200 - GetSystemMetrics(SM_CYHSCROLL));
    EXPECT_EQ(HitAt(scrolled, kPlace.right - 2, kPlace.top + 50), HTVSCROLL);
    EXPECT_EQ(HitAt(scrolled, kPlace.left + 50, kPlace.bottom - 2), HTHSCROLL);
    EXPECT_NE(HitAt(scrolled, kPlace.right - 2, kPlace.bottom - 2), HTCLIENT);
}

TEST_F(Frame, TheTitleMovesTheWindow) {
    log_.Only({WM_ENTERSIZEMOVE, WM_EXITSIZEMOVE, WM_SYSCOMMAND, WM_SIZE});
    log_.Take();
    DragTo(Title(), {Title().x + 37, Title().y + 21});
    const RECT place = Place();
    EXPECT_EQ(place.left, kPlace.left + 37);
    EXPECT_EQ(place.top, kPlace.top + 21);
    EXPECT_EQ(place.right - place.left, kPlace.right - kPlace.left);
    EXPECT_EQ(log_.Take(),
              "frame WM_SYSCOMMAND(SC_MOVE+2) [frame WM_ENTERSIZEMOVE; frame WM_EXITSIZEMOVE]");
}

TEST_F(Frame, BordersSizeTheWindowAndKeepTheOtherEdges) {
    const struct {
        POINT from;
        POINT by;
        RECT change;
    } kCases[] = {{{kPlace.right - 1, 250}, {40, 5}, {0, 0, 40, 0}},
                  {{kPlace.left, 250}, {-30, 5}, {-30, 0, 0, 0}},
                  {{350, kPlace.bottom - 1}, {5, 25}, {0, 0, 0, 25}},
                  {{kPlace.left, kPlace.top}, {-10, -20}, {-10, -20, 0, 0}},
                  {{kPlace.right - 1, kPlace.bottom - 1}, {15, 10}, {0, 0, 15, 10}}};
    for (const auto& [from, by, change] : kCases) {
        MoveWindow(frame_, kPlace.left, kPlace.top, 300, 200, TRUE);
        DragTo(from, {from.x + by.x, from.y + by.y});
        const RECT place = Place();
        EXPECT_EQ(place.left - kPlace.left, change.left);
        EXPECT_EQ(place.top - kPlace.top, change.top);
        EXPECT_EQ(place.right - kPlace.right, change.right);
        EXPECT_EQ(place.bottom - kPlace.bottom, change.bottom);
    }
}

TEST_F(Frame, NoBorderMakesTheWindowTooSmall) {
    DragTo({kPlace.left, 250}, {kPlace.right + 100, 250});
    const RECT place = Place();
    EXPECT_EQ(place.right, kPlace.right);
    EXPECT_EQ(place.right - place.left, GetSystemMetrics(SM_CXMIN));
}

TEST_F(Frame, EscapePutsTheWindowBack) {
    platform::testing::MovePointer(Title());
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    SetCursorPos(Title().x + 50, Title().y);
    keybd_event(VK_ESCAPE, 0, 0, 0);
    keybd_event(VK_ESCAPE, 0, KEYEVENTF_KEYUP, 0);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    PumpQueue();
    const RECT place = Place();
    EXPECT_TRUE(EqualRect(&place, &kPlace));
}

TEST_F(Frame, BoxesActWhenTheyAreLetGo) {
    const POINT close = Box(HTCLOSE);
    DragTo(close, {close.x, close.y + 100});
    EXPECT_TRUE(IsWindow(frame_)) << "let go elsewhere";
    platform::testing::ClickAt(Box(HTMAXBUTTON));
    EXPECT_TRUE(IsZoomed(frame_));
    ShowWindow(frame_, SW_RESTORE);
    platform::testing::ClickAt(close);
    EXPECT_FALSE(IsWindow(frame_));
}

TEST_F(Frame, ADoubleClickOnTheTitleMaximises) {
    platform::testing::ClickAt(Title());
    platform::testing::ClickAt(Title());
    EXPECT_TRUE(IsZoomed(frame_));
}

TEST_F(Frame, QuittingInTheMiddleOfAMoveReachesTheLoopOutside) {
    platform::testing::MovePointer(Title());
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    PostQuitMessage(9);
    MSG message{};
    int code = -1;
    for (int round = 0; round < 100 && code < 0; ++round) {
        if (!PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) break;
        if (message.message == WM_QUIT) code = static_cast<int>(message.wParam);
        DispatchMessageA(&message);
    }
    EXPECT_EQ(code, 9);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    PumpQueue();
}

TEST_F(Frame, DefaultColoursAreThoseOfTheKind) {
    const HDC dc = GetDC(frame_);
    const struct {
        UINT message;
        int ground;
    } kCases[] = {{WM_CTLCOLOREDIT, COLOR_WINDOW},
                  {WM_CTLCOLORLISTBOX, COLOR_WINDOW},
                  {WM_CTLCOLORBTN, COLOR_3DFACE},
                  {WM_CTLCOLORSTATIC, COLOR_3DFACE},
                  {WM_CTLCOLORDLG, COLOR_3DFACE}};
    for (const auto& [message, ground] : kCases) {
        const LRESULT brush = DefWindowProcA(frame_, message, reinterpret_cast<WPARAM>(dc), 0);
        EXPECT_EQ(reinterpret_cast<HBRUSH>(brush), GetSysColorBrush(ground)) << message;
        EXPECT_EQ(GetBkColor(dc), GetSysColor(ground)) << message;
        EXPECT_EQ(GetTextColor(dc), GetSysColor(COLOR_WINDOWTEXT)) << message;
    }
    ReleaseDC(frame_, dc);
}

TEST_F(Frame, CursorsFollowTheParts) {
    const auto cursor_at = [&](int x, int y) {
        platform::testing::MovePointer({x, y});
        return GetCursor();
    };
    EXPECT_EQ(cursor_at(kPlace.left, 250), LoadCursorA(nullptr, IDC_SIZEWE));
    EXPECT_EQ(cursor_at(350, kPlace.bottom - 1), LoadCursorA(nullptr, IDC_SIZENS));
    EXPECT_EQ(cursor_at(kPlace.left, kPlace.top), LoadCursorA(nullptr, IDC_SIZENWSE));
    EXPECT_EQ(cursor_at(350, 250), LoadCursorA(nullptr, IDC_ARROW));
    EXPECT_EQ(LoadCursorA(nullptr, MAKEINTRESOURCEA(7)), nullptr);
}

}  // namespace

}  // namespace tests
