#pragma once

#include "platform/win32/user/window.h"

namespace winbase {

/// A window with a fresh handle and nothing else; null when there are no handles left.
Window* AddWindow();
/// The handle is dead from now on; the memory goes when no call is left in the window.
void RetireWindow(Window* window);
/// Handles instead of pointers, for walks on which any window may go.
std::vector<HWND> HandlesOf(const std::vector<Window*>& windows);
/// Windows that exist, the desktop aside.
std::size_t LiveWindows();
/// From any thread.
bool IsLiveWindow(HWND handle);

}  // namespace winbase
