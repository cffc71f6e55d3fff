#include <algorithm>

#include "platform/win32/gdi/surface.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/ui_state.h"
#include "platform/win32/user/window.h"
#include "platform/win32/user/window_pos.h"
#include "platform/win32/user/window_table.h"

namespace winbase {

namespace {

void SendDestroy(HWND handle) {
    Window* window = LookUp(handle);
    if (window == nullptr) return;
    window->destroying = true;
    CallProcedure(window, WM_DESTROY, 0, 0);
    window = LookUp(handle);
    if (window == nullptr) return;
    for (const HWND child : HandlesOf(window->children)) SendDestroy(child);
}

void SendNcDestroy(HWND handle) {
    Window* window = LookUp(handle);
    if (window == nullptr) return;
    // A child that was made by a WM_DESTROY handler goes with the others.
    for (int round = 0; round < 16 && !window->children.empty(); ++round) {
        for (const HWND child : HandlesOf(window->children)) SendNcDestroy(child);
        window = LookUp(handle);
        if (window == nullptr) return;
    }
    const WindowLock lock(window);
    CallProcedure(window, WM_NCDESTROY, 0, 0);
    if (LookUp(handle) != nullptr) ForgetDestroyed(window);
}

void DestroyOwned(HWND handle) {
    std::vector<HWND> owned;
    for (const Window* window : DesktopWindow()->children) {
        if (window->owner != nullptr && window->owner->handle == handle)
            owned.push_back(window->handle);
    }
    for (const HWND window : owned) {
        if (LookUp(window) != nullptr) DestroyWindow(window);
    }
}

void HideForDestruction(Window* window) {
    const HWND handle = window->handle;
    if (window->parent != nullptr) {
        ShowWindow(handle, SW_HIDE);
        return;
    }
    SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
}

}  // namespace

void ForgetDestroyed(Window* window) {
    auto& siblings =
        window->parent != nullptr ? window->parent->children : DesktopWindow()->children;
    std::erase(siblings, window);
    for (Window* other : DesktopWindow()->children) {
        if (other->owner == window) other->owner = nullptr;
    }
    UiState& ui = Ui();
    if (ui.focus == window->handle) ui.focus = nullptr;
    if (ui.active == window->handle) ui.active = nullptr;
    if (ui.capture == window->handle) ui.capture = nullptr;
    ForgetWindow(window->handle);
    ForgetContexts(window);
    if (window->window_class != nullptr) --window->window_class->window_count;
    window->parent = nullptr;
    window->surface.reset();
    LayoutChanged();
    RetireWindow(window);
}

}  // namespace winbase

using namespace winbase;

BOOL WINAPI DestroyWindow(HWND handle) {
    Window* window = LookUp(handle);
    if (window == nullptr || window == DesktopWindow()) {
        return Fail(window == nullptr ? ERROR_INVALID_WINDOW_HANDLE : ERROR_ACCESS_DENIED);
    }
    if (!IsUiThread()) return Fail(ERROR_ACCESS_DENIED);
    if (window->destroying) return TRUE;
    const WindowLock lock(window);
    if (window->parent != nullptr && (window->ex_style & WS_EX_NOPARENTNOTIFY) == 0) {
        NotifyParent(window, WM_DESTROY);
        if (LookUp(handle) == nullptr) return TRUE;
    }
    if ((window->style & WS_VISIBLE) != 0) {
        HideForDestruction(window);
        if (LookUp(handle) == nullptr) return TRUE;
    }
    if (window->parent == nullptr) {
        DestroyOwned(handle);
        if (LookUp(handle) == nullptr) return TRUE;
    }
    LeaveWindow(window);
    if (LookUp(handle) == nullptr) return TRUE;
    if (Ui().capture == handle) Ui().capture = nullptr;
    SendDestroy(handle);
    if (LookUp(handle) == nullptr) return TRUE;
    SendNcDestroy(handle);
    RefreshPointer();
    return TRUE;
}
