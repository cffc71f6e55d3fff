#pragma once

#include "platform/win32/user/window.h"

namespace winbase {

// What DefWindowProcA does with messages of mouse and keyboard.

LRESULT DefaultSetCursor(Window* window, WPARAM wParam, LPARAM lParam);
LRESULT DefaultMouseActivate(Window* window, WPARAM wParam, LPARAM lParam);
LRESULT DefaultFramePress(Window* window, int hit, LPARAM lParam);
LRESULT DefaultFrameDoubleClick(Window* window, int hit, LPARAM lParam);
LRESULT DefaultSystemCommand(Window* window, WPARAM wParam, LPARAM lParam);
LRESULT DefaultSystemKey(Window* window, WPARAM wParam, LPARAM lParam);
/// Hands a message on to the parent of a child; 0 for a top-level window.
LRESULT PassToParent(Window* window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace winbase
