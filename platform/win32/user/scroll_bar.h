#pragma once

#include "platform/win32/user/window.h"

namespace winbase {

/// A bar in window coordinates; empty when the window has none.
RECT ScrollBarRect(const Window* window, int bar);

/// A bar and its thumb along the bar's own axis.
struct ScrollLayout {
    RECT bar{};
    RECT thumb{};    ///< empty when nothing can be scrolled
    int start = 0;   ///< of the bar
    int length = 0;  ///< of the bar
    int thumb_length = 0;
    int thumb_offset = 0;  ///< from `start`
};
ScrollLayout LayOutScrollBar(const Window* window, int bar);

/// The greatest position: the range's end less what the page covers beyond one unit.
int LastPosition(const ScrollBar& scroll);
/// The position for a thumb whose offset is given, and the other way round.
int PositionAt(const ScrollBar& scroll, const ScrollLayout& layout, int offset);

void PaintScrollBar(const Window* window, int bar, HDC dc);
/// Paints a bar anew at once, when it is to be seen.
void RedrawScrollBar(Window* window, int bar);

}  // namespace winbase
