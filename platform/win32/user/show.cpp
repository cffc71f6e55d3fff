#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/ui_state.h"
#include "platform/win32/user/window.h"
#include "platform/win32/user/window_pos.h"

namespace winbase {

namespace {

constexpr int kParked = -32000;  // where minimised windows stand

void TellPlace(Window* window) {
    const HWND handle = window->handle;
    window->size_told = true;
    const WPARAM kind = (window->style & WS_MAXIMIZE) != 0 ? SIZE_MAXIMIZED : SIZE_RESTORED;
    const LONG width = window->client.right - window->client.left;
    const LONG height = window->client.bottom - window->client.top;
    SendMessageA(handle, WM_SIZE, kind, MAKELPARAM(width, height));
    const Window* const left = LookUp(handle);
    if (left == nullptr) return;
    const LONG x = left->rect.left + left->client.left;
    const LONG y = left->rect.top + left->client.top;
    SendMessageA(handle, WM_MOVE, 0, MAKELPARAM(x, y));
}

// The focus goes to the parent when the window that has it, or one around it, is hidden.
void GiveFocusUp(HWND handle) {
    const Window* const window = LookUp(handle);
    if (window == nullptr || window->parent == nullptr) return;
    const HWND focus = Ui().focus;
    if (focus == handle || IsChild(handle, focus)) SetFocus(window->parent->handle);
}

void Hide(Window* window) {
    const HWND handle = window->handle;
    const bool shown = window->parent == nullptr || IsShown(window->parent);
    SendMessageA(handle, WM_SHOWWINDOW, FALSE, 0);
    Window* const left = LookUp(handle);
    if (left == nullptr) return;
    if (!shown) {
        left->style &= ~DWORD{WS_VISIBLE};
        LayoutChanged();
        return;
    }
    UINT flags = SWP_NOSIZE | SWP_NOMOVE | SWP_HIDEWINDOW;
    if (left->parent != nullptr || Ui().active != handle) flags |= SWP_NOACTIVATE | SWP_NOZORDER;
    SetWindowPos(handle, nullptr, 0, 0, 0, 0, flags);
    GiveFocusUp(handle);
    Window* const hidden = LookUp(handle);
    if (hidden != nullptr && hidden->parent == nullptr) LeaveWindow(hidden);
}

bool Activates(int command) {
    return command != SW_SHOWNA && command != SW_SHOWNOACTIVATE && command != SW_SHOWMINNOACTIVE;
}

void Show(Window* window, int command) {
    const HWND handle = window->handle;
    SendMessageA(handle, WM_SHOWWINDOW, TRUE, 0);
    Window* left = LookUp(handle);
    if (left == nullptr) return;
    if (left->parent != nullptr && !IsShown(left->parent)) {
        left->style |= WS_VISIBLE;
        LayoutChanged();
    } else {
        UINT flags = SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW;
        if (left->parent != nullptr || !Activates(command)) flags |= SWP_NOACTIVATE | SWP_NOZORDER;
        if ((left->ex_style & WS_EX_NOACTIVATE) != 0) flags |= SWP_NOACTIVATE;
        SetWindowPos(handle, nullptr, 0, 0, 0, 0, flags);
    }
    left = LookUp(handle);
    if (left != nullptr && !left->size_told) TellPlace(left);
}

void Zoom(Window* window) {
    const HWND handle = window->handle;
    const MINMAXINFO limits = AskLimits(window);
    Window* const left = LookUp(handle);
    if (left == nullptr) return;
    if ((left->style & (WS_MAXIMIZE | WS_MINIMIZE)) == 0) left->normal_rect = left->rect;
    left->style = (left->style | WS_MAXIMIZE) & ~DWORD{WS_MINIMIZE};
    SetWindowPos(handle, nullptr, limits.ptMaxPosition.x, limits.ptMaxPosition.y,
                 limits.ptMaxSize.x, limits.ptMaxSize.y, SWP_FRAMECHANGED);
}

void Restore(Window* window) {
    const RECT normal = window->normal_rect;
    const bool minimised = (window->style & WS_MINIMIZE) != 0;
    const HWND handle = window->handle;
    window->style &= ~DWORD{WS_MAXIMIZE | WS_MINIMIZE};
    SetWindowPos(handle, nullptr, normal.left, normal.top, normal.right - normal.left,
                 normal.bottom - normal.top,
                 SWP_FRAMECHANGED | (minimised ? UINT{SWP_NOCOPYBITS} : 0U));
    if (minimised && LookUp(handle) != nullptr) SetFocus(handle);
}

void Minimise(Window* window) {
    const HWND handle = window->handle;
    if ((window->style & WS_MINIMIZE) != 0) return;
    if (Ui().focus == handle || IsChild(handle, Ui().focus)) SetFocus(nullptr);
    Window* const left = LookUp(handle);
    if (left == nullptr) return;
    if ((left->style & WS_MAXIMIZE) == 0) left->normal_rect = left->rect;
    left->style = (left->style | WS_MINIMIZE) & ~DWORD{WS_MAXIMIZE};
    SetWindowPos(
        handle, nullptr, kParked, kParked, GetSystemMetrics(SM_CXMIN), GetSystemMetrics(SM_CYMIN),
        SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED | SWP_SHOWWINDOW | SWP_NOCOPYBITS);
}

}  // namespace

}  // namespace winbase

using namespace winbase;

BOOL WINAPI ShowWindow(HWND handle, int command) {
    Window* const window = FindLive(handle);
    if (window == nullptr || window == DesktopWindow()) return FALSE;
    const WindowLock lock(window);
    const bool was_visible = (window->style & WS_VISIBLE) != 0;
    const bool changed_size = (window->style & (WS_MAXIMIZE | WS_MINIMIZE)) != 0;
    const bool framed = window->parent == nullptr;
    switch (command) {
        case SW_HIDE:
            if (was_visible) Hide(window);
            return was_visible;
        case SW_MAXIMIZE:
            if (framed) Zoom(window);
            break;
        case SW_MINIMIZE:
        case SW_SHOWMINIMIZED:
        case SW_SHOWMINNOACTIVE:
            if (framed) Minimise(window);
            return was_visible;
        case SW_RESTORE:
        case SW_SHOWNORMAL:
        case SW_SHOWNOACTIVATE:
            if (framed && changed_size) Restore(window);
            break;
        case SW_SHOW:
        case SW_SHOWNA:
        case SW_SHOWDEFAULT: break;
        default: return was_visible;
    }
    Window* const left = LookUp(handle);
    if (left != nullptr && (left->style & WS_VISIBLE) == 0) Show(left, command);
    return was_visible;
}

BOOL WINAPI IsWindowVisible(HWND handle) {
    const Window* const window = FindLive(handle);
    return window != nullptr && IsShown(window);
}

BOOL WINAPI IsIconic(HWND handle) {
    const Window* const window = FindLive(handle);
    return window != nullptr && (window->style & WS_MINIMIZE) != 0;
}

BOOL WINAPI IsZoomed(HWND handle) {
    const Window* const window = FindLive(handle);
    return window != nullptr && (window->style & WS_MAXIMIZE) != 0;
}

BOOL WINAPI EnableWindow(HWND handle, BOOL enable) {
    Window* const window = FindLive(handle);
    if (window == nullptr || window == DesktopWindow()) return FALSE;
    const bool was_disabled = (window->style & WS_DISABLED) != 0;
    if (!enable) {
        SendMessageA(handle, WM_CANCELMODE, 0, 0);
        if (LookUp(handle) == nullptr) return was_disabled;
    }
    if (was_disabled != (enable != 0)) return was_disabled;
    window->style = enable ? window->style & ~DWORD{WS_DISABLED} : window->style | WS_DISABLED;
    if (!enable && Ui().focus == handle) SetFocus(nullptr);
    if (LookUp(handle) == nullptr) return was_disabled;
    SendMessageA(handle, WM_ENABLE, enable ? TRUE : FALSE, 0);
    return was_disabled;
}

BOOL WINAPI IsWindowEnabled(HWND handle) {
    const Window* const window = FindLive(handle);
    return window != nullptr && (window->style & WS_DISABLED) == 0;
}
