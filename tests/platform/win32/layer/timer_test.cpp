// Timers, hovering and repeats on a clock that is moved by hand.

#include <gtest/gtest.h>
#include <winbase_hooks.h>

#include <string>
#include <thread>

#include "platform/testing/input.h"
#include "tests/support/message_log.h"

namespace tests {

namespace {

using platform::testing::PumpFor;

class ManualTime : public ::testing::Test {
protected:
    ManualTime() {
        winbase::hooks::UseManualClock(100'000, {2024, 3, 5, 1, 9, 0, 0, 0});
        frame_ = log_.Create("frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {100, 100, 400, 300},
                             nullptr, 0, 0, CS_DBLCLKS);
        platform::testing::MovePointer({350, 250});
        log_.Only({WM_TIMER});
        log_.Take();
    }

    /// The ids of the ticks since the last call.
    std::string Ticks() {
        const std::string text = log_.PumpAndTake();
        std::string ids;
        for (std::size_t at = text.find('('); at != std::string::npos;
             at = text.find('(', at + 1)) {
            ids += text.substr(at + 1, text.find(',', at) - at - 1);
        }
        return ids;
    }
    std::string TicksIn(DWORD millis) {
        PumpFor(millis);
        return Ticks();
    }

    MessageLog log_;
    HWND frame_ = nullptr;
};

TEST_F(ManualTime, TicksComeOnTheirBeat) {
    EXPECT_EQ(SetTimer(frame_, 1, 50, nullptr), UINT_PTR{1});
    EXPECT_EQ(TicksIn(49), "");
    EXPECT_EQ(TicksIn(226), "11111");
    EXPECT_TRUE(KillTimer(frame_, 1));
    EXPECT_EQ(TicksIn(200), "");
    EXPECT_FALSE(KillTimer(frame_, 1));
}

TEST_F(ManualTime, TicksDoNotPileUp) {
    SetTimer(frame_, 1, 50, nullptr);
    winbase::hooks::AdvanceClock(525);
    EXPECT_EQ(Ticks(), "1");
    EXPECT_EQ(TicksIn(24), "");
    EXPECT_EQ(TicksIn(1), "1") << "the beat stays";
}

TEST_F(ManualTime, SettingAgainRestarts) {
    SetTimer(frame_, 1, 200, nullptr);
    EXPECT_EQ(TicksIn(150), "");
    SetTimer(frame_, 1, 200, nullptr);
    EXPECT_EQ(TicksIn(150), "");
    EXPECT_EQ(TicksIn(100), "1");
}

TEST_F(ManualTime, NoPeriodIsShorterThanTenMillis) {
    for (const UINT period : {0u, 1u, 10u}) {
        SetTimer(frame_, 1, period, nullptr);
        EXPECT_EQ(TicksIn(55), "11111") << period;
    }
}

TEST_F(ManualTime, TheTickThatIsDueLongestComesFirst) {
    SetTimer(frame_, 1, 30, nullptr);
    SetTimer(frame_, 2, 70, nullptr);
    EXPECT_EQ(TicksIn(220), "1121121112");
    SetTimer(frame_, 1, 30, nullptr);
    SetTimer(frame_, 2, 20, nullptr);
    winbase::hooks::AdvanceClock(35);
    EXPECT_EQ(Ticks(), "21");
}

TEST_F(ManualTime, ATickThatWasOnlySeenGoesWithItsTimer) {
    SetTimer(frame_, 1, 20, nullptr);
    winbase::hooks::AdvanceClock(30);
    MSG message{};
    EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(message.message, UINT{WM_TIMER});
    KillTimer(frame_, 1);
    EXPECT_EQ(Ticks(), "");
}

TEST_F(ManualTime, ATimerMayBeKilledInItsOwnTick) {
    log_.SetHandler(
        [](MessageLog&, const std::string&, UINT message, WPARAM wParam, LPARAM, LRESULT&) {
            if (message == WM_TIMER) KillTimer(GetActiveWindow(), wParam);
            return false;
        });
    SetTimer(frame_, 1, 20, nullptr);
    SetTimer(frame_, 2, 20, nullptr);
    EXPECT_EQ(TicksIn(200), "12");
}

TEST_F(ManualTime, ADestroyedWindowHasNoTicks) {
    SetTimer(frame_, 1, 20, nullptr);
    winbase::hooks::AdvanceClock(30);
    DestroyWindow(frame_);
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
}

TEST_F(ManualTime, PostedPaintAndInputGoFirst) {
    log_.Only({WM_TIMER, WM_PAINT, WM_KEYDOWN, WM_USER + 1});
    SetTimer(frame_, 5, 10, nullptr);
    winbase::hooks::AdvanceClock(15);
    InvalidateRect(frame_, nullptr, FALSE);
    keybd_event('A', 0, 0, 0);
    PostMessageA(frame_, WM_USER + 1, 0, 0);
    EXPECT_EQ(log_.PumpAndTake(),
              "*frame WM_USER+1(0, 0)*; *frame WM_KEYDOWN(0x41)*; *frame WM_PAINT*; "
              "*frame WM_TIMER(5, 0)*");
    keybd_event('A', 0, KEYEVENTF_KEYUP, 0);
    PumpQueue();
}

int g_calls = 0;
UINT_PTR g_id = 0;

void CALLBACK OnTick(HWND window, UINT message, UINT_PTR id, DWORD time) {
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(message, UINT{WM_TIMER});
    EXPECT_EQ(time, GetTickCount());
    g_id = id;
    ++g_calls;
}

TEST_F(ManualTime, TimersWithoutAWindowGetTheirOwnId) {
    g_calls = 0;
    const UINT_PTR first = SetTimer(nullptr, 5, 20, OnTick);
    const UINT_PTR second = SetTimer(nullptr, 5, 1000, OnTick);
    EXPECT_NE(first, second);
    EXPECT_NE(first, UINT_PTR{5});
    PumpFor(45);
    EXPECT_EQ(g_calls, 2);
    EXPECT_EQ(g_id, first);
    EXPECT_TRUE(KillTimer(nullptr, first));
    EXPECT_TRUE(KillTimer(nullptr, second));
}

TEST_F(ManualTime, AMadeUpProcedureIsNotCalled) {
    PostMessageA(frame_, WM_TIMER, 3, 0x1234);
    EXPECT_EQ(Ticks(), "3");
}

TEST_F(ManualTime, AMovedClockEndsAWait) {
    SetTimer(frame_, 1, 50, nullptr);
    std::thread other([] { winbase::hooks::AdvanceClock(60); });
    MSG message{};
    EXPECT_GT(GetMessageA(&message, nullptr, 0, 0), 0);
    EXPECT_EQ(message.message, UINT{WM_TIMER});
    other.join();
}

TEST_F(ManualTime, ARestingPointerHovers) {
    log_.Only({WM_MOUSEHOVER, WM_MOUSELEAVE});
    TRACKMOUSEEVENT track{sizeof track, TME_HOVER | TME_LEAVE, frame_, 60};
    const POINT place = platform::testing::ScreenPoint(frame_, 50, 60);
    platform::testing::MovePointer(place);
    ASSERT_TRUE(TrackMouseEvent(&track));
    PumpFor(40);
    platform::testing::MovePointer({place.x + 10, place.y});
    PumpFor(40);
    EXPECT_EQ(log_.Take(), "") << "it moved in between";
    PumpFor(30);
    EXPECT_EQ(log_.Take(), "*frame WM_MOUSEHOVER(0, 60,60)*");
    PumpFor(500);
    EXPECT_EQ(log_.Take(), "") << "once";
    platform::testing::MovePointer({700, 500});
    EXPECT_EQ(log_.Take(), "*frame WM_MOUSELEAVE*");
}

TEST_F(ManualTime, ASlowSecondClickIsNoDoubleClick) {
    log_.Only({WM_LBUTTONDOWN, WM_LBUTTONDBLCLK});
    const POINT place = platform::testing::ScreenPoint(frame_, 50, 60);
    const struct {
        DWORD pause;
        const char* second;
    } kCases[] = {{500, "WM_LBUTTONDBLCLK"}, {501, "WM_LBUTTONDOWN"}};
    for (const auto& [pause, second] : kCases) {
        PumpFor(1000);
        platform::testing::ClickAt(place);
        PumpFor(pause);
        log_.Take();
        platform::testing::ClickAt(place);
        EXPECT_EQ(log_.Take(), std::string("*frame ") + second + "(1, 50,60)*") << pause;
    }
}

bool HoldFor600Millis() {
    static int passed = 0;
    passed += 10;
    winbase::hooks::AdvanceClock(10);
    if (passed == 600) mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
    return true;
}

TEST_F(ManualTime, AHeldScrollBarRepeats) {
    const HWND scrolled =
        log_.Create("list", WS_CHILD | WS_VISIBLE | WS_VSCROLL, {10, 10, 110, 130}, frame_, 1);
    SCROLLINFO info{sizeof info, SIF_ALL, 0, 99, 10, 0, 0};
    SetScrollInfo(scrolled, SB_VERT, &info, FALSE);
    log_.Only({WM_VSCROLL, WM_TIMER});
    RECT rect{};
    GetWindowRect(scrolled, &rect);
    platform::testing::MovePointer({rect.right - 3, rect.bottom - 3});
    log_.Take();
    winbase::hooks::SetIdleHandler(HoldFor600Millis);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    PumpQueue();
    winbase::hooks::SetIdleHandler(nullptr);
    const std::string told = log_.Take();
    int pages = 0;
    for (std::size_t at = told.find("PAGEDOWN"); at != std::string::npos;
         at = told.find("PAGEDOWN", at + 1)) {
        ++pages;
    }
    // One at once, then after 200 milliseconds and every 50.
    EXPECT_GE(pages, 9);
    EXPECT_LE(pages, 10);
    EXPECT_EQ(told.find("WM_TIMER"), std::string::npos) << "the repeat is nobody else's timer";
}

}  // namespace

}  // namespace tests
