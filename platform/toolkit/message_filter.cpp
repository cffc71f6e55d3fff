#include "platform/toolkit/app.h"
#include "platform/toolkit/thread_state.h"

namespace toolkit {

namespace {

LRESULT CALLBACK OnFetched(int code, WPARAM wParam, LPARAM lParam) {
    // Looking at a message without taking it is no fetch: it will come again.
    if (code == HC_ACTION && wParam == PM_REMOVE) {
        auto* message = reinterpret_cast<MSG*>(lParam);
        ThreadState& state = State();
        ++state.filtering;
        MSG copy = *message;
        const bool taken = state.running != nullptr ? state.running->PreTranslateMessage(&copy)
                                                    : WalkPreTranslate(&copy);
        if (taken) message->message = WM_NULL;
        --state.filtering;
        UpdateFilter();
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

void UpdateFilter() {
    ThreadState& state = State();
    const bool wanted = !state.windows.empty() || state.running != nullptr || state.filtering != 0;
    if (wanted && state.filter == nullptr) {
        state.filter =
            ::SetWindowsHookExA(WH_GETMESSAGE, OnFetched, nullptr, ::GetCurrentThreadId());
    } else if (!wanted && state.filter != nullptr) {
        ::UnhookWindowsHookEx(state.filter);
        state.filter = nullptr;
        ForgetMessageMaps();
    }
}

bool WalkPreTranslate(MSG* message) {
    HWND handle = message->hwnd;
    while (handle != nullptr) {
        const HWND next = ::GetParent(handle);
        if (CWnd* window = CWnd::FromHandlePermanent(handle)) {
            const CallFrame frame(*window);
            if (window->PreTranslateMessage(message)) return true;
        }
        handle = next;
    }
    return false;
}

void Dispatch(const MSG& message) {
    if (message.message == WM_NULL) return;
    ::TranslateMessage(&message);
    ::DispatchMessageA(&message);
}

}  // namespace toolkit
