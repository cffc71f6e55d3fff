#include "plugin/event_post.h"

#include <atomic>
#include <thread>

#include "platform/system.h"

namespace {

std::atomic<HWND> g_window = nullptr;
/// Posts that may have read g_window and not be through yet.
std::atomic<int> g_posting = 0;

WPARAM EventOf(CoreEvent code, Outcome outcome) {
    return static_cast<WPARAM>(MAKELONG(code, outcome == Outcome::kFailed ? kCoreEventFailed : 0));
}

bool Post(WPARAM wParam, LPARAM lParam) {
    // Without a window nobody enters, so that EndCoreEvents need not wait long.
    if (g_window.load() == nullptr) return false;
    ++g_posting;
    const HWND window = g_window.load();
    const bool posted =
        window != nullptr && ::PostMessageA(window, WM_CORE_EVENT, wParam, lParam) != FALSE;
    --g_posting;
    return posted;
}

bool CarriesBlock(WPARAM wParam) { return LOWORD(wParam) != EV_CONNECTION_LOST; }

void DropWaiting(HWND window) {
    MSG message;
    while (::PeekMessageA(&message, window, WM_CORE_EVENT, WM_CORE_EVENT, PM_REMOVE)) {
        // A quit comes through every filter, after all that was posted; it is not ours.
        if (message.message == WM_QUIT) {
            ::PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (message.hwnd == window && CarriesBlock(message.wParam)) {
            FreeTaggedBlock(reinterpret_cast<void*>(message.lParam));
        }
    }
}

}  // namespace

void BeginCoreEvents(HWND window) { g_window = window; }

void EndCoreEvents(HWND window) {
    HWND expected = window;
    if (!g_window.compare_exchange_strong(expected, nullptr)) return;
    while (g_posting.load() != 0) std::this_thread::yield();
    DropWaiting(window);
}

void PostCoreEvent(CoreEvent code, Outcome outcome, EventBlock block) {
    const auto lParam = reinterpret_cast<LPARAM>(block.get());
    // The receiver frees it, perhaps already.
    if (Post(EventOf(code, outcome), lParam)) static_cast<void>(block.release());
}

void PostCoreEventValue(CoreEvent code, LPARAM value) {
    Post(EventOf(code, Outcome::kDone), value);
}

void SendCoreEvent(CoreEvent code, Outcome outcome, LPARAM lParam) {
    const HWND window = g_window.load();
    if (window != nullptr) ::SendMessageA(window, WM_CORE_EVENT, EventOf(code, outcome), lParam);
}
