#include "platform/win32/user/input.h"
#include "platform/win32/user/pointer.h"
#include "platform/win32/user/timer.h"
#include "platform/win32/user/track_mouse.h"
#include "platform/win32/user/window.h"

using namespace winbase;

LRESULT DispatchMessageA(const MSG* message) {
    AssertUiThread();
    if (message == nullptr) return 0;
    // System timers of loops that ended belong to nobody.
    if (message->message == kSystemTimer) return 0;
    if (message->message == WM_TIMER && CallTimerProcedure(*message)) return 0;
    if (message->hwnd == nullptr) return 0;
    Window* const window = FindLive(message->hwnd);
    if (window == nullptr) return 0;
    return CallProcedure(window, message->message, message->wParam, message->lParam);
}

namespace winbase {

void ForgetWindow(HWND handle) {
    TheQueue().Forget(handle);
    ForgetTimers(handle);
    ForgetTracking(handle);
    ForgetPointer(handle);
}

}  // namespace winbase
