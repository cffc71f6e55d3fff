#include <algorithm>
#include <cstdint>

#include "platform/win32/user/scroll_bar.h"

namespace winbase {

namespace {

constexpr int kShortestThumb = 16;
constexpr int kThumbWithoutPage = 24;
constexpr int kThumbMargin = 2;
constexpr COLORREF kThumb = RGB(0xB4, 0xC0, 0xCB);
constexpr COLORREF kThumbHeld = RGB(0x7F, 0x8A, 0x94);

int ThumbLength(const ScrollBar& scroll, int length) {
    if (scroll.page == 0) return std::min(kThumbWithoutPage, length);
    const std::int64_t extent = std::int64_t{scroll.maximum} - scroll.minimum + 1;
    const auto shown = static_cast<int>(std::int64_t{length} * scroll.page / extent);
    return std::min(std::max(shown, kShortestThumb), length);
}

int OffsetOf(const ScrollBar& scroll, int position, int room) {
    const std::int64_t steps = std::int64_t{LastPosition(scroll)} - scroll.minimum;
    if (steps <= 0) return 0;
    const std::int64_t step = std::int64_t{position} - scroll.minimum;
    return static_cast<int>((step * room + steps / 2) / steps);
}

void FillRounded(HDC dc, const RECT& rect, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    const HPEN pen = CreatePen(PS_SOLID, 1, color);
    const HGDIOBJ old_brush = SelectObject(dc, brush);
    const HGDIOBJ old_pen = SelectObject(dc, pen);
    const int round = std::min(rect.right - rect.left, rect.bottom - rect.top);
    RoundRect(dc, rect.left, rect.top, rect.right, rect.bottom, round, round);
    SelectObject(dc, old_pen);
    SelectObject(dc, old_brush);
    DeleteObject(pen);
    DeleteObject(brush);
}

}  // namespace

RECT ScrollBarRect(const Window* window, int bar) {
    const RECT& client = window->client;
    const int right = window->rect.right - window->rect.left;
    const int bottom = window->rect.bottom - window->rect.top;
    RECT rect{};
    if (bar == SB_VERT && (window->style & WS_VSCROLL) != 0) {
        rect = {client.right, client.top, client.right + GetSystemMetrics(SM_CXVSCROLL),
                client.bottom};
    } else if (bar == SB_HORZ && (window->style & WS_HSCROLL) != 0) {
        rect = {client.left, client.bottom, client.right,
                client.bottom + GetSystemMetrics(SM_CYHSCROLL)};
    }
    return rect.right <= right && rect.bottom <= bottom ? rect : RECT{};
}

ScrollLayout LayOutScrollBar(const Window* window, int bar) {
    const ScrollBar& scroll = window->scroll[bar];
    ScrollLayout layout;
    layout.bar = ScrollBarRect(window, bar);
    const bool upright = bar == SB_VERT;
    layout.start = upright ? layout.bar.top : layout.bar.left;
    layout.length = (upright ? layout.bar.bottom : layout.bar.right) - layout.start;
    const bool disabled = scroll.disabled_arrows == ESB_DISABLE_BOTH;
    if (layout.length < kShortestThumb || disabled || LastPosition(scroll) <= scroll.minimum) {
        return layout;
    }
    layout.thumb_length = ThumbLength(scroll, layout.length);
    const int position = scroll.tracking ? scroll.track_position : scroll.position;
    layout.thumb_offset = OffsetOf(scroll, position, layout.length - layout.thumb_length);
    layout.thumb = layout.bar;
    const int from = layout.start + layout.thumb_offset;
    (upright ? layout.thumb.top : layout.thumb.left) = from;
    (upright ? layout.thumb.bottom : layout.thumb.right) = from + layout.thumb_length;
    return layout;
}

int PositionAt(const ScrollBar& scroll, const ScrollLayout& layout, int offset) {
    const std::int64_t room = layout.length - layout.thumb_length;
    if (room <= 0) return scroll.minimum;
    const std::int64_t steps = std::int64_t{LastPosition(scroll)} - scroll.minimum;
    const std::int64_t at = std::clamp<std::int64_t>(offset, 0, room);
    return static_cast<int>(scroll.minimum + (at * steps + room / 2) / room);
}

void PaintScrollBar(const Window* window, int bar, HDC dc) {
    const ScrollLayout layout = LayOutScrollBar(window, bar);
    if (IsRectEmpty(&layout.bar)) return;
    FillRect(dc, &layout.bar, GetSysColorBrush(COLOR_SCROLLBAR));
    if (IsRectEmpty(&layout.thumb)) return;
    RECT thumb = layout.thumb;
    InflateRect(&thumb, -kThumbMargin, -kThumbMargin);
    FillRounded(dc, thumb, window->scroll[bar].tracking ? kThumbHeld : kThumb);
}

void RedrawScrollBar(Window* window, int bar) {
    const RECT rect = ScrollBarRect(window, bar);
    if (IsRectEmpty(&rect) || !IsShown(window)) return;
    const HDC dc = GetWindowDC(window->handle);
    PaintScrollBar(window, bar, dc);
    ReleaseDC(window->handle, dc);
}

}  // namespace winbase
