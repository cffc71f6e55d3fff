#pragma once

#include <windows.h>

#include <functional>

namespace winbase {

enum class LoopStep { kGoOn, kDispatch, kEnd };

/// Captures the mouse for a window and fetches messages while the left button is held: moving a
/// window, dragging a thumb. `step` sees each message; what it doesn't want is dispatched. Ends
/// when `step` says so (the answer is true then), when the capture is lost, the window dies or the
/// program quits. The capture is released in any case.
bool RunCaptureLoop(HWND window, const std::function<LoopStep(const MSG&)>& step);

}  // namespace winbase
