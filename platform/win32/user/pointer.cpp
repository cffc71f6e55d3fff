#include "platform/win32/user/pointer.h"

#include <algorithm>
#include <atomic>
#include <vector>

#include "platform/win32/user/window.h"

namespace winbase {

namespace {

// One number, so that other threads never see half a move.
std::atomic<std::uint64_t> g_place = 0;

bool IsOver(const RECT& rect, POINT place) { return PtInRect(&rect, place) != FALSE; }

// The windows under a place in the order in which they are asked: children before parents, those in
// front before those behind.
void AddUnder(const Window* window, POINT place, std::vector<HWND>& under) {
    if (IsOver(ScreenClientRect(window), place)) {
        for (const Window* child : window->children) {
            if ((child->style & (WS_VISIBLE | WS_DISABLED)) != WS_VISIBLE) continue;
            if (IsOver(ScreenRect(child), place)) AddUnder(child, place, under);
        }
    }
    under.push_back(window->handle);
}

// False when the window lets the pointer through.
bool Asks(HWND handle, POINT place, Hit& hit) {
    Window* const window = LookUp(handle);
    if (window == nullptr) return false;
    const LRESULT code = CallProcedure(window, WM_NCHITTEST, 0, ScreenPointOf(place));
    if (code == HTTRANSPARENT || LookUp(handle) == nullptr) return false;
    hit = {handle, static_cast<int>(code)};
    return true;
}

}  // namespace

POINT PointerPlace() {
    const std::uint64_t packed = g_place;
    return {static_cast<LONG>(packed & 0xFFFFFFFF), static_cast<LONG>(packed >> 32)};
}

void SetPointerPlace(POINT place) {
    const int x = std::clamp(place.x, 0, std::max(GetSystemMetrics(SM_CXSCREEN) - 1, 0));
    const int y = std::clamp(place.y, 0, std::max(GetSystemMetrics(SM_CYSCREEN) - 1, 0));
    g_place = static_cast<std::uint64_t>(static_cast<DWORD>(y)) << 32 | static_cast<DWORD>(x);
}

Hit HitTest(POINT place) {
    const std::vector<Window*> windows = DesktopWindow()->children;
    for (const Window* window : windows) {
        if ((window->style & WS_VISIBLE) == 0 || !IsOver(ScreenRect(window), place)) continue;
        if ((window->style & WS_DISABLED) != 0) return {window->handle, HTERROR};
        std::vector<HWND> under;
        AddUnder(window, place, under);
        for (const HWND handle : under) {
            Hit hit;
            if (Asks(handle, place, hit)) return hit;
        }
        // Asking may have destroyed the windows behind.
        if (windows != DesktopWindow()->children) break;
    }
    return {};
}

LPARAM ClientPoint(HWND window, POINT place) {
    ScreenToClient(window, &place);
    return MAKELPARAM(place.x, place.y);
}

}  // namespace winbase

BOOL GetCursorPos(LPPOINT point) {
    if (point == nullptr) return FALSE;
    *point = winbase::PointerPlace();
    return TRUE;
}
