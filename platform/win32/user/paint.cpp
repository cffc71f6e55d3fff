#include <algorithm>

#include "platform/win32/gdi/dc_target.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/window.h"
#include "platform/win32/user/window_pos.h"
#include "platform/win32/user/window_table.h"

namespace winbase {

namespace {

RECT WholeRect(const Window* window) {
    return {0, 0, window->rect.right - window->rect.left, window->rect.bottom - window->rect.top};
}

bool WantsPaint(const Window* window) {
    return !window->paint.update.Empty() || window->paint.internal;
}

Window* NextBelow(Window* window) {
    if ((window->style & WS_VISIBLE) == 0 || (window->style & WS_MINIMIZE) != 0) return nullptr;
    if (WantsPaint(window)) return window;
    for (Window* child : window->children) {
        if (Window* const found = NextBelow(child)) return found;
    }
    return nullptr;
}

Region ChildrenOf(const Window* window) {
    Region region;
    for (const Window* child : window->children) {
        if ((child->style & WS_VISIBLE) == 0) continue;
        region.Unite(Moved(child->rect, window->client.left, window->client.top));
    }
    return region;
}

void Add(Window* window, const Region& region, UINT flags) {
    window->paint.update.Unite(region);
    if ((flags & RDW_ERASE) != 0) window->paint.erase = true;
    if ((flags & RDW_FRAME) != 0) window->paint.frame = true;
}

void Remove(Window* window, const Region& region, UINT flags) {
    window->paint.update.Subtract(region);
    if (window->paint.update.Empty()) window->paint.erase = window->paint.frame = false;
    if ((flags & RDW_NOERASE) != 0) window->paint.erase = false;
}

bool ReachesChildren(const Window* window, UINT flags) {
    if ((flags & RDW_ALLCHILDREN) != 0) return true;
    return (flags & RDW_NOCHILDREN) == 0 && (window->style & WS_CLIPCHILDREN) == 0;
}

Region InChild(const Window* window, const Window* child, const Region& region) {
    Region part = region;
    part.Intersect(window->client);
    part.Offset(-(window->client.left + child->rect.left), -(window->client.top + child->rect.top));
    part.Intersect(WholeRect(child));
    return part;
}

void UpdateTree(HWND handle, UINT flags) {
    Window* window = LookUp(handle);
    if (window == nullptr || !IsShown(window)) return;
    if (WantsPaint(window)) {
        SendMessageA(handle, WM_PAINT, 0, 0);
        window = LookUp(handle);
        if (window == nullptr) return;
    }
    if ((flags & RDW_ALLCHILDREN) == 0) return;
    const std::vector<HWND> children = HandlesOf(window->children);
    for (const HWND child : children) UpdateTree(child, flags);
}

void SetInternal(Window* window, bool wanted) {
    window->paint.internal = wanted;
    for (Window* child : window->children) SetInternal(child, wanted);
}

}  // namespace

Window* NextPaintWindow(const Window* within) {
    if (within != nullptr)
        return IsShown(within) ? NextBelow(const_cast<Window*>(within)) : nullptr;
    for (Window* window : DesktopWindow()->children) {
        if (Window* const found = NextBelow(window)) return found;
    }
    return nullptr;
}

void InvalidateWindow(Window* window, const Region& region, UINT flags) {
    if (!IsShown(window) || region.Empty()) return;
    Region part = region;
    part.Intersect(WholeRect(window));
    if (part.Empty()) return;
    Region own = part;
    const bool adds = (flags & RDW_INVALIDATE) != 0;
    if (adds && (window->style & WS_CLIPCHILDREN) != 0) {
        // A window whose client area lies wholly under its children still gets its message.
        own.Subtract(ChildrenOf(window));
        if (own.Empty()) window->paint.internal = true;
    }
    adds ? Add(window, own, flags) : Remove(window, own, flags);
    if (!ReachesChildren(window, flags)) return;
    for (Window* child : window->children) {
        if ((child->style & WS_VISIBLE) == 0) continue;
        const Region below = InChild(window, child, part);
        if (below.Empty()) continue;
        UINT inner = flags;
        // Children are always erased and framed: nothing of theirs is left there.
        if (adds) inner |= RDW_ERASE | RDW_FRAME;
        InvalidateWindow(child, below, inner);
    }
}

namespace {

// A ground that was drawn over children who had drawn theirs before: those who will paint anyway
// begin anew.
void EraseBelowAgain(Window* window, const Region& erased) {
    if ((window->style & WS_CLIPCHILDREN) != 0) return;
    for (Window* child : window->children) {
        if ((child->style & WS_VISIBLE) == 0) continue;
        const Region part = InChild(window, child, erased);
        if (part.Empty()) continue;
        if (!child->paint.update.Empty()) child->paint.erase = true;
        EraseBelowAgain(child, part);
    }
}

}  // namespace

void EraseNow(Window* window) {
    const HWND handle = window->handle;
    if (window->paint.update.Empty() || !IsShown(window)) return;
    const WindowLock lock(window);
    if (window->paint.frame) {
        window->paint.frame = false;
        SendMessageA(handle, WM_NCPAINT, 1, 0);
        if (LookUp(handle) == nullptr) return;
    }
    Region client = window->paint.update;
    client.Intersect(window->client);
    if (!window->paint.erase || client.Empty()) return;
    window->paint.erase = false;
    EraseBelowAgain(window, client);
    const HDC dc = GetDC(handle);
    client.Offset(-window->client.left, -window->client.top);
    SetPaintClip(dc, &client);
    const bool erased = SendMessageA(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0) != 0;
    if (LookUp(handle) != nullptr && !erased) window->paint.erase = true;
    ReleaseDC(handle, dc);
}

namespace {

void EraseTree(HWND handle) {
    Window* window = LookUp(handle);
    if (window == nullptr) return;
    EraseNow(window);
    window = LookUp(handle);
    if (window == nullptr) return;
    for (const HWND child : HandlesOf(window->children)) EraseTree(child);
}

}  // namespace

LRESULT DefaultSetRedraw(Window* window, bool on) {
    // As documented the window counts as hidden while its redraw is off.
    window->style = on ? window->style | WS_VISIBLE : window->style & ~DWORD{WS_VISIBLE};
    LayoutChanged();
    return 0;
}

void Uncover(Window* parent, const Region& screen_region, Uncovered when) {
    const RECT origin = ScreenRect(parent);
    Region region = screen_region;
    region.Offset(-origin.left, -origin.top);
    region.Intersect(parent->client);
    InvalidateWindow(parent, region, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    if (when == Uncovered::kNow) EraseTree(parent->handle);
}

}  // namespace winbase

using namespace winbase;

BOOL WINAPI RedrawWindow(HWND handle, const RECT* rect, HRGN hregion, UINT flags) {
    Window* const window = handle != nullptr ? FindLive(handle) : DesktopWindow();
    if (window == nullptr) return FALSE;
    const WindowLock lock(window);
    Region region;
    if (hregion != nullptr) {
        if (RegionOf(hregion) == nullptr) return Fail(ERROR_INVALID_HANDLE);
        region = *RegionOf(hregion);
        region.Offset(window->client.left, window->client.top);
    } else if (rect != nullptr) {
        region = Region(Moved(*rect, window->client.left, window->client.top));
    } else {
        region = Region((flags & RDW_FRAME) != 0 ? WholeRect(window) : window->client);
    }
    if ((flags & RDW_FRAME) == 0) region.Intersect(window->client);
    if ((flags & (RDW_INVALIDATE | RDW_VALIDATE)) != 0) InvalidateWindow(window, region, flags);
    if ((flags & RDW_INTERNALPAINT) != 0) SetInternal(window, true);
    if ((flags & RDW_NOINTERNALPAINT) != 0) SetInternal(window, false);
    if ((flags & RDW_UPDATENOW) != 0) {
        UpdateTree(window->handle, flags);
    } else if ((flags & RDW_ERASENOW) != 0) {
        (flags & RDW_ALLCHILDREN) != 0 ? EraseTree(window->handle) : EraseNow(window);
    }
    return TRUE;
}

BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase) {
    return RedrawWindow(window, rect, nullptr, RDW_INVALIDATE | (erase ? UINT{RDW_ERASE} : 0U));
}

BOOL WINAPI InvalidateRgn(HWND window, HRGN region, BOOL erase) {
    return RedrawWindow(window, nullptr, region, RDW_INVALIDATE | (erase ? UINT{RDW_ERASE} : 0U));
}

BOOL WINAPI ValidateRect(HWND window, const RECT* rect) {
    if (rect == nullptr) {
        Window* const found = FindLive(window);
        if (found == nullptr) return FALSE;
        found->paint.update.Clear();
        found->paint.erase = found->paint.frame = found->paint.internal = false;
        return TRUE;
    }
    return RedrawWindow(window, rect, nullptr, RDW_VALIDATE | RDW_NOCHILDREN);
}

BOOL WINAPI ValidateRgn(HWND window, HRGN region) {
    return RedrawWindow(window, nullptr, region, RDW_VALIDATE | RDW_NOCHILDREN);
}

BOOL WINAPI UpdateWindow(HWND window) {
    return RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

BOOL WINAPI GetUpdateRect(HWND handle, LPRECT rect, BOOL erase) {
    Window* const window = FindLive(handle);
    if (window == nullptr) return FALSE;
    if (erase) EraseNow(window);
    if (LookUp(handle) == nullptr) return FALSE;
    Region update = window->paint.update;
    update.Intersect(window->client);
    if (rect != nullptr) {
        *rect = update.Empty() ? RECT{}
                               : Moved(update.Bounds(), -window->client.left, -window->client.top);
    }
    return !update.Empty();
}

HDC WINAPI BeginPaint(HWND handle, LPPAINTSTRUCT paint) {
    Window* const window = FindLive(handle);
    if (window == nullptr || paint == nullptr || window == DesktopWindow()) return nullptr;
    const WindowLock lock(window);
    *paint = {};
    if (window->paint.frame) {
        window->paint.frame = false;
        SendMessageA(handle, WM_NCPAINT, 1, 0);
        if (LookUp(handle) == nullptr) return nullptr;
    }
    Region update = window->paint.update;
    update.Intersect(window->client);
    const bool erase = window->paint.erase && !update.Empty();
    if (erase) EraseBelowAgain(window, update);
    update.Offset(-window->client.left, -window->client.top);
    window->paint = {};
    const HDC dc = GetDC(handle);
    SetPaintClip(dc, &update);
    paint->hdc = dc;
    paint->rcPaint = update.Bounds();
    if (erase) {
        const LRESULT erased = SendMessageA(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
        paint->fErase = erased == 0;
        if (LookUp(handle) == nullptr) return nullptr;
    }
    return dc;
}

BOOL WINAPI EndPaint(HWND handle, const PAINTSTRUCT* paint) {
    if (paint == nullptr) return FALSE;
    ReleaseDC(handle, paint->hdc);
    return TRUE;
}

BOOL WINAPI ScrollWindow(HWND handle, int dx, int dy, const RECT* rect, const RECT* clip) {
    Window* const window = FindLive(handle);
    if (window == nullptr || window == DesktopWindow()) return FALSE;
    const WindowLock lock(window);
    const std::vector<HWND> children = HandlesOf(window->children);
    if (rect == nullptr) {
        for (const HWND child : children) {
            const Window* const found = LookUp(child);
            if (found == nullptr) continue;
            SetWindowPos(child, nullptr, found->rect.left + dx, found->rect.top + dy, 0, 0,
                         SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
        }
    }
    if (LookUp(handle) == nullptr || !IsShown(window)) return TRUE;
    const RECT client = ScreenClientRect(window);
    const RECT origin = ScreenRect(TopLevel(window));
    const int left = client.left - origin.left;
    const int top = client.top - origin.top;
    RECT area{0, 0, client.right - client.left, client.bottom - client.top};
    if (rect != nullptr) area = Intersection(area, *rect);
    if (clip != nullptr) area = Intersection(area, *clip);
    if (IsEmpty(area)) return TRUE;
    Region reach = VisibleOnScreen(window);
    reach.Offset(-origin.left, -origin.top);
    reach.Intersect(Moved(area, left, top));
    Region lost = ScrollSurface(*TopLevel(window)->surface, Moved(area, left, top), dx, dy, reach);
    lost.Offset(-left + window->client.left, -top + window->client.top);
    // What was invalid has moved along.
    Region pending = window->paint.update;
    pending.Intersect(Moved(area, window->client.left, window->client.top));
    pending.Offset(dx, dy);
    lost.Unite(pending);
    InvalidateWindow(window, lost, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    return TRUE;
}
