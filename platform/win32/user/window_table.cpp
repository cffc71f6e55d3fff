#include "platform/win32/user/window_table.h"

#include <atomic>
#include <cassert>

#include "platform/win32/gdi/surface.h"
#include "platform/win32/kernel/handle_table.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/ui_state.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

// Never destroyed, like everything that a window needs to go: a program's static objects may leave
// theirs when the process ends.
HandleTable<Window>& Table() {
    static auto& table = *new HandleTable<Window>(HandleKind::kWindow);
    return table;
}

std::uint64_t g_layout_epoch = 1;

std::atomic<DWORD> g_ui_thread{0};

Window* MakeDesktop() {
    auto* const desktop = new Window;
    desktop->handle = ToHandle<HWND>(Table().Add(desktop));
    desktop->style = WS_VISIBLE | WS_POPUP | WS_CLIPCHILDREN;
    desktop->text = "";
    desktop->created = true;
    return desktop;
}

}  // namespace

UiState& Ui() {
    static auto& state = *new UiState;
    return state;
}

Window* AddWindow() {
    auto* const window = new Window;
    const std::uint32_t number = Table().Add(window);
    if (number == 0) {
        delete window;
        return nullptr;
    }
    window->handle = ToHandle<HWND>(number);
    return window;
}

void RetireWindow(Window* window) {
    Table().Remove(HandleTable<Window>::Number(window->handle));
    window->handle = nullptr;
    if (window->locks == 0) delete window;
}

std::vector<HWND> HandlesOf(const std::vector<Window*>& windows) {
    std::vector<HWND> handles;
    handles.reserve(windows.size());
    for (const Window* window : windows) handles.push_back(window->handle);
    return handles;
}

std::size_t LiveWindows() { return Table().size() - 1; }

Window* LookUp(HWND handle) { return Table().Find(handle); }

bool IsLiveWindow(HWND handle) { return Table().IsLive(handle); }

Window* FindLive(HWND handle) {
    Window* const window = LookUp(handle);
    if (window == nullptr) SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return window;
}

Window* DesktopWindow() {
    static Window* const desktop = MakeDesktop();
    return desktop;
}

Window* TopLevel(Window* window) {
    while (window->parent != nullptr) window = window->parent;
    return window;
}

bool IsShown(const Window* window) {
    for (; window != nullptr; window = window->parent) {
        if ((window->style & WS_VISIBLE) == 0) return false;
    }
    return true;
}

RECT ScreenRect(const Window* window) {
    RECT rect = window->rect;
    for (const Window* up = window->parent; up != nullptr; up = up->parent) {
        OffsetRect(&rect, up->rect.left + up->client.left, up->rect.top + up->client.top);
    }
    return rect;
}

RECT ScreenClientRect(const Window* window) {
    const RECT whole = ScreenRect(window);
    return Moved(window->client, whole.left, whole.top);
}

void LayoutChanged() { ++g_layout_epoch; }

std::uint64_t LayoutEpoch() { return g_layout_epoch; }

WindowLock::WindowLock(Window* window) : window_(window) { ++window_->locks; }

WindowLock::~WindowLock() {
    if (--window_->locks == 0 && window_->handle == nullptr) delete window_;
}

DWORD UiThreadId() { return g_ui_thread.load(std::memory_order_acquire); }

bool IsUiThread() {
    const DWORD owner = UiThreadId();
    return owner == 0 || owner == GetCurrentThreadId();
}

void AssertUiThread() {
    // The thread that makes the first window is the user interface thread for good.
    if (UiThreadId() == 0) g_ui_thread.store(GetCurrentThreadId(), std::memory_order_release);
    assert(IsUiThread() && "windows belong to the user interface thread");
}

}  // namespace winbase
