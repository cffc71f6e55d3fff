// What becomes of windows when the person changes the desktop's size.

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/win32/user/desktop_setup.h"
#include "platform/win32/user/window.h"

namespace winbase {
namespace {

class DesktopSize : public ::testing::Test {
protected:
    DesktopSize() { DesktopResized(1280, 800); }
    ~DesktopSize() override {
        DestroyWindow(window_);
        DesktopResized(1280, 800);
    }

    /// A window of 300 x 200 pixels.
    void Make(int x, int y, DWORD style) {
        window_ = CreateWindowExA(0, "#32770", "", style, x, y, 300, 200, nullptr, nullptr, nullptr,
                                  nullptr);
    }

    RECT Place() const {
        RECT place{};
        GetWindowRect(window_, &place);
        return place;
    }

    void ExpectAt(int left, int top) const {
        EXPECT_EQ(left, Place().left);
        EXPECT_EQ(top, Place().top);
        EXPECT_EQ(left + 300, Place().right);
        EXPECT_EQ(top + 200, Place().bottom);
    }

    HWND window_ = nullptr;
};

constexpr DWORD kDialog = WS_POPUP | WS_VISIBLE | WS_CAPTION;

TEST_F(DesktopSize, BringsWindowsThatItLeavesOutsideBackIn) {
    Make(900, 500, kDialog);
    DesktopResized(1280, 700);
    ExpectAt(900, 500);
    DesktopResized(1024, 600);
    ExpectAt(724, 400);
    DesktopResized(320, 240);
    ExpectAt(20, 40);
    // What doesn't fit shows its title.
    SetWindowPos(window_, nullptr, 10, 10, 500, 400, SWP_NOZORDER);
    DesktopResized(1280, 800);
    DesktopResized(330, 250);
    EXPECT_EQ(0, Place().left);
    EXPECT_EQ(0, Place().top);
}

TEST_F(DesktopSize, LeavesWhereItIsWhatItDoesNotCutOff) {
    // Parked over the edge by its user.
    Make(1200, 700, kDialog);
    DesktopResized(1400, 900);
    ExpectAt(1200, 700);
    SetWindowPos(window_, nullptr, -100, 100, 0, 0, SWP_NOZORDER | SWP_NOSIZE);
    DesktopResized(1024, 600);
    ExpectAt(-100, 100);
}

TEST_F(DesktopSize, IsNoMatterForHiddenWindowsAndThoseWithoutATitle) {
    Make(900, 500, WS_POPUP | WS_CAPTION);
    DesktopResized(800, 600);
    ExpectAt(900, 500);
    DestroyWindow(window_);
    Make(700, 500, WS_POPUP | WS_VISIBLE);
    DesktopResized(640, 480);
    ExpectAt(700, 500);
}

TEST_F(DesktopSize, IsTheSizeOfMaximisedWindows) {
    Make(100, 100, WS_OVERLAPPEDWINDOW);
    ShowWindow(window_, SW_MAXIMIZE);
    for (const SIZE size : {SIZE{1024, 600}, SIZE{1600, 1000}}) {
        DesktopResized(size.cx, size.cy);
        RECT client{};
        GetClientRect(window_, &client);
        EXPECT_EQ(size.cx, client.right);
        EXPECT_LE(Place().bottom, size.cy + 8);
        EXPECT_GE(Place().bottom, size.cy);
    }
    ShowWindow(window_, SW_RESTORE);
    ExpectAt(100, 100);
}

}  // namespace
}  // namespace winbase
