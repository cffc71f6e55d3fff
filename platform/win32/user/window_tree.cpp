#include <algorithm>

#include "platform/text/letter_case.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/ui_state.h"
#include "platform/win32/user/window.h"
#include "platform/win32/user/window_class.h"
#include "platform/win32/user/window_pos.h"
#include "platform/win32/user/window_table.h"

namespace winbase {

namespace {

HWND HandleOf(const Window* window) { return window != nullptr ? window->handle : nullptr; }

bool IsTopmost(const Window* window) { return (window->ex_style & WS_EX_TOPMOST) != 0; }

bool IsOwnedBy(const Window* window, const Window* owner) {
    for (const Window* up = window->owner; up != nullptr; up = up->owner) {
        if (up == owner) return true;
    }
    return false;
}

const std::vector<Window*>& SiblingsOf(const Window* window) {
    return window->parent != nullptr ? window->parent->children : DesktopWindow()->children;
}

bool Walk(HWND handle, WNDENUMPROC callback, LPARAM lParam) {
    const Window* const window = LookUp(handle);
    if (window == nullptr) return true;
    const std::vector<HWND> children = HandlesOf(window->children);
    for (const HWND child : children) {
        if (LookUp(child) == nullptr) continue;
        if (!callback(child, lParam) || !Walk(child, callback, lParam)) return false;
    }
    return true;
}

bool Hit(const Window* window, POINT screen) {
    const RECT rect = ScreenRect(window);
    return PtInRect(&rect, screen) != 0;
}

HWND DeepestAt(const Window* window, POINT screen) {
    for (const Window* child : window->children) {
        const bool reachable =
            (child->style & WS_VISIBLE) != 0 && (child->style & WS_DISABLED) == 0;
        if (!reachable || !Hit(child, screen)) continue;
        const RECT client = ScreenClientRect(child);
        return PtInRect(&client, screen) ? DeepestAt(child, screen) : child->handle;
    }
    return window->handle;
}

}  // namespace

void NotifyParent(Window* window, UINT event) {
    const WPARAM wParam = MAKEWPARAM(event, window->id);
    const auto lParam = reinterpret_cast<LPARAM>(window->handle);
    std::vector<HWND> parents;
    for (const Window* up = window; up->parent != nullptr; up = up->parent) {
        if ((up->ex_style & WS_EX_NOPARENTNOTIFY) != 0) break;
        parents.push_back(up->parent->handle);
    }
    for (const HWND parent : parents) {
        if (LookUp(parent) != nullptr) SendMessageA(parent, WM_PARENTNOTIFY, wParam, lParam);
    }
}

void PutOnTop(Window* window) {
    if (window->parent != nullptr) {
        auto& siblings = window->parent->children;
        std::erase(siblings, window);
        siblings.insert(siblings.begin(), window);
        LayoutChanged();
        return;
    }
    auto& tops = DesktopWindow()->children;
    const bool topmost = IsTopmost(window);
    // The window moves with all that it owns, in the order in which they stand.
    std::vector<Window*> group;
    for (Window* other : tops) {
        if (other != window && IsOwnedBy(other, window)) group.push_back(other);
    }
    group.push_back(window);
    std::erase_if(tops, [&](Window* other) {
        return std::find(group.begin(), group.end(), other) != group.end();
    });
    const auto behind_topmost = std::find_if(tops.begin(), tops.end(),
                                             [](const Window* other) { return !IsTopmost(other); });
    std::vector<Window*> above;
    std::vector<Window*> ordinary;
    for (Window* other : group) (topmost || IsTopmost(other) ? above : ordinary).push_back(other);
    tops.insert(behind_topmost, ordinary.begin(), ordinary.end());
    tops.insert(tops.begin(), above.begin(), above.end());
    LayoutChanged();
}

}  // namespace winbase

using namespace winbase;

BOOL WINAPI IsWindow(HWND window) { return IsLiveWindow(window) ? TRUE : FALSE; }

BOOL WINAPI IsChild(HWND parent, HWND handle) {
    const Window* window = LookUp(handle);
    if (window == nullptr || LookUp(parent) == nullptr) return FALSE;
    for (window = window->parent; window != nullptr; window = window->parent) {
        if (window->handle == parent) return TRUE;
    }
    return FALSE;
}

HWND WINAPI GetParent(HWND handle) {
    const Window* const window = FindLive(handle);
    if (window == nullptr) return nullptr;
    if (window->parent != nullptr) return window->parent->handle;
    return (window->style & WS_POPUP) != 0 ? HandleOf(window->owner) : nullptr;
}

HWND WINAPI GetAncestor(HWND handle, UINT kind) {
    Window* const window = FindLive(handle);
    if (window == nullptr || window == DesktopWindow()) return nullptr;
    switch (kind) {
        case GA_PARENT:
            return HandleOf(window->parent != nullptr ? window->parent : DesktopWindow());
        case GA_ROOT: return TopLevel(window)->handle;
        case GA_ROOTOWNER: {
            const Window* root = TopLevel(window);
            while (root->owner != nullptr) root = TopLevel(root->owner);
            return root->handle;
        }
        default: return nullptr;
    }
}

HWND WINAPI GetWindow(HWND handle, UINT relation) {
    const Window* const window = FindLive(handle);
    if (window == nullptr) return nullptr;
    if (relation == GW_CHILD)
        return window->children.empty() ? nullptr : window->children.front()->handle;
    if (relation == GW_OWNER) return HandleOf(window->owner);
    if (window == DesktopWindow()) return nullptr;
    const auto& siblings = SiblingsOf(window);
    const auto place = std::find(siblings.begin(), siblings.end(), window);
    switch (relation) {
        case GW_HWNDFIRST: return siblings.front()->handle;
        case GW_HWNDLAST: return siblings.back()->handle;
        case GW_HWNDNEXT: return place + 1 != siblings.end() ? (*(place + 1))->handle : nullptr;
        case GW_HWNDPREV: return place != siblings.begin() ? (*(place - 1))->handle : nullptr;
        default: SetLastError(ERROR_INVALID_PARAMETER); return nullptr;
    }
}

HWND WINAPI GetTopWindow(HWND window) {
    return GetWindow(window != nullptr ? window : GetDesktopWindow(), GW_CHILD);
}

HWND WINAPI GetDesktopWindow() { return DesktopWindow()->handle; }

HWND WINAPI GetDlgItem(HWND handle, int id) {
    const Window* const window = FindLive(handle);
    if (window == nullptr) return nullptr;
    for (const Window* child : window->children) {
        if (static_cast<int>(child->id) == id) return child->handle;
    }
    SetLastError(ERROR_CONTROL_ID_NOT_FOUND);
    return nullptr;
}

int WINAPI GetDlgCtrlID(HWND handle) {
    const Window* const window = FindLive(handle);
    return window != nullptr ? static_cast<int>(window->id) : 0;
}

BOOL WINAPI EnumChildWindows(HWND window, WNDENUMPROC callback, LPARAM lParam) {
    if (window == nullptr) window = GetDesktopWindow();
    if (FindLive(window) == nullptr || callback == nullptr) return FALSE;
    return Walk(window, callback, lParam) ? TRUE : FALSE;
}

BOOL WINAPI EnumWindows(WNDENUMPROC callback, LPARAM lParam) {
    const std::vector<HWND> tops = HandlesOf(DesktopWindow()->children);
    for (const HWND window : tops) {
        if (LookUp(window) != nullptr && !callback(window, lParam)) return FALSE;
    }
    return TRUE;
}

BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC callback, LPARAM lParam) {
    return thread == GetCurrentThreadId() && IsUiThread() ? EnumWindows(callback, lParam) : FALSE;
}

HWND WINAPI FindWindowA(LPCSTR class_name, LPCSTR title) {
    for (const Window* window : DesktopWindow()->children) {
        const bool same_class =
            class_name == nullptr || (window->window_class != nullptr &&
                                      text::EqualNoCase(window->window_class->name, class_name));
        if (same_class && (title == nullptr || text::EqualNoCase(window->text, title)))
            return window->handle;
    }
    return nullptr;
}

HWND WINAPI WindowFromPoint(POINT point) {
    for (const Window* window : DesktopWindow()->children) {
        if ((window->style & WS_VISIBLE) == 0 || !Hit(window, point)) continue;
        if ((window->style & WS_DISABLED) != 0) continue;
        const RECT client = ScreenClientRect(window);
        return PtInRect(&client, point) ? DeepestAt(window, point) : window->handle;
    }
    return GetDesktopWindow();
}

HWND WINAPI ChildWindowFromPoint(HWND handle, POINT point) {
    const Window* const window = FindLive(handle);
    if (window == nullptr) return nullptr;
    const RECT client = ScreenClientRect(window);
    const POINT screen{client.left + point.x, client.top + point.y};
    if (!PtInRect(&client, screen)) return nullptr;
    for (const Window* child : window->children) {
        if (Hit(child, screen)) return child->handle;
    }
    return handle;
}

DWORD WINAPI GetWindowThreadProcessId(HWND handle, LPDWORD process) {
    if (FindLive(handle) == nullptr) return 0;
    if (process != nullptr) *process = GetCurrentProcessId();
    return GetCurrentThreadId();
}

HWND WINAPI SetParent(HWND handle, HWND parent) {
    Window* const window = FindLive(handle);
    Window* const target = parent != nullptr ? FindLive(parent) : DesktopWindow();
    if (window == nullptr || target == nullptr || window == DesktopWindow()) return nullptr;
    if (window == target || IsChild(handle, parent) || target->destroying || window->destroying) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const HWND old = window->parent != nullptr ? window->parent->handle : GetDesktopWindow();
    const bool shown = (window->style & WS_VISIBLE) != 0;
    if (shown) ShowWindow(handle, SW_HIDE);
    if (LookUp(handle) == nullptr || LookUp(target->handle) == nullptr) return nullptr;
    Reparent(window, target == DesktopWindow() ? nullptr : target);
    if (shown) ShowWindow(handle, SW_SHOWNA);
    return old;
}

BOOL WINAPI GetWindowRect(HWND handle, LPRECT rect) {
    const Window* const window = FindLive(handle);
    if (window == nullptr || rect == nullptr) return FALSE;
    const SIZE desktop = DesktopSize();
    *rect = window == DesktopWindow() ? RECT{0, 0, desktop.cx, desktop.cy} : ScreenRect(window);
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND handle, LPRECT rect) {
    const Window* const window = FindLive(handle);
    if (window == nullptr || rect == nullptr) return FALSE;
    if (window == DesktopWindow()) return GetWindowRect(handle, rect);
    *rect = {0, 0, window->client.right - window->client.left,
             window->client.bottom - window->client.top};
    return TRUE;
}

BOOL WINAPI ClientToScreen(HWND handle, LPPOINT point) {
    const Window* const window = FindLive(handle);
    if (window == nullptr || point == nullptr) return FALSE;
    const RECT client = ScreenClientRect(window);
    point->x += client.left;
    point->y += client.top;
    return TRUE;
}

BOOL WINAPI ScreenToClient(HWND handle, LPPOINT point) {
    const Window* const window = FindLive(handle);
    if (window == nullptr || point == nullptr) return FALSE;
    const RECT client = ScreenClientRect(window);
    point->x -= client.left;
    point->y -= client.top;
    return TRUE;
}

int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count) {
    const Window* const source = from != nullptr ? FindLive(from) : DesktopWindow();
    const Window* const target = to != nullptr ? FindLive(to) : DesktopWindow();
    if (source == nullptr || target == nullptr || points == nullptr) return 0;
    const RECT origin = ScreenClientRect(source);
    const RECT goal = ScreenClientRect(target);
    const LONG dx = origin.left - goal.left;
    const LONG dy = origin.top - goal.top;
    for (UINT index = 0; index < count; ++index) {
        points[index].x += dx;
        points[index].y += dy;
    }
    return MAKELONG(dx, dy);
}
