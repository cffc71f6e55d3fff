#include <algorithm>

#include "platform/win32/user/capture_loop.h"
#include "platform/win32/user/nonclient.h"

namespace winbase {

namespace {

bool IsOneOf(int hit, int first, int second, int third) {
    return hit == first || hit == second || hit == third;
}

bool MovesLeft(int hit) { return IsOneOf(hit, HTLEFT, HTTOPLEFT, HTBOTTOMLEFT); }
bool MovesRight(int hit) { return IsOneOf(hit, HTRIGHT, HTTOPRIGHT, HTBOTTOMRIGHT); }
bool MovesTop(int hit) { return IsOneOf(hit, HTTOP, HTTOPLEFT, HTTOPRIGHT); }
bool MovesBottom(int hit) { return IsOneOf(hit, HTBOTTOM, HTBOTTOMLEFT, HTBOTTOMRIGHT); }

// The edge that isn't dragged stays where it is, however small the window may become.
RECT Sized(RECT rect, int hit, POINT by, const MINMAXINFO& limits) {
    const auto width = [&](LONG value) {
        return std::clamp(value, limits.ptMinTrackSize.x, limits.ptMaxTrackSize.x);
    };
    const auto height = [&](LONG value) {
        return std::clamp(value, limits.ptMinTrackSize.y, limits.ptMaxTrackSize.y);
    };
    if (MovesLeft(hit)) rect.left = rect.right - width(rect.right - rect.left - by.x);
    if (MovesRight(hit)) rect.right = rect.left + width(rect.right - rect.left + by.x);
    if (MovesTop(hit)) rect.top = rect.bottom - height(rect.bottom - rect.top - by.y);
    if (MovesBottom(hit)) rect.bottom = rect.top + height(rect.bottom - rect.top + by.y);
    return rect;
}

void Place(HWND handle, const RECT& rect, int hit) {
    const UINT what = hit == HTCAPTION ? SWP_NOSIZE : 0;
    SetWindowPos(handle, nullptr, rect.left, rect.top, rect.right - rect.left,
                 rect.bottom - rect.top, SWP_NOZORDER | SWP_NOACTIVATE | what);
}

RECT BoxOnScreen(const Window* window, int hit) {
    const FrameLayout frame = LayOutFrame(window);
    const RECT whole = ScreenRect(window);
    const RECT& box = hit == HTCLOSE ? frame.close : frame.zoom;
    return Moved(box, whole.left, whole.top);
}

}  // namespace

void MoveOrSize(Window* window, int hit, POINT from) {
    if ((window->style & (WS_MAXIMIZE | WS_MINIMIZE)) != 0) return;
    const WindowLock lock(window);
    const HWND handle = window->handle;
    const RECT first = window->rect;
    const MINMAXINFO limits = AskLimits(window);
    SendMessageA(handle, WM_ENTERSIZEMOVE, 0, 0);
    RunCaptureLoop(handle, [&](const MSG& message) {
        if (message.message == WM_LBUTTONUP) return LoopStep::kEnd;
        if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE) {
            Place(handle, first, hit);
            return LoopStep::kEnd;
        }
        if (message.message != WM_MOUSEMOVE) return LoopStep::kDispatch;
        const POINT by{message.pt.x - from.x, message.pt.y - from.y};
        Place(handle, hit == HTCAPTION ? Moved(first, by.x, by.y) : Sized(first, hit, by, limits),
              hit);
        return LoopStep::kGoOn;
    });
    if (LookUp(handle) != nullptr) SendMessageA(handle, WM_EXITSIZEMOVE, 0, 0);
}

bool TrackBox(Window* window, int hit) {
    const WindowLock lock(window);
    const HWND handle = window->handle;
    PaintBox(window, hit, BoxState::kPressed);
    bool inside = true;
    const bool released = RunCaptureLoop(handle, [&](const MSG& message) {
        Window* const left = LookUp(handle);
        if (left == nullptr) return LoopStep::kEnd;
        if (message.message != WM_LBUTTONUP && message.message != WM_MOUSEMOVE) {
            return LoopStep::kDispatch;
        }
        const RECT box = BoxOnScreen(left, hit);
        inside = PtInRect(&box, message.pt) != FALSE;
        PaintBox(left, hit, inside ? BoxState::kPressed : BoxState::kNormal);
        return message.message == WM_LBUTTONUP ? LoopStep::kEnd : LoopStep::kGoOn;
    });
    if (Window* const left = LookUp(handle)) PaintBox(left, hit, BoxState::kNormal);
    return released && inside && LookUp(handle) != nullptr;
}

}  // namespace winbase
