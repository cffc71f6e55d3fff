#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/ui_state.h"
#include "platform/win32/user/window.h"
#include "platform/win32/user/window_pos.h"

namespace winbase {

namespace {

bool CanBeActive(const Window* window, const Window* leaving) {
    constexpr DWORD kNever = WS_DISABLED | WS_MINIMIZE;
    return window != leaving && !window->destroying && (window->style & WS_VISIBLE) != 0 &&
           (window->style & kNever) == 0 && (window->ex_style & WS_EX_NOACTIVATE) == 0;
}

Window* NextActive(const Window* leaving) {
    for (Window* owner = leaving->owner; owner != nullptr; owner = owner->owner) {
        if (CanBeActive(owner, leaving)) return owner;
    }
    for (Window* window : DesktopWindow()->children) {
        if (CanBeActive(window, leaving) && (window->ex_style & WS_EX_TOOLWINDOW) == 0)
            return window;
    }
    return nullptr;
}

void MoveFocus(HWND to) {
    UiState& ui = Ui();
    const HWND from = ui.focus;
    if (from == to) return;
    ui.focus = to;
    if (from != nullptr && LookUp(from) != nullptr) {
        SendMessageA(from, WM_KILLFOCUS, reinterpret_cast<WPARAM>(to), 0);
    }
    if (to != nullptr && ui.focus == to && LookUp(to) != nullptr) {
        SendMessageA(to, WM_SETFOCUS, reinterpret_cast<WPARAM>(from), 0);
    }
}

bool Deactivate(HWND next) {
    UiState& ui = Ui();
    const HWND former = ui.active;
    if (former == nullptr || LookUp(former) == nullptr) return true;
    SendMessageA(former, WM_NCACTIVATE, FALSE, reinterpret_cast<LPARAM>(next));
    if (LookUp(former) != nullptr) {
        const bool minimised = (LookUp(former)->style & WS_MINIMIZE) != 0;
        SendMessageA(former, WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, minimised),
                     reinterpret_cast<LPARAM>(next));
    }
    return next == nullptr || LookUp(next) != nullptr;
}

void LeaveApplication() {
    UiState& ui = Ui();
    const HWND former = ui.active;
    Deactivate(nullptr);
    if (ui.active == former) ui.active = nullptr;
    if (ui.active != nullptr) return;
    ui.application_active = false;
    if (former != nullptr && LookUp(former) != nullptr)
        SendMessageA(former, WM_ACTIVATEAPP, FALSE, 0);
    if (ui.active == nullptr) MoveFocus(nullptr);
}

}  // namespace

bool Activate(Window* window, ActivationKind kind) {
    UiState& ui = Ui();
    window = TopLevel(window);
    const HWND handle = window->handle;
    const HWND former = ui.active;
    if (former == handle) return true;
    if ((window->style & WS_DISABLED) != 0 && kind == ActivationKind::kClick) return false;
    if (!Deactivate(handle)) return false;
    if (ui.active != former) return ui.active == handle;
    ui.active = handle;
    if (!ui.application_active) {
        ui.application_active = true;
        SendMessageA(handle, WM_ACTIVATEAPP, TRUE, 0);
        if (LookUp(handle) == nullptr || ui.active != handle) return false;
    }
    PutOnTop(window);
    SendMessageA(handle, WM_NCACTIVATE, TRUE, reinterpret_cast<LPARAM>(former));
    if (LookUp(handle) == nullptr || ui.active != handle) return false;
    const bool minimised = (window->style & WS_MINIMIZE) != 0;
    const WORD how = kind == ActivationKind::kClick ? WA_CLICKACTIVE : WA_ACTIVE;
    SendMessageA(handle, WM_ACTIVATE, MAKEWPARAM(how, minimised), reinterpret_cast<LPARAM>(former));
    if (ui.active != handle || LookUp(handle) == nullptr) return false;
    if (kind == ActivationKind::kFocus || minimised) return true;
    // A window that took no focus at WM_ACTIVATE gets it: keys go to the active window or one
    // inside.
    Window* const focused = LookUp(ui.focus);
    if (focused == nullptr || TopLevel(focused) != window) MoveFocus(handle);
    return ui.active == handle;
}

void LeaveWindow(Window* window) {
    UiState& ui = Ui();
    const HWND handle = window->handle;
    if (window->parent != nullptr) {
        if (ui.focus == handle || IsChild(handle, ui.focus)) {
            const Window* up = window->parent;
            MoveFocus((up->style & WS_DISABLED) == 0 && !up->destroying ? up->handle : nullptr);
        }
        return;
    }
    if (ui.active != handle) {
        if (ui.focus == handle || IsChild(handle, ui.focus)) MoveFocus(nullptr);
        return;
    }
    Window* const next = NextActive(window);
    if (next == nullptr) {
        LeaveApplication();
        return;
    }
    Activate(next, ActivationKind::kCall);
}

}  // namespace winbase

using namespace winbase;

HWND WINAPI GetActiveWindow() { return IsUiThread() ? Ui().active : nullptr; }

HWND WINAPI GetForegroundWindow() { return IsUiThread() ? Ui().active : nullptr; }

HWND WINAPI SetActiveWindow(HWND handle) {
    Window* const window = FindLive(handle);
    const HWND former = Ui().active;
    if (window == nullptr || window->parent != nullptr || window == DesktopWindow()) return nullptr;
    if ((window->style & WS_DISABLED) != 0) return nullptr;
    Activate(window, ActivationKind::kCall);
    return former;
}

BOOL WINAPI SetForegroundWindow(HWND handle) {
    Window* const window = FindLive(handle);
    if (window == nullptr || window == DesktopWindow()) return FALSE;
    return Activate(TopLevel(window), ActivationKind::kCall);
}

HWND WINAPI GetLastActivePopup(HWND handle) {
    const Window* const window = FindLive(handle);
    if (window == nullptr) return nullptr;
    for (const Window* top : DesktopWindow()->children) {
        if (top->owner == window && (top->style & WS_VISIBLE) != 0) return top->handle;
    }
    return handle;
}

HWND WINAPI GetFocus() { return IsUiThread() ? Ui().focus : nullptr; }

HWND WINAPI SetFocus(HWND handle) {
    if (!IsUiThread()) {
        SetLastError(ERROR_ACCESS_DENIED);
        return nullptr;
    }
    UiState& ui = Ui();
    if (handle == nullptr) {
        const HWND former = ui.focus;
        MoveFocus(nullptr);
        return former;
    }
    Window* const window = FindLive(handle);
    if (window == nullptr || window == DesktopWindow() || window->destroying) return nullptr;
    for (const Window* up = window; up != nullptr; up = up->parent) {
        if ((up->style & (WS_DISABLED | WS_MINIMIZE)) != 0) return nullptr;
    }
    if (ui.active != TopLevel(window)->handle && !Activate(window, ActivationKind::kFocus))
        return nullptr;
    if (LookUp(handle) == nullptr) return nullptr;
    const HWND former = ui.focus;
    MoveFocus(handle);
    return former;
}
