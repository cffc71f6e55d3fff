#include "platform/toolkit/thread_state.h"

namespace toolkit {

namespace {

/// Style of classes that the system's input methods bring. Windows of them may be made by the way
/// while a program's first window is.
constexpr ULONG_PTR kInputMethodClass = 0x00010000;

bool IsMeant(HWND handle) {
    return (::GetClassLongPtrA(handle, GCL_STYLE) & kInputMethodClass) == 0;
}

}  // namespace

ThreadState& State() {
    // Kept to the end: objects with static life may still leave their windows when the thread's own
    // objects are gone.
    static thread_local ThreadState* const state = new ThreadState;
    return *state;
}

CreationScope::CreationScope(CWnd& window)
    : hook_(::SetWindowsHookExA(WH_CBT, OnHook, nullptr, ::GetCurrentThreadId())) {
    State().creating = &window;
}

CreationScope::~CreationScope() {
    State().creating = nullptr;
    ::UnhookWindowsHookEx(hook_);
}

LRESULT CALLBACK CreationScope::OnHook(int code, WPARAM wParam, LPARAM lParam) {
    ThreadState& state = State();
    const HWND handle = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_CREATEWND && state.creating != nullptr && IsMeant(handle)) {
        CWnd* window = state.creating;
        state.creating = nullptr;  // what the window itself creates is not meant
        window->Bind(handle);
        window->TakeMessages();
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

CallFrame::CallFrame(CWnd& window) : CallFrame(window, State().message) {}

CallFrame::CallFrame(CWnd& window, const MSG& message)
    : window_(&window),
      outer_(window.frames_),
      former_message_(State().message),
      module_(window.module_) {
    window.frames_ = this;
    State().message = message;
}

CallFrame::~CallFrame() {
    State().message = former_message_;
    if (window_ == nullptr) return;
    window_->frames_ = outer_;
    if (outer_ != nullptr || !window_->left_) return;
    window_->left_ = false;
    window_->PostNcDestroy();  // may delete the object
}

LRESULT CALLBACK WindowProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* window = CWnd::FromHandlePermanent(handle);
    if (window == nullptr) {
        const auto left = State().left_behind.find(handle);
        if (left == State().left_behind.end()) {
            return ::DefWindowProcA(handle, message, wParam, lParam);
        }
        const WNDPROC procedure = left->second;
        if (message == WM_NCDESTROY) State().left_behind.erase(left);
        return ::CallWindowProcA(procedure, handle, message, wParam, lParam);
    }
    const CallFrame frame(*window, {handle, message, wParam, lParam, 0, {}});
    return window->WindowProc(message, wParam, lParam);
}

}  // namespace toolkit
