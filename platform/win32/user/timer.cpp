#include "platform/win32/user/timer.h"

#include <winbase_hooks.h>

#include <algorithm>
#include <set>
#include <vector>

#include "platform/win32/kernel/clock.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/pointer.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

constexpr UINT kShortestPeriod = 10;
constexpr UINT kLongestPeriod = 0x7FFFFFFF;

struct Timer {
    HWND window;
    UINT_PTR id;
    UINT message;
    TIMERPROC procedure;
    UINT period;
    std::uint64_t due;
};

std::vector<Timer> g_timers;
// Everything that was ever given to SetTimer: a posted WM_TIMER with any other address is not
// called.
std::set<TIMERPROC> g_procedures;
UINT_PTR g_next_id = 0x1000;

Timer* FindTimer(HWND window, UINT_PTR id, UINT message) {
    const auto found = std::find_if(g_timers.begin(), g_timers.end(), [&](const Timer& timer) {
        return timer.window == window && timer.id == id && timer.message == message;
    });
    return found == g_timers.end() ? nullptr : &*found;
}

void StartTimer(Timer timer, UINT millis) {
    timer.period = std::clamp(millis, kShortestPeriod, kLongestPeriod);
    timer.due = ClockTicks() + timer.period;
    if (Timer* former = FindTimer(timer.window, timer.id, timer.message)) {
        *former = timer;
    } else {
        g_timers.push_back(timer);
    }
    // The first timer of a program takes care that a clock which is moved ends a wait.
    static const bool listens = (SetClockListener(WakeQueue), true);
    static_cast<void>(listens);
}

bool StopTimer(HWND window, UINT_PTR id, UINT message) {
    return std::erase_if(g_timers, [&](const Timer& timer) {
               return timer.window == window && timer.id == id && timer.message == message;
           }) != 0;
}

Timer* NextTimer(const MessageFilter& filter) {
    Timer* next = nullptr;
    for (Timer& timer : g_timers) {
        if (!filter.Takes(timer.window, timer.message)) continue;
        if (next == nullptr || timer.due < next->due) next = &timer;
    }
    return next;
}

}  // namespace

void SetSystemTimer(HWND window, UINT_PTR id, UINT millis) {
    StartTimer({window, id, kSystemTimer, nullptr, 0, 0}, millis);
}

void KillSystemTimer(HWND window, UINT_PTR id) { StopTimer(window, id, kSystemTimer); }

bool TakeTimer(const MessageFilter& filter, bool remove, MSG& message) {
    Timer* const timer = NextTimer(filter);
    if (timer == nullptr) return false;
    const std::uint64_t now = ClockTicks();
    if (timer->due > now) return false;
    message = {timer->window,
               timer->message,
               timer->id,
               reinterpret_cast<LPARAM>(timer->procedure),
               static_cast<DWORD>(now),
               PointerPlace()};
    // Ticks that nobody fetched in time are gone, but the beat stays.
    if (remove) timer->due += ((now - timer->due) / timer->period + 1) * timer->period;
    return true;
}

int MillisToTimer(const MessageFilter& filter) {
    const Timer* const timer = NextTimer(filter);
    if (timer == nullptr) return -1;
    const std::uint64_t now = ClockTicks();
    if (timer->due <= now) return 0;
    return hooks::IsClockManual() ? -1 : static_cast<int>(timer->due - now);
}

void ForgetTimers(HWND window) {
    std::erase_if(g_timers, [window](const Timer& timer) { return timer.window == window; });
}

bool CallTimerProcedure(const MSG& message) {
    const auto procedure = reinterpret_cast<TIMERPROC>(message.lParam);
    if (procedure == nullptr || g_procedures.count(procedure) == 0) return false;
    procedure(message.hwnd, message.message, message.wParam, GetTickCount());
    return true;
}

}  // namespace winbase

using namespace winbase;

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT millis, TIMERPROC procedure) {
    AssertUiThread();
    if (window != nullptr && FindLive(window) == nullptr) return 0;
    // Without a window the id only names a timer that is to be replaced.
    if (window == nullptr && FindTimer(nullptr, id, WM_TIMER) == nullptr) id = g_next_id++;
    if (procedure != nullptr) g_procedures.insert(procedure);
    StartTimer({window, id, WM_TIMER, procedure, 0, 0}, millis);
    return window != nullptr && id == 0 ? 1 : id;
}

BOOL KillTimer(HWND window, UINT_PTR id) {
    AssertUiThread();
    if (window != nullptr && FindLive(window) == nullptr) return FALSE;
    return StopTimer(window, id, WM_TIMER) ? TRUE : Fail(ERROR_INVALID_PARAMETER);
}
