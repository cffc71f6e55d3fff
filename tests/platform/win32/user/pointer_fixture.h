#pragma once

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "platform/testing/input.h"
#include "tests/support/message_log.h"

namespace tests {

/// A shown frame with two children side by side, A (80 by 40 at 10,10) and B (90 pixels further,
/// which wants double clicks). The pointer rests on the frame; nothing is logged yet.
class PointerTest : public ::testing::Test {
protected:
    PointerTest() {
        frame_ = log_.Create("frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {100, 100, 400, 300});
        a_ = log_.Create("A", WS_CHILD | WS_VISIBLE, {10, 10, 90, 50}, frame_, 1);
        b_ = log_.Create("B", WS_CHILD | WS_VISIBLE, {100, 10, 180, 50}, frame_, 2, 0, CS_DBLCLKS);
        PumpQueue();
        MoveTo(frame_, 250, 100);
        log_.Only({WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN,
                   WM_RBUTTONUP, WM_RBUTTONDBLCLK, WM_MOUSEWHEEL, WM_MOUSELEAVE, WM_MOUSEHOVER,
                   WM_CAPTURECHANGED, WM_CANCELMODE, WM_CONTEXTMENU});
        log_.Take();
    }

    static void MoveTo(HWND window, int x, int y) {
        platform::testing::MovePointer(platform::testing::ScreenPoint(window, x, y));
    }

    /// Presses and lets go where the pointer is; both wait in the queue together.
    static void ClickHere(DWORD down = MOUSEEVENTF_LEFTDOWN, DWORD up = MOUSEEVENTF_LEFTUP) {
        mouse_event(down, 0, 0, 0, 0);
        mouse_event(up, 0, 0, 0, 0);
        PumpQueue();
    }

    std::string AfterClickAt(HWND window, int x, int y) {
        MoveTo(window, x, y);
        log_.Take();
        ClickHere();
        return log_.Take();
    }

    MessageLog log_;
    HWND frame_ = nullptr;
    HWND a_ = nullptr;
    HWND b_ = nullptr;
};

}  // namespace tests
