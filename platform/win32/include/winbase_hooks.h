#pragma once

// What a test, an automation run or the start of a program asks of the layer beyond the Windows
// functions. Nothing here exists on Windows.

#include "winbase_types.h"

#define WINBASE_HOOK __attribute__((visibility("default")))

namespace winbase::hooks {

/// Stops the clock behind ticks, timers and local time and sets it; from then on it moves by
/// AdvanceClock only. For good: the real clock does not come back. Safe from any thread.
WINBASE_HOOK void UseManualClock(DWORD ticks, const SYSTEMTIME& local_time);
/// Does nothing while the clock is real.
WINBASE_HOOK void AdvanceClock(DWORD millis);
WINBASE_HOOK bool IsClockManual();

/// Called on the user interface thread each time a loop is about to wait for input; answers true
/// when it did something, and the loop looks at its queue again. Null takes it away.
using IdleHandler = bool (*)();
WINBASE_HOOK void SetIdleHandler(IdleHandler handler);

}  // namespace winbase::hooks
