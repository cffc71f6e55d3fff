#pragma once

#include "platform/win32/user/window.h"

namespace winbase {

/// Where the parts of a frame are, in window coordinates; what isn't there is empty.
struct FrameLayout {
    int border = 0;  ///< outer border, without the client edge
    RECT title{};    ///< the whole title bar
    RECT close{};
    RECT zoom{};    ///< no box to minimise: on one desktop nothing would bring the window back
    RECT corner{};  ///< between two scroll bars
};
FrameLayout LayOutFrame(const Window* window);

/// Moves (`hit` HTCAPTION) or sizes (HTLEFT to HTBOTTOMRIGHT) a window as long as the button is
/// held.
void MoveOrSize(Window* window, int hit, POINT from);
/// Follows a press on a box of the title bar (HTCLOSE, ...). True when it was released there.
bool TrackBox(Window* window, int hit);

/// Draws a box of the title bar.
enum class BoxState { kNormal, kPressed };
void PaintBox(Window* window, int hit, BoxState state);

}  // namespace winbase
