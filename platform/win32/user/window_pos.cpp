#include "platform/win32/user/window_pos.h"

#include <algorithm>

#include "platform/win32/gdi/dc_target.h"
#include "platform/win32/gdi/surface.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/ui_state.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

SIZE SizeOf(const RECT& rect) { return {rect.right - rect.left, rect.bottom - rect.top}; }

/// One change of position on its way through the messages.
struct Change {
    Window* window;
    HWND handle;
    WINDOWPOS pos;
    RECT old_rect;
    RECT old_client;
    Region old_visible;  ///< on the screen, before the change
    bool was_shown;

    bool Has(UINT flag) const { return (pos.flags & flag) != 0; }
    bool Alive() const { return LookUp(handle) != nullptr; }
};

bool SameOrder(const Change& change) {
    if (change.Has(SWP_NOZORDER)) return true;
    const Window* const window = change.window;
    const auto& siblings =
        window->parent != nullptr ? window->parent->children : DesktopWindow()->children;
    const HWND after = change.pos.hwndInsertAfter;
    const auto place = std::find(siblings.begin(), siblings.end(), window);
    const bool topmost = (window->ex_style & WS_EX_TOPMOST) != 0;
    if (after == HWND_TOPMOST) return topmost && place == siblings.begin();
    if (after == HWND_NOTOPMOST) return !topmost;
    if (after == HWND_TOP) {
        if (place == siblings.begin()) return true;
        // Only windows of a higher kind stand above.
        return !topmost && std::all_of(siblings.begin(), place, [window](const Window* other) {
            return window->parent == nullptr && (other->ex_style & WS_EX_TOPMOST) != 0;
        });
    }
    if (after == HWND_BOTTOM) return place + 1 == siblings.end();
    return place != siblings.begin() && (*(place - 1))->handle == after;
}

void Restack(const Change& change) {
    Window* const window = change.window;
    const HWND after = change.pos.hwndInsertAfter;
    if (after == HWND_TOPMOST) window->ex_style |= WS_EX_TOPMOST;
    if (after == HWND_NOTOPMOST) window->ex_style &= ~DWORD{WS_EX_TOPMOST};
    if (after == HWND_TOP || after == HWND_TOPMOST || after == HWND_NOTOPMOST) {
        PutOnTop(window);
        return;
    }
    auto& siblings =
        window->parent != nullptr ? window->parent->children : DesktopWindow()->children;
    const Window* const before = LookUp(after);
    std::erase(siblings, window);
    auto place = siblings.end();
    if (after != HWND_BOTTOM) {
        place = std::find(siblings.begin(), siblings.end(), before);
        if (place != siblings.end()) ++place;
    }
    siblings.insert(place, window);
    if (after == HWND_BOTTOM) window->ex_style &= ~DWORD{WS_EX_TOPMOST};
    LayoutChanged();
}

void FixFlags(Change& change) {
    const SIZE size = SizeOf(change.old_rect);
    if (change.pos.cx == size.cx && change.pos.cy == size.cy) change.pos.flags |= SWP_NOSIZE;
    if (change.pos.x == change.old_rect.left && change.pos.y == change.old_rect.top) {
        change.pos.flags |= SWP_NOMOVE;
    }
    if (SameOrder(change)) change.pos.flags |= SWP_NOZORDER;
    const bool visible = (change.window->style & WS_VISIBLE) != 0;
    if (visible) change.pos.flags &= ~UINT{SWP_SHOWWINDOW};
    if (!visible) change.pos.flags &= ~UINT{SWP_HIDEWINDOW};
    if (!change.was_shown && !change.Has(SWP_SHOWWINDOW)) change.pos.flags |= SWP_NOREDRAW;
}

bool NothingLeft(const Change& change) {
    constexpr UINT kNothing = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER;
    constexpr UINT kSomething = SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED;
    return (change.pos.flags & kNothing) == kNothing && (change.pos.flags & kSomething) == 0;
}

void TakeRect(Window* window, const RECT& rect) {
    window->rect = rect;
    if (window->surface != nullptr) {
        const SIZE size = SizeOf(rect);
        window->surface->Resize(std::max<int>(size.cx, 1), std::max<int>(size.cy, 1));
    }
    LayoutChanged();
}

void Place(Change& change) {
    const SIZE size =
        change.Has(SWP_NOSIZE) ? SizeOf(change.old_rect) : SIZE{change.pos.cx, change.pos.cy};
    const POINT place = change.Has(SWP_NOMOVE) ? POINT{change.old_rect.left, change.old_rect.top}
                                               : POINT{change.pos.x, change.pos.y};
    TakeRect(change.window, {place.x, place.y, place.x + size.cx, place.y + size.cy});
}

// Moves what the window showed along with it, so that only what it uncovered is painted again.
void CopyMoved(const Change& change) {
    Window* const window = change.window;
    if (window->parent == nullptr) return;
    Window* const top = TopLevel(window);
    const RECT now = ScreenRect(window);
    const RECT parent_client = ScreenClientRect(window->parent);
    const RECT before = Moved(change.old_rect, parent_client.left, parent_client.top);
    const int dx = now.left - before.left;
    const int dy = now.top - before.top;
    Region reach = VisibleOnScreen(window);
    Region moved = change.old_visible;
    moved.Offset(dx, dy);
    moved.Intersect(reach);
    const RECT origin = ScreenRect(top);
    Region target = moved;
    target.Offset(-origin.left, -origin.top);
    MovePixels(*top->surface, target, dx, dy);
    // What was hidden before has no pixels to bring along.
    reach.Subtract(moved);
    if (!reach.Empty()) {
        reach.Offset(-now.left, -now.top);
        InvalidateWindow(window, reach, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
    }
}

void RepaintWhole(Window* window) {
    const SIZE size = SizeOf(window->rect);
    InvalidateWindow(window, Region(RECT{0, 0, size.cx, size.cy}),
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void UncoverParent(const Change& change, Uncovered when) {
    const Window* const window = change.window;
    if (window->parent == nullptr) return;
    Region uncovered = change.old_visible;
    if (IsShown(window)) uncovered.Subtract(VisibleOnScreen(window));
    if (!uncovered.Empty()) Uncover(window->parent, uncovered, when);
}

void PaintChange(const Change& change) {
    Window* const window = change.window;
    if (change.Has(SWP_NOREDRAW)) return;
    const bool shown = IsShown(window);
    const bool sized = !change.Has(SWP_NOSIZE);
    const HWND handle = change.handle;
    if (sized || change.Has(SWP_HIDEWINDOW)) {
        UncoverParent(change, Uncovered::kNow);
        if (LookUp(handle) == nullptr || !shown) return;
    }
    if (sized || change.Has(SWP_SHOWWINDOW)) {
        if (!shown) return;
        RepaintWhole(window);
        const bool at_once = change.Has(SWP_SHOWWINDOW) || window->parent == nullptr;
        if (at_once) EraseNow(window);
        return;
    }
    if (shown && change.Has(SWP_FRAMECHANGED)) {
        RepaintWhole(window);
    } else if (shown && !change.Has(SWP_NOMOVE)) {
        CopyMoved(change);
    } else if (shown && !change.Has(SWP_NOZORDER) && window->parent != nullptr) {
        RepaintWhole(window);
    }
    // Later, because what was moved is copied from the place that it left.
    UncoverParent(change, Uncovered::kLater);
}

// Tells the default procedure whether the client area is as it was.
void MarkClient(Change& change) {
    const Window* const window = change.window;
    const SIZE size = SizeOf(window->client);
    const SIZE old_size = SizeOf(change.old_client);
    if (size.cx == old_size.cx && size.cy == old_size.cy) change.pos.flags |= kNoClientSize;
    const bool same_left =
        window->rect.left + window->client.left == change.old_rect.left + change.old_client.left;
    const bool same_top =
        window->rect.top + window->client.top == change.old_rect.top + change.old_client.top;
    if (same_left && same_top) change.pos.flags |= kNoClientMove;
}

void Apply(Change& change) {
    Window* const window = change.window;
    if (!change.Has(SWP_NOZORDER)) Restack(change);
    Place(change);
    if (change.Has(SWP_HIDEWINDOW)) window->style &= ~DWORD{WS_VISIBLE};
    if (change.Has(SWP_SHOWWINDOW)) window->style |= WS_VISIBLE;
    LayoutChanged();
    if (!change.Has(SWP_NOSIZE) || change.Has(SWP_FRAMECHANGED)) {
        SendCalcSize(window);
    }
}

bool IsValidAnchor(const Window* window, HWND after) {
    if (after == HWND_TOP || after == HWND_BOTTOM || after == HWND_TOPMOST ||
        after == HWND_NOTOPMOST)
        return true;
    const Window* const anchor = LookUp(after);
    return anchor != nullptr && anchor != window && anchor->parent == window->parent &&
           anchor != DesktopWindow();
}

}  // namespace

void SendCalcSize(Window* window) {
    const HWND handle = window->handle;
    // While a window is made the message carries one rectangle only.
    NCCALCSIZE_PARAMS sizes{};
    WINDOWPOS pos{handle, nullptr, 0, 0, 0, 0, 0};
    sizes.rgrc[0] = sizes.rgrc[1] = window->rect;
    sizes.rgrc[2] = Moved(window->client, window->rect.left, window->rect.top);
    sizes.lppos = &pos;
    CallProcedure(window, WM_NCCALCSIZE, window->created ? TRUE : FALSE,
                  reinterpret_cast<LPARAM>(&sizes));
    if (LookUp(handle) == nullptr) return;
    RECT client = Moved(sizes.rgrc[0], -window->rect.left, -window->rect.top);
    const SIZE size = SizeOf(window->rect);
    client.left = std::clamp<LONG>(client.left, 0, size.cx);
    client.top = std::clamp<LONG>(client.top, 0, size.cy);
    client.right = std::clamp<LONG>(client.right, client.left, size.cx);
    client.bottom = std::clamp<LONG>(client.bottom, client.top, size.cy);
    window->client = client;
    LayoutChanged();
}

void Reparent(Window* window, Window* parent) {
    auto& siblings =
        window->parent != nullptr ? window->parent->children : DesktopWindow()->children;
    std::erase(siblings, window);
    window->parent = parent;
    if (parent != nullptr) {
        window->owner = nullptr;
        window->surface.reset();
        parent->children.insert(parent->children.begin(), window);
    } else {
        const SIZE size = SizeOf(window->rect);
        window->surface =
            std::make_unique<Surface>(std::max<int>(size.cx, 1), std::max<int>(size.cy, 1),
                                      DefaultScale(), Surface::Damage::kCollect);
        PutOnTop(window);
    }
    LayoutChanged();
}

void FrameChanged(Window* window) {
    SetWindowPos(window->handle, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

}  // namespace winbase

using namespace winbase;

BOOL WINAPI SetWindowPos(HWND handle, HWND insert_after, int x, int y, int width, int height,
                         UINT flags) {
    Window* const window = FindLive(handle);
    if (window == nullptr || window == DesktopWindow()) return FALSE;
    if ((flags & SWP_NOZORDER) == 0 && !IsValidAnchor(window, insert_after))
        return Fail(ERROR_INVALID_WINDOW_HANDLE);
    const WindowLock lock(window);
    Change change{
        window,         handle,         {handle, insert_after, x, y, width, height, flags},
        window->rect,   window->client, Region(),
        IsShown(window)};
    if ((flags & SWP_NOMOVE) != 0) {
        change.pos.x = window->rect.left;
        change.pos.y = window->rect.top;
    }
    if ((flags & SWP_NOSIZE) != 0) {
        change.pos.cx = window->rect.right - window->rect.left;
        change.pos.cy = window->rect.bottom - window->rect.top;
    }
    if ((flags & SWP_NOSENDCHANGING) == 0) {
        SendMessageA(handle, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&change.pos));
        if (!change.Alive()) return TRUE;
    }
    change.pos.cx = std::clamp(change.pos.cx, 0, kMostExtent);
    change.pos.cy = std::clamp(change.pos.cy, 0, kMostExtent);
    change.pos.x = std::clamp(change.pos.x, -0x7FFF, 0x7FFF);
    change.pos.y = std::clamp(change.pos.y, -0x7FFF, 0x7FFF);
    change.old_rect = window->rect;
    change.old_client = window->client;
    change.was_shown = IsShown(window);
    if (change.was_shown) change.old_visible = VisibleOnScreen(window);
    if (!change.Has(SWP_NOZORDER) && !IsValidAnchor(window, change.pos.hwndInsertAfter))
        change.pos.flags |= SWP_NOZORDER;
    FixFlags(change);
    const bool activates = !change.Has(SWP_NOACTIVATE) && !change.Has(SWP_HIDEWINDOW) &&
                           window->parent == nullptr &&
                           ((window->style & WS_VISIBLE) != 0 || change.Has(SWP_SHOWWINDOW));
    if (NothingLeft(change) && !activates) return TRUE;
    Apply(change);
    if (!change.Alive()) return TRUE;
    if (activates) {
        Activate(window, ActivationKind::kCall);
        if (!change.Alive()) return TRUE;
    }
    if (NothingLeft(change)) return TRUE;
    PaintChange(change);
    if (!change.Alive()) return TRUE;
    RefreshPointer();
    MarkClient(change);
    SendMessageA(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&change.pos));
    return TRUE;
}

BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint) {
    return SetWindowPos(window, nullptr, x, y, width, height,
                        SWP_NOZORDER | SWP_NOACTIVATE | (repaint ? 0U : UINT{SWP_NOREDRAW}));
}

BOOL WINAPI BringWindowToTop(HWND window) {
    return SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
}

namespace {

struct Deferred {
    std::vector<WINDOWPOS> positions;
};

}  // namespace

HDWP WINAPI BeginDeferWindowPos(int count) {
    if (count < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return reinterpret_cast<HDWP>(new Deferred);
}

HDWP WINAPI DeferWindowPos(HDWP defer, HWND window, HWND insert_after, int x, int y, int width,
                           int height, UINT flags) {
    if (defer == nullptr || FindLive(window) == nullptr) return nullptr;
    reinterpret_cast<Deferred*>(defer)->positions.push_back(
        {window, insert_after, x, y, width, height, flags});
    return defer;
}

BOOL WINAPI EndDeferWindowPos(HDWP defer) {
    if (defer == nullptr) return Fail(ERROR_INVALID_HANDLE);
    const std::unique_ptr<Deferred> deferred(reinterpret_cast<Deferred*>(defer));
    for (const WINDOWPOS& pos : deferred->positions) {
        SetWindowPos(pos.hwnd, pos.hwndInsertAfter, pos.x, pos.y, pos.cx, pos.cy, pos.flags);
    }
    return TRUE;
}
