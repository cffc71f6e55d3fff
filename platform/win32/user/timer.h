#pragma once

#include "platform/win32/user/message_queue.h"

namespace winbase {

/// The timer's message of the layer itself; programs neither see nor set such timers.
constexpr UINT kSystemTimer = 0x0118;

/// Starts or restarts a timer of the layer for a window.
void SetSystemTimer(HWND window, UINT_PTR id, UINT millis);
void KillSystemTimer(HWND window, UINT_PTR id);

/// The tick that has been due for longest, if the filter takes it. Each timer waits with one tick
/// at most.
bool TakeTimer(const MessageFilter& filter, bool remove, MSG& message);
/// Until the next tick that the filter takes: 0 for one that is due, -1 for none or when only a
/// moved manual clock can bring it.
int MillisToTimer(const MessageFilter& filter);
void ForgetTimers(HWND window);
/// Runs the procedure of a timer's message; false when it has none.
bool CallTimerProcedure(const MSG& message);

}  // namespace winbase
