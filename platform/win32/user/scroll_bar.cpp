#include "platform/win32/user/scroll_bar.h"

#include <algorithm>
#include <cassert>
#include <cstdint>

#include "platform/win32/kernel/last_error.h"

namespace winbase {

namespace {

bool IsOwnBar(int bar) {
    assert((bar == SB_HORZ || bar == SB_VERT) && "only a window's own scroll bars are supported");
    return bar == SB_HORZ || bar == SB_VERT;
}

DWORD StyleOf(int bar) { return bar == SB_HORZ ? WS_HSCROLL : WS_VSCROLL; }

// The window with bars of its own, or null with the last error set.
Window* FindScrolled(HWND handle, int bar) {
    AssertUiThread();
    Window* const window = FindLive(handle);
    if (window == nullptr || !IsOwnBar(bar)) return nullptr;
    if (!window->has_scroll_data && (window->style & (WS_HSCROLL | WS_VSCROLL)) == 0) {
        SetLastError(ERROR_NO_SCROLLBARS);
        return nullptr;
    }
    return window;
}

std::uint64_t Extent(const ScrollBar& scroll) {
    return static_cast<std::uint64_t>(std::int64_t{scroll.maximum} - scroll.minimum) + 1;
}

void Normalize(ScrollBar& scroll) {
    if (scroll.maximum < scroll.minimum) scroll.minimum = scroll.maximum = 0;
    scroll.page = static_cast<UINT>(std::min<std::uint64_t>(scroll.page, Extent(scroll)));
    scroll.position = std::clamp(scroll.position, scroll.minimum, LastPosition(scroll));
}

// A bar hides while the page holds the whole range, unless it is wanted disabled instead.
void ShowAsNeeded(Window* window, int bar, bool keep_disabled) {
    const HWND handle = window->handle;
    ScrollBar& scroll = window->scroll[bar];
    const bool needed = LastPosition(scroll) > scroll.minimum;
    if (keep_disabled || needed) scroll.disabled_arrows = needed ? 0 : ESB_DISABLE_BOTH;
    ShowScrollBar(handle, bar, needed || keep_disabled);
}

// What every change has in common. The window may be gone afterwards.
void Changed(Window* window, int bar, UINT mask, BOOL redraw) {
    const HWND handle = window->handle;
    window->has_scroll_data = true;
    Normalize(window->scroll[bar]);
    if ((mask & (SIF_RANGE | SIF_PAGE)) != 0) {
        ShowAsNeeded(window, bar, (mask & SIF_DISABLENOSCROLL) != 0);
    }
    Window* const left = LookUp(handle);
    if (left != nullptr && redraw) RedrawScrollBar(left, bar);
}

bool IsGood(const SCROLLINFO* info) {
    // Programs of old leave the last field out.
    return info != nullptr &&
           (info->cbSize == sizeof(SCROLLINFO) || info->cbSize == sizeof(SCROLLINFO) - sizeof(int));
}

void ShowOneBar(Window* window, int bar, bool show) {
    const bool shown = (window->style & StyleOf(bar)) != 0;
    if (show) window->has_scroll_data = true;
    if (show == shown) return;
    window->has_scroll_data = true;
    window->style ^= StyleOf(bar);
    FrameChanged(window);
}

}  // namespace

int LastPosition(const ScrollBar& scroll) {
    const std::int64_t covered = scroll.page > 0 ? std::int64_t{scroll.page} - 1 : 0;
    return static_cast<int>(std::max<std::int64_t>(scroll.maximum - covered, scroll.minimum));
}

}  // namespace winbase

using namespace winbase;

int SetScrollInfo(HWND handle, int bar, LPCSCROLLINFO info, BOOL redraw) {
    AssertUiThread();
    Window* const window = FindLive(handle);
    if (window == nullptr || !IsOwnBar(bar)) return 0;
    if (!IsGood(info)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    ScrollBar& scroll = window->scroll[bar];
    if ((info->fMask & SIF_RANGE) != 0) {
        scroll.minimum = info->nMin;
        scroll.maximum = info->nMax;
    }
    if ((info->fMask & SIF_PAGE) != 0) scroll.page = info->nPage;
    if ((info->fMask & SIF_POS) != 0) scroll.position = info->nPos;
    Normalize(scroll);
    const int position = scroll.position;
    Changed(window, bar, info->fMask, redraw);
    return position;
}

BOOL GetScrollInfo(HWND handle, int bar, LPSCROLLINFO info) {
    const Window* const window = FindScrolled(handle, bar);
    if (window == nullptr) return FALSE;
    if (!IsGood(info)) return Fail(ERROR_INVALID_PARAMETER);
    const ScrollBar& scroll = window->scroll[bar];
    if ((info->fMask & SIF_RANGE) != 0) {
        info->nMin = scroll.minimum;
        info->nMax = scroll.maximum;
    }
    if ((info->fMask & SIF_PAGE) != 0) info->nPage = scroll.page;
    if ((info->fMask & SIF_POS) != 0) info->nPos = scroll.position;
    if ((info->fMask & SIF_TRACKPOS) != 0 && info->cbSize == sizeof(SCROLLINFO)) {
        info->nTrackPos = scroll.tracking ? scroll.track_position : scroll.position;
    }
    return TRUE;
}

int SetScrollPos(HWND handle, int bar, int position, BOOL redraw) {
    Window* const window = FindScrolled(handle, bar);
    if (window == nullptr) return 0;
    const int former = window->scroll[bar].position;
    window->scroll[bar].position = position;
    Changed(window, bar, SIF_POS, redraw);
    return former;
}

int GetScrollPos(HWND handle, int bar) {
    const Window* const window = FindScrolled(handle, bar);
    return window != nullptr ? window->scroll[bar].position : 0;
}

BOOL SetScrollRange(HWND handle, int bar, int minimum, int maximum, BOOL redraw) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE;
    info.nMin = minimum;
    info.nMax = maximum;
    if (FindLive(handle) == nullptr) return FALSE;
    SetScrollInfo(handle, bar, &info, redraw);
    return TRUE;
}

BOOL GetScrollRange(HWND handle, int bar, LPINT minimum, LPINT maximum) {
    if (minimum == nullptr || maximum == nullptr) return Fail(ERROR_INVALID_PARAMETER);
    const Window* const window = FindScrolled(handle, bar);
    *minimum = window != nullptr ? window->scroll[bar].minimum : 0;
    *maximum = window != nullptr ? window->scroll[bar].maximum : 0;
    return window != nullptr;
}

BOOL ShowScrollBar(HWND handle, int bar, BOOL show) {
    AssertUiThread();
    for (const int each : {SB_HORZ, SB_VERT}) {
        if (bar != SB_BOTH && bar != each) continue;
        Window* const window = FindLive(handle);
        if (window == nullptr) return FALSE;
        ShowOneBar(window, each, show != FALSE);
    }
    return TRUE;
}

BOOL EnableScrollBar(HWND handle, UINT bar, UINT arrows) {
    AssertUiThread();
    Window* const window = FindLive(handle);
    if (window == nullptr) return FALSE;
    bool changed = false;
    for (const int each : {SB_HORZ, SB_VERT}) {
        if (bar != SB_BOTH && static_cast<int>(bar) != each) continue;
        changed = changed || window->scroll[each].disabled_arrows != arrows;
        window->scroll[each].disabled_arrows = arrows;
        RedrawScrollBar(window, each);
    }
    return changed;
}
