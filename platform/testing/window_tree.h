#pragma once

#include <string>

#include "platform/system.h"

namespace platform::testing {

/// The window and all below it as text in UTF-8, one line a window, children indented by two, in
/// z-order from the top:
///
///     Button "确定" id 1 12,80-92,104 visible enabled focus
///
/// Rectangles are in the parent's client area, for the first window on the screen. Null shows all
/// top-level windows.
std::string WindowTree(HWND window);

}  // namespace platform::testing
