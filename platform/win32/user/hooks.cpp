#include <algorithm>
#include <memory>
#include <vector>

#include "platform/win32/kernel/handle_table.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

struct Hook {
    int kind;
    HOOKPROC procedure;
    HHOOK handle;
    bool removed = false;
};

// The oldest first. A hook that is taken away stays here until none is running any more.
std::vector<std::unique_ptr<Hook>> g_hooks;
// Whose procedure runs, the innermost last.
std::vector<const Hook*> g_running;

/// Handles are never used twice.
HHOOK NewHandle() {
    static std::uint32_t count = 0;
    return ToHandle<HHOOK>(static_cast<std::uint32_t>(HandleKind::kHook) << 28 | ++count);
}

/// The newest hook of the kind that is older than `above`.
const Hook* NextHook(int kind, const Hook* above) {
    auto next = g_hooks.rbegin();
    if (above != nullptr) {
        while (next != g_hooks.rend() && next->get() != above) ++next;
        if (next != g_hooks.rend()) ++next;
    }
    const auto found = std::find_if(next, g_hooks.rend(), [kind](const auto& hook) {
        return hook->kind == kind && !hook->removed;
    });
    return found == g_hooks.rend() ? nullptr : found->get();
}

LRESULT Run(const Hook* hook, int code, WPARAM wParam, LPARAM lParam) {
    if (hook == nullptr) return 0;
    g_running.push_back(hook);
    const LRESULT result = hook->procedure(code, wParam, lParam);
    g_running.pop_back();
    if (g_running.empty()) std::erase_if(g_hooks, [](const auto& old) { return old->removed; });
    return result;
}

}  // namespace

LRESULT CallHooks(int kind, int code, WPARAM wParam, LPARAM lParam) {
    if (g_hooks.empty()) return 0;
    return Run(NextHook(kind, nullptr), code, wParam, lParam);
}

}  // namespace winbase

using namespace winbase;

HHOOK SetWindowsHookExA(int kind, HOOKPROC procedure, HINSTANCE, DWORD thread) {
    AssertUiThread();
    if (kind != WH_GETMESSAGE && kind != WH_CBT) {
        SetLastError(ERROR_INVALID_HOOK_FILTER);
        return nullptr;
    }
    if (procedure == nullptr) {
        SetLastError(ERROR_INVALID_FILTER_PROC);
        return nullptr;
    }
    if (thread != 0 && thread != UiThreadId()) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    g_hooks.push_back(std::make_unique<Hook>(Hook{kind, procedure, NewHandle()}));
    return g_hooks.back()->handle;
}

BOOL UnhookWindowsHookEx(HHOOK hook) {
    AssertUiThread();
    const auto found = std::find_if(g_hooks.begin(), g_hooks.end(), [hook](const auto& other) {
        return other->handle == hook && !other->removed;
    });
    if (found == g_hooks.end()) return Fail(ERROR_INVALID_HOOK_HANDLE);
    (*found)->removed = true;
    if (g_running.empty()) std::erase_if(g_hooks, [](const auto& old) { return old->removed; });
    return TRUE;
}

// The hook that calls is known: the argument has had no meaning for a long time.
LRESULT CallNextHookEx(HHOOK, int code, WPARAM wParam, LPARAM lParam) {
    if (g_running.empty()) return 0;
    const Hook* const caller = g_running.back();
    return Run(NextHook(caller->kind, caller), code, wParam, lParam);
}
