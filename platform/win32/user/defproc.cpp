#include <algorithm>

#include "platform/win32/user/default_input.h"
#include "platform/win32/user/pointer.h"
#include "platform/win32/user/ui_state.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

LRESULT DefaultCalcSize(const Window* window, WPARAM wParam, LPARAM lParam) {
    // Both forms of the message begin with the rectangle that is to become the client area.
    auto* const rect = reinterpret_cast<RECT*>(lParam);
    if (rect == nullptr) return 0;
    *rect = ClientFromWindow(window, *rect);
    if (wParam == 0) return 0;
    LRESULT answer = 0;
    if ((window->window_class->style & CS_HREDRAW) != 0) answer |= WVR_HREDRAW;
    if ((window->window_class->style & CS_VREDRAW) != 0) answer |= WVR_VREDRAW;
    return answer;
}

LRESULT DefaultPosChanging(Window* window, LPARAM lParam) {
    auto* const pos = reinterpret_cast<WINDOWPOS*>(lParam);
    if (pos == nullptr || (pos->flags & SWP_NOSIZE) != 0) return 0;
    const bool framed = (window->style & (WS_POPUP | WS_CHILD)) == 0;
    if (!framed && (window->style & WS_THICKFRAME) == 0) return 0;
    const HWND handle = window->handle;
    const MINMAXINFO limits = AskLimits(window);
    if (LookUp(handle) == nullptr || (window->style & WS_MINIMIZE) != 0) return 0;
    pos->cx = std::clamp(pos->cx, limits.ptMinTrackSize.x, limits.ptMaxTrackSize.x);
    pos->cy = std::clamp(pos->cy, limits.ptMinTrackSize.y, limits.ptMaxTrackSize.y);
    return 0;
}

WPARAM SizeKind(const Window* window) {
    if ((window->style & WS_MINIMIZE) != 0) return SIZE_MINIMIZED;
    return (window->style & WS_MAXIMIZE) != 0 ? SIZE_MAXIMIZED : SIZE_RESTORED;
}

LRESULT DefaultPosChanged(Window* window, LPARAM lParam) {
    const auto* const pos = reinterpret_cast<const WINDOWPOS*>(lParam);
    if (pos == nullptr) return 0;
    const UINT flags = pos->flags;
    const HWND handle = window->handle;
    if ((flags & kNoClientMove) == 0) {
        const POINT place{window->rect.left + window->client.left,
                          window->rect.top + window->client.top};
        SendMessageA(handle, WM_MOVE, 0, MAKELPARAM(place.x, place.y));
    }
    if (LookUp(handle) == nullptr || (flags & kNoClientSize) != 0) return 0;
    const RECT& client = window->client;
    SendMessageA(handle, WM_SIZE, SizeKind(window),
                 MAKELPARAM(client.right - client.left, client.bottom - client.top));
    return 0;
}

LRESULT DefaultErase(const Window* window, WPARAM wParam) {
    const HBRUSH brush = window->window_class->background;
    if (brush == nullptr) return 0;
    const auto dc = reinterpret_cast<HDC>(wParam);
    RECT box{};
    GetClipBox(dc, &box);
    FillRect(dc, &box, brush);
    return 1;
}

LRESULT DefaultPaint(HWND window) {
    PAINTSTRUCT paint{};
    if (BeginPaint(window, &paint) != nullptr) EndPaint(window, &paint);
    return 0;
}

// Lists and fields are white, everything else stands on the ground of dialogs.
LRESULT DefaultColor(UINT message, WPARAM wParam) {
    const bool paper = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX;
    const int ground = paper ? COLOR_WINDOW : COLOR_3DFACE;
    const auto dc = reinterpret_cast<HDC>(wParam);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(dc, GetSysColor(ground));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(ground));
}

LRESULT DefaultActivate(const Window* window, WPARAM wParam) {
    const bool active = LOWORD(wParam) != WA_INACTIVE;
    if (active && (window->style & WS_MINIMIZE) == 0) SetFocus(window->handle);
    return 0;
}

LRESULT DefaultFrameActivate(Window* window, WPARAM wParam) {
    const bool active = wParam != FALSE;
    if (window->frame_active != active) {
        window->frame_active = active;
        PaintFrame(window);
    }
    return TRUE;
}

LRESULT AskMenu(Window* window, POINT screen) {
    const HWND handle = window->handle;
    return SendMessageA(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle),
                        ScreenPointOf(screen));
}

LRESULT AskMenuInClient(Window* window, LPARAM lParam) {
    POINT place = UnpackPoint(lParam);
    ClientToScreen(window->handle, &place);
    return AskMenu(window, place);
}

LRESULT CancelMode(const Window* window) {
    if (Ui().capture == window->handle) ReleaseCapture();
    return 0;
}

// Size, paint and state.
bool HandleWindow(Window* window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& answer) {
    switch (message) {
        case WM_NCCREATE: answer = TRUE; return true;
        case WM_NCCALCSIZE: answer = DefaultCalcSize(window, wParam, lParam); return true;
        case WM_WINDOWPOSCHANGING: answer = DefaultPosChanging(window, lParam); return true;
        case WM_WINDOWPOSCHANGED: answer = DefaultPosChanged(window, lParam); return true;
        case WM_NCPAINT: PaintFrame(window); return true;
        case WM_ERASEBKGND: answer = DefaultErase(window, wParam); return true;
        case WM_PAINT: answer = DefaultPaint(window->handle); return true;
        case WM_SETREDRAW: answer = DefaultSetRedraw(window, wParam != 0); return true;
        case WM_SETTEXT:
            answer = DefaultSetText(window, reinterpret_cast<const char*>(lParam));
            return true;
        case WM_GETTEXT:
            answer = DefaultGetText(window, reinterpret_cast<char*>(lParam), wParam);
            return true;
        case WM_GETTEXTLENGTH: answer = static_cast<LRESULT>(window->text.size()); return true;
        case WM_NCACTIVATE: answer = DefaultFrameActivate(window, wParam); return true;
        case WM_ACTIVATE: answer = DefaultActivate(window, wParam); return true;
        case WM_CLOSE: DestroyWindow(window->handle); return true;
        case WM_CTLCOLORMSGBOX:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC: answer = DefaultColor(message, wParam); return true;
        default: return false;
    }
}

LRESULT HandleInput(Window* window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCHITTEST: return HitTestFrame(window, UnpackPoint(lParam));
        case WM_SETCURSOR: return DefaultSetCursor(window, wParam, lParam);
        case WM_MOUSEACTIVATE: return DefaultMouseActivate(window, wParam, lParam);
        case WM_NCLBUTTONDOWN: return DefaultFramePress(window, static_cast<int>(wParam), lParam);
        case WM_NCLBUTTONDBLCLK:
            return DefaultFrameDoubleClick(window, static_cast<int>(wParam), lParam);
        case WM_SYSCOMMAND: return DefaultSystemCommand(window, wParam, lParam);
        case WM_SYSKEYDOWN: return DefaultSystemKey(window, wParam, lParam);
        case WM_RBUTTONUP: return AskMenuInClient(window, lParam);
        case WM_NCRBUTTONUP: return AskMenu(window, UnpackPoint(lParam));
        case WM_CONTEXTMENU:
        case WM_MOUSEWHEEL: return PassToParent(window, message, wParam, lParam);
        case WM_CANCELMODE: return CancelMode(window);
        default: return 0;
    }
}

}  // namespace

}  // namespace winbase

using namespace winbase;

LRESULT DefWindowProcA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    AssertUiThread();
    Window* const window = FindLive(handle);
    if (window == nullptr) return 0;
    const WindowLock lock(window);
    LRESULT answer = 0;
    if (HandleWindow(window, message, wParam, lParam, answer)) return answer;
    return HandleInput(window, message, wParam, lParam);
}
