#include "platform/win32/user/capture_loop.h"
#include "platform/win32/user/ui_state.h"
#include "platform/win32/user/window.h"

using namespace winbase;

namespace {

void TellLoss(HWND from, HWND to) {
    if (Window* const window = LookUp(from)) {
        CallProcedure(window, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(to));
    }
}

}  // namespace

HWND GetCapture() { return IsUiThread() ? Ui().capture : nullptr; }

HWND SetCapture(HWND window) {
    AssertUiThread();
    if (window == nullptr) {
        const HWND former = Ui().capture;
        ReleaseCapture();
        return former;
    }
    const Window* const target = FindLive(window);
    if (target == nullptr || target->destroying) return nullptr;
    const HWND former = Ui().capture;
    Ui().capture = window;
    if (former != nullptr) TellLoss(former, window);
    return former;
}

BOOL ReleaseCapture() {
    AssertUiThread();
    const HWND former = Ui().capture;
    Ui().capture = nullptr;
    if (former == nullptr) return TRUE;
    // The window beneath the pointer has heard nothing of it in the meantime.
    RefreshPointer();
    TellLoss(former, nullptr);
    return TRUE;
}

BOOL DragDetect(HWND window, POINT point) {
    AssertUiThread();
    if (FindLive(window) == nullptr) return FALSE;
    const int x = GetSystemMetrics(SM_CXDRAG);
    const int y = GetSystemMetrics(SM_CYDRAG);
    const RECT still{point.x - x, point.y - y, point.x + x + 1, point.y + y + 1};
    BOOL dragged = FALSE;
    RunCaptureLoop(window, [&](const MSG& message) {
        if (message.message == WM_LBUTTONUP) return LoopStep::kEnd;
        if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) return LoopStep::kEnd;
        if (message.message != WM_MOUSEMOVE) return LoopStep::kDispatch;
        dragged = !PtInRect(&still, message.pt);
        return dragged ? LoopStep::kEnd : LoopStep::kGoOn;
    });
    return dragged;
}
