#include "platform/win32/user/capture_loop.h"

#include "platform/win32/user/queue.h"

namespace winbase {

namespace {

bool IsHeld(HWND window) { return GetCapture() == window && GetKeyState(VK_LBUTTON) < 0; }

}  // namespace

bool RunCaptureLoop(HWND window, const std::function<LoopStep(const MSG&)>& step) {
    // A message that says "pressed" may have been made up: nothing would end the loop then.
    if (GetKeyState(VK_LBUTTON) >= 0) return false;
    SetCapture(window);
    bool ended = false;
    MSG message{};
    while (!ended && GetCapture() == window) {
        if (GetMessageA(&message, nullptr, 0, 0) <= 0) {
            RepeatQuit(message);
            break;
        }
        const LoopStep next = step(message);
        if (next == LoopStep::kDispatch) DispatchMessageA(&message);
        ended = next == LoopStep::kEnd;
        // Some inner loop may have taken the release.
        if (!ended && !IsHeld(window)) break;
    }
    if (GetCapture() == window) ReleaseCapture();
    return ended;
}

}  // namespace winbase
