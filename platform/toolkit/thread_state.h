#pragma once

#include <memory>
#include <unordered_map>

#include "platform/toolkit/wnd.h"

class CWinApp;

/// What the toolkit keeps for the thread that owns windows.
namespace toolkit {

struct ThreadState {
    std::unordered_map<HWND, CWnd*> windows;                   ///< objects bound to windows
    std::unordered_map<HWND, std::unique_ptr<CWnd>> visitors;  ///< see CWnd::FromHandle
    /// Procedures of windows that an object left while others had taken the messages after it.
    std::unordered_map<HWND, WNDPROC> left_behind;
    CWnd* creating = nullptr;    ///< the object whose window is about to be made
    CWinApp* running = nullptr;  ///< the application whose loop runs, if one does
    MSG message{};               ///< what is being handled, for CWnd::Default
    HHOOK filter = nullptr;
    int filtering = 0;  ///< calls of the filter that have not returned
};

ThreadState& State();

/// Binds the window that is created in this scope to the object before its first message.
class CreationScope {
public:
    explicit CreationScope(CWnd& window);
    ~CreationScope();
    CreationScope(const CreationScope&) = delete;
    CreationScope& operator=(const CreationScope&) = delete;

private:
    static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam);
    HHOOK hook_;
};

/// A call into a window's object: its module is current and its message is remembered. The last
/// call to end tells the object that its window has gone, so that it may delete itself then.
class CallFrame {
public:
    explicit CallFrame(CWnd& window);
    CallFrame(CWnd& window, const MSG& message);
    ~CallFrame();
    CallFrame(const CallFrame&) = delete;
    CallFrame& operator=(const CallFrame&) = delete;

    /// False once the object has been deleted.
    bool Alive() const { return window_ != nullptr; }

private:
    friend class ::CWnd;
    CWnd* window_;
    CallFrame* outer_;
    MSG former_message_;
    ModuleScope module_;
};

/// Installs the thread's message filter when windows or a loop want it, and takes it away when none
/// does. The filter offers each message that a loop fetches, whoever's loop it is, to
/// PreTranslateMessage of the toolkit's windows; what one of them takes becomes WM_NULL.
void UpdateFilter();
/// Translates and dispatches what a loop of the toolkit has fetched.
void Dispatch(const MSG& message);

}  // namespace toolkit
