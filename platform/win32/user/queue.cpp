#include "platform/win32/user/queue.h"

#include <winbase_hooks.h>

#include <algorithm>
#include <cassert>
#include <chrono>
#include <map>
#include <mutex>
#include <string>

#include "platform/present/screen.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/input.h"
#include "platform/win32/user/pointer.h"
#include "platform/win32/user/timer.h"
#include "platform/win32/user/track_mouse.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

struct QueueState {
    bool quit = false;
    int quit_code = 0;
    DWORD last_time = 0;
    POINT last_place{};
    hooks::IdleHandler idle = nullptr;
};

QueueState g_state;

// A wait ends for a timer, a resting pointer or a frame that is due.
int Sooner(int millis, int other) {
    if (millis < 0) return other;
    return other < 0 ? millis : std::min(millis, other);
}

bool TakeQuit(bool remove, MSG& message) {
    if (!g_state.quit) return false;
    message = {nullptr, WM_QUIT,        static_cast<WPARAM>(g_state.quit_code),
               0,       GetTickCount(), PointerPlace()};
    if (remove) g_state.quit = false;
    return true;
}

bool TakePaint(const MessageFilter& filter, bool remove, MSG& message) {
    if (filter.thread_only || !filter.TakesMessage(WM_PAINT)) return false;
    const Window* const within = filter.window != nullptr ? LookUp(filter.window) : nullptr;
    Window* const window = NextPaintWindow(within);
    if (window == nullptr) return false;
    if (remove) window->paint.internal = false;
    message = {window->handle, WM_PAINT, 0, 0, GetTickCount(), PointerPlace()};
    return true;
}

bool Look(MSG& message, const MessageFilter& filter, bool remove) {
    for (;;) {
        ServeRequests();
        if (TheQueue().TakePosted(filter, remove, message)) return true;
        if (TakeQuit(remove, message)) return true;
        PumpScreen();
        const InputFind find = TakeInput(filter, remove, message);
        if (find == InputFind::kFound) return true;
        if (find == InputFind::kLookAgain || TheQueue().HasRequest()) continue;
        return TakePaint(filter, remove, message) || TakeTimer(filter, remove, message) ||
               TakeHover(filter, remove, message);
    }
}

void SleepUntilNext(const MessageFilter& filter, int millis) {
    int patience = Sooner(millis, MillisToTimer(filter));
    patience = Sooner(patience, MillisToHover(filter));
    patience = Sooner(patience, PresentFrame());
    TakeScreenEvents(TheQueue().Sleep(patience, CurrentScreen()));
}

bool RunIdleHandler() { return g_state.idle != nullptr && g_state.idle(); }

// A null window stands for all, -1 for messages that belong to none. False for a dead one.
bool MakeFilter(HWND window, UINT first, UINT last, MessageFilter& filter) {
    filter.first = first;
    filter.last = last;
    filter.thread_only = window == reinterpret_cast<HWND>(static_cast<INT_PTR>(-1));
    if (filter.thread_only || window == nullptr) return true;
    filter.window = window;
    return FindLive(window) != nullptr;
}

UINT WaitingKinds() {
    UINT kinds = InputKinds();
    if (TheQueue().HasPosted() || g_state.quit) kinds |= QS_POSTMESSAGE;
    if (TheQueue().HasRequest()) kinds |= QS_SENDMESSAGE;
    if (NextPaintWindow() != nullptr) kinds |= QS_PAINT;
    if (MillisToTimer({}) == 0) kinds |= QS_TIMER;
    return kinds;
}

// Paint and timer have no moment of arrival: they count as news as long as they wait.
UINT NewKinds() {
    const UINT standing = QS_PAINT | QS_TIMER;
    return TheQueue().News() | (WaitingKinds() & standing);
}

bool WaitForKinds(UINT mask, int millis) {
    using Time = std::chrono::steady_clock;
    const auto end = Time::now() + std::chrono::milliseconds(std::max(millis, 0));
    for (;;) {
        PumpScreen();
        if ((NewKinds() & mask) != 0) return true;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Time::now()).count();
        if (millis >= 0 && left <= 0) return false;
        if (RunIdleHandler()) continue;
        SleepUntilNext({}, millis < 0 ? -1 : static_cast<int>(left));
    }
}

}  // namespace

void PumpScreen() {
    present::Screen* const screen = CurrentScreen();
    if (screen == nullptr) return;
    TakeScreenEvents(screen->Wait(0));
    PresentFrame();
}

bool FetchMessage(MSG& message, const MessageFilter& filter, bool remove) {
    TheQueue().TakeNews();
    if (!Look(message, filter, remove)) return false;
    g_state.last_time = message.time;
    g_state.last_place = message.pt;
    CallHooks(WH_GETMESSAGE, HC_ACTION, remove ? PM_REMOVE : PM_NOREMOVE,
              reinterpret_cast<LPARAM>(&message));
    return true;
}

void RepeatQuit(const MSG& message) { PostQuitMessage(static_cast<int>(message.wParam)); }

void WakeQueue() { TheQueue().Wake(); }

namespace hooks {

void SetIdleHandler(IdleHandler handler) { g_state.idle = handler; }

}  // namespace hooks
}  // namespace winbase

using namespace winbase;

BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window != nullptr && !IsWindow(window)) return Fail(ERROR_INVALID_WINDOW_HANDLE);
    // Another thread has no loop: what it posts to itself is never seen.
    if (window == nullptr && !IsUiThread()) return TRUE;
    const MSG posted = {window, message, wParam, lParam, GetTickCount(), PointerPlace()};
    return TheQueue().Post(posted) ? TRUE : Fail(ERROR_NOT_ENOUGH_QUOTA);
}

BOOL PostThreadMessageA(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam) {
    if (thread == 0 || thread != UiThreadId()) return Fail(ERROR_INVALID_PARAMETER);
    const MSG posted = {nullptr, message, wParam, lParam, GetTickCount(), PointerPlace()};
    return TheQueue().Post(posted) ? TRUE : Fail(ERROR_NOT_ENOUGH_QUOTA);
}

void PostQuitMessage(int code) {
    AssertUiThread();
    g_state.quit = true;
    g_state.quit_code = code;
    TheQueue().AddNews(QS_POSTMESSAGE);
}

BOOL GetMessageA(LPMSG message, HWND window, UINT first, UINT last) {
    AssertUiThread();
    MessageFilter filter;
    if (message == nullptr || !MakeFilter(window, first, last, filter)) return -1;
    while (!FetchMessage(*message, filter, true)) {
        if (!RunIdleHandler()) SleepUntilNext(filter, -1);
    }
    return message->message != WM_QUIT;
}

BOOL PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT remove) {
    AssertUiThread();
    assert((remove & ~UINT{PM_REMOVE}) == 0 && "only PM_REMOVE and PM_NOREMOVE are supported");
    MessageFilter filter;
    if (message == nullptr || !MakeFilter(window, first, last, filter)) return FALSE;
    return FetchMessage(*message, filter, (remove & PM_REMOVE) != 0);
}

BOOL WaitMessage() {
    AssertUiThread();
    return WaitForKinds(QS_ALLINPUT, -1);
}

DWORD MsgWaitForMultipleObjects(DWORD count, const HANDLE*, BOOL, DWORD millis, DWORD wake_mask) {
    AssertUiThread();
    assert(count == 0 && "waiting for objects together with messages is not supported");
    if (count != 0) {
        SetLastError(ERROR_NOT_SUPPORTED);
        return WAIT_FAILED;
    }
    const int patience = millis == INFINITE ? -1 : static_cast<int>(std::min(millis, 0x7FFFFFFFu));
    return WaitForKinds(wake_mask, patience) ? WAIT_OBJECT_0 : DWORD{WAIT_TIMEOUT};
}

DWORD GetQueueStatus(UINT flags) {
    AssertUiThread();
    PumpScreen();
    const UINT fresh = NewKinds() & flags;
    TheQueue().TakeNews();
    return MAKEWPARAM(fresh, WaitingKinds() & flags) & 0xFFFFFFFF;
}

LONG GetMessageTime() { return static_cast<LONG>(g_state.last_time); }

DWORD GetMessagePos() {
    return static_cast<DWORD>(MAKELONG(g_state.last_place.x, g_state.last_place.y));
}

UINT RegisterWindowMessageA(LPCSTR name) {
    constexpr UINT kFirst = 0xC000;
    if (name == nullptr || *name == '\0') {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    struct IgnoreCase {
        bool operator()(const std::string& a, const std::string& b) const {
            return lstrcmpiA(a.c_str(), b.c_str()) < 0;
        }
    };
    static std::mutex mutex;
    static auto& messages = *new std::map<std::string, UINT, IgnoreCase>;
    const std::lock_guard lock(mutex);
    const auto next = kFirst + static_cast<UINT>(messages.size());
    return messages.emplace(name, next).first->second;
}
