// Who has the mouse for itself, and who hears that the pointer left.

#include "tests/platform/win32/user/pointer_fixture.h"

namespace tests {

namespace {

class Capture : public PointerTest {
protected:
    static BOOL Track(HWND window, DWORD flags) {
        TRACKMOUSEEVENT track{sizeof track, flags, window, HOVER_DEFAULT};
        return TrackMouseEvent(&track);
    }

    std::string Tracked() const {
        TRACKMOUSEEVENT track{sizeof track, TME_QUERY, nullptr, 0};
        TrackMouseEvent(&track);
        return std::to_string(track.dwFlags) + " " + log_.RoleOf(track.hwndTrack) + " " +
               std::to_string(track.dwHoverTime);
    }
};

TEST_F(Capture, OneWindowGetsEverything) {
    EXPECT_EQ(SetCapture(a_), nullptr);
    EXPECT_EQ(GetCapture(), a_);
    MoveTo(b_, 5, 5);
    EXPECT_EQ(log_.Take(), "*A WM_MOUSEMOVE(0, 95,5)*");
    MoveTo(frame_, -30, -40);
    EXPECT_EQ(log_.Take(), "*A WM_MOUSEMOVE(0, -40,-50)*");
    EXPECT_EQ(AfterClickAt(b_, 5, 5), "*A WM_LBUTTONDOWN(1, 95,5)*; *A WM_LBUTTONUP(0, 95,5)*");
    ReleaseCapture();
}

TEST_F(Capture, TheFormerWindowIsTold) {
    SetCapture(a_);
    EXPECT_EQ(SetCapture(a_), a_);
    EXPECT_EQ(log_.Take(), "A WM_CAPTURECHANGED(A)");
    EXPECT_EQ(SetCapture(b_), a_);
    EXPECT_EQ(log_.Take(), "A WM_CAPTURECHANGED(B)");
    EXPECT_TRUE(ReleaseCapture());
    EXPECT_EQ(log_.Take(), "B WM_CAPTURECHANGED(null)");
    EXPECT_TRUE(ReleaseCapture());
    EXPECT_EQ(log_.Take(), "");
}

TEST_F(Capture, AfterwardsTheWindowUnderThePointerHearsOfIt) {
    SetCapture(a_);
    MoveTo(b_, 5, 5);
    log_.Take();
    ReleaseCapture();
    EXPECT_EQ(log_.PumpAndTake(), "A WM_CAPTURECHANGED(null); *B WM_MOUSEMOVE(0, 5,5)*");
}

TEST_F(Capture, EndsWithItsWindow) {
    SetCapture(a_);
    EnableWindow(a_, FALSE);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(log_.Take(), "A WM_CANCELMODE [A WM_CAPTURECHANGED(null)]");
    SetCapture(b_);
    DestroyWindow(b_);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(log_.Take(), "");
}

TEST_F(Capture, OutlivesActivationAndADisabledFrame) {
    SetCapture(a_);
    log_.Create("second", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {450, 100, 650, 200});
    EXPECT_EQ(GetCapture(), a_);
    EnableWindow(frame_, FALSE);
    EXPECT_EQ(GetCapture(), a_);
    ReleaseCapture();
}

TEST_F(Capture, LeavingIsToldOnce) {
    MoveTo(a_, 5, 5);
    EXPECT_TRUE(Track(a_, TME_LEAVE));
    EXPECT_EQ(Tracked(), "2 A 400");
    log_.Take();
    MoveTo(frame_, 250, 100);
    EXPECT_EQ(log_.Take(), "*A WM_MOUSELEAVE*; *frame WM_MOUSEMOVE(0, 250,100)*");
    EXPECT_EQ(Tracked(), "0 null 0");
    MoveTo(a_, 5, 5);
    MoveTo(frame_, 250, 100);
    EXPECT_EQ(log_.Take(), "*A WM_MOUSEMOVE(0, 5,5)*; *frame WM_MOUSEMOVE(0, 250,100)*");
}

TEST_F(Capture, APointerThatIsNotThereHasLeft) {
    EXPECT_TRUE(Track(a_, TME_LEAVE));
    EXPECT_EQ(Tracked(), "0 null 0");
    EXPECT_EQ(log_.PumpAndTake(), "*A WM_MOUSELEAVE*");
}

TEST_F(Capture, LeavingWaitsForTheEndOfTheCapture) {
    MoveTo(a_, 5, 5);
    Track(a_, TME_LEAVE);
    SetCapture(a_);
    MoveTo(b_, 5, 5);
    log_.Take();
    ReleaseCapture();
    EXPECT_EQ(log_.PumpAndTake(),
              "A WM_CAPTURECHANGED(null); *A WM_MOUSELEAVE*; *B WM_MOUSEMOVE(0, 5,5)*");
}

TEST_F(Capture, AClickKeepsTheTracking) {
    MoveTo(a_, 8, 8);
    Track(a_, TME_LEAVE);
    ClickHere();
    EXPECT_EQ(Tracked(), "2 A 400");
}

TEST_F(Capture, HidingTheWindowIsALeave) {
    MoveTo(a_, 8, 8);
    Track(a_, TME_LEAVE);
    log_.Take();
    ShowWindow(a_, SW_HIDE);
    EXPECT_EQ(log_.PumpAndTake(), "*A WM_MOUSELEAVE*; *frame WM_MOUSEMOVE(0, 18,18)*");
}

TEST_F(Capture, HoverCanBeCalledOff) {
    MoveTo(a_, 8, 8);
    EXPECT_TRUE(Track(a_, TME_HOVER | TME_LEAVE));
    EXPECT_EQ(Tracked(), "3 A 400");
    EXPECT_TRUE(Track(a_, TME_CANCEL | TME_HOVER));
    EXPECT_EQ(Tracked(), "2 A 400");
    EXPECT_TRUE(Track(a_, TME_CANCEL | TME_LEAVE));
    EXPECT_EQ(Tracked(), "0 null 0");
}

TEST_F(Capture, BadRequestsAreRefused) {
    TRACKMOUSEEVENT track{sizeof track - 1, TME_LEAVE, a_, 0};
    EXPECT_FALSE(TrackMouseEvent(&track));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    DestroyWindow(b_);
    EXPECT_FALSE(Track(b_, TME_LEAVE));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
    EXPECT_EQ(SetCapture(b_), nullptr);
    EXPECT_EQ(GetCapture(), nullptr);
}

}  // namespace

}  // namespace tests
