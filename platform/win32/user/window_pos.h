#pragma once

#include "platform/win32/user/window.h"

namespace winbase {

/// No window is larger, so that sizes fit the words that messages carry.
inline constexpr int kMostExtent = 8192;

/// WM_NCCALCSIZE for the window's rectangle as it is; stores the client area.
void SendCalcSize(Window* window);
/// WM_PARENTNOTIFY to all parents of a child that is made or goes.
void NotifyParent(Window* window, UINT event);
/// Top of its siblings, behind topmost windows unless it is one, and its owned windows before it.
void PutOnTop(Window* window);
/// Device contexts of a window that goes find nothing any more.
void ForgetContexts(const Window* window);
/// Takes the window out of its siblings, its class and the table.
void ForgetDestroyed(Window* window);
/// Moves a window into another parent, null for none, on top of its new siblings.
void Reparent(Window* window, Window* parent);
/// Paints at once what a window that went away or shrank uncovered.
enum class Uncovered { kNow, kLater };
void Uncover(Window* parent, const Region& screen_region, Uncovered when);
/// Rectangle of the whole window on its surface, clipped by its parents, in screen coordinates.
Region VisibleOnScreen(const Window* window);

}  // namespace winbase
