#include <algorithm>

#include "platform/win32/gdi/dc_target.h"
#include "platform/win32/gdi/surface.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/window.h"
#include "platform/win32/user/window_class.h"
#include "platform/win32/user/window_pos.h"
#include "platform/win32/user/window_table.h"

namespace winbase {

namespace {

constexpr DWORD kErrorChildWithoutParent = 1406;

bool IsChildStyle(DWORD style) { return (style & (WS_CHILD | WS_POPUP)) == WS_CHILD; }

bool IsOverlapped(DWORD style) { return (style & (WS_CHILD | WS_POPUP)) == 0; }

// What the system adds to the styles that a program asks for.
void CompleteStyles(CREATESTRUCTA& create) {
    auto style = static_cast<DWORD>(create.style);
    if (IsOverlapped(style)) style |= WS_CAPTION | WS_CLIPSIBLINGS;
    if ((style & WS_POPUP) != 0) style |= WS_CLIPSIBLINGS;
    const bool raised = (create.dwExStyle & WS_EX_DLGMODALFRAME) != 0 ||
                        ((create.dwExStyle & WS_EX_STATICEDGE) == 0 &&
                         (style & (WS_DLGFRAME | WS_THICKFRAME)) != 0 && !IsChildStyle(style));
    if (raised) create.dwExStyle |= WS_EX_WINDOWEDGE;
    create.style = static_cast<LONG>(style);
}

void ChoosePlace(CREATESTRUCTA& create) {
    constexpr int kUsualLeft = 40;
    constexpr int kUsualTop = 30;
    const bool usual = create.x == CW_USEDEFAULT;
    if (usual) create.x = IsChildStyle(static_cast<DWORD>(create.style)) ? 0 : kUsualLeft;
    if (usual || create.y == CW_USEDEFAULT) create.y = usual && create.x != 0 ? kUsualTop : 0;
    if (create.cx == CW_USEDEFAULT) {
        create.cx = GetSystemMetrics(SM_CXSCREEN) * 3 / 4;
        create.cy = GetSystemMetrics(SM_CYSCREEN) * 3 / 4;
    }
    create.cx = std::clamp(create.cx, 0, kMostExtent);
    create.cy = std::clamp(create.cy == CW_USEDEFAULT ? 0 : create.cy, 0, kMostExtent);
}

void Join(Window* window, const CREATESTRUCTA& create) {
    Window* const given = LookUp(create.hwndParent);
    if (IsChildStyle(window->style)) {
        window->parent = given;
        given->children.push_back(window);
        return;
    }
    window->owner = given != nullptr && given != DesktopWindow() ? TopLevel(given) : nullptr;
    PutOnTop(window);
}

void AskSize(Window* window, CREATESTRUCTA& create) {
    const auto style = static_cast<DWORD>(create.style);
    if (!IsOverlapped(style) && (style & WS_THICKFRAME) == 0) return;
    const MINMAXINFO limits = AskLimits(window);
    create.cx = std::clamp<int>(create.cx, limits.ptMinTrackSize.x, limits.ptMaxTrackSize.x);
    create.cy = std::clamp<int>(create.cy, limits.ptMinTrackSize.y, limits.ptMaxTrackSize.y);
    window->rect = {create.x, create.y, create.x + create.cx, create.y + create.cy};
}

// The end of a window whose creation was refused: it never lived, so only WM_NCDESTROY comes.
void Refuse(Window* window) {
    const HWND handle = window->handle;
    CallProcedure(window, WM_NCDESTROY, 0, 0);
    if (LookUp(handle) != nullptr) ForgetDestroyed(window);
}

// A hook sees the window before its first message and may refuse it, which then hears of nothing.
bool AskHooks(Window* window, CREATESTRUCTA& create) {
    CBT_CREATEWNDA hooked{&create, HWND_TOP};
    const auto wParam = reinterpret_cast<WPARAM>(window->handle);
    if (CallHooks(WH_CBT, HCBT_CREATEWND, wParam, reinterpret_cast<LPARAM>(&hooked)) == 0)
        return true;
    ForgetDestroyed(window);
    return false;
}

bool SendCreation(Window* window, CREATESTRUCTA& create) {
    const HWND handle = window->handle;
    const auto lParam = reinterpret_cast<LPARAM>(&create);
    if (!AskHooks(window, create)) return false;
    AskSize(window, create);
    if (LookUp(handle) == nullptr) return false;
    if (CallProcedure(window, WM_NCCREATE, 0, lParam) == 0) {
        if (LookUp(handle) != nullptr) Refuse(window);
        return false;
    }
    if (LookUp(handle) == nullptr) return false;
    SendCalcSize(window);
    if (LookUp(handle) == nullptr) return false;
    if (CallProcedure(window, WM_CREATE, 0, lParam) == -1) {
        if (LookUp(handle) != nullptr) Refuse(window);
        return false;
    }
    if (LookUp(handle) == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return false;
    }
    window->created = true;
    return true;
}

void SendPlace(Window* window) {
    const HWND handle = window->handle;
    const LONG width = window->client.right - window->client.left;
    const LONG height = window->client.bottom - window->client.top;
    CallProcedure(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(width, height));
    if (LookUp(handle) == nullptr) return;
    POINT place{window->rect.left + window->client.left, window->rect.top + window->client.top};
    CallProcedure(window, WM_MOVE, 0, MAKELPARAM(place.x, place.y));
}

Window* Make(const WindowClass& window_class, const CREATESTRUCTA& create) {
    Window* const window = AddWindow();
    if (window == nullptr) return nullptr;
    window->window_class = const_cast<WindowClass*>(&window_class);
    ++window->window_class->window_count;
    window->procedure = window_class.procedure;
    window->instance = create.hInstance;
    window->style = static_cast<DWORD>(create.style) & ~DWORD{WS_VISIBLE};
    window->ex_style = create.dwExStyle;
    window->extra.resize(static_cast<std::size_t>(window_class.window_extra));
    if (IsChildStyle(window->style)) window->id = reinterpret_cast<UINT_PTR>(create.hMenu);
    window->rect = {create.x, create.y, create.x + create.cx, create.y + create.cy};
    window->client = {0, 0, create.cx, create.cy};
    return window;
}

}  // namespace

}  // namespace winbase

using namespace winbase;

HWND WINAPI CreateWindowExA(DWORD ex_style, LPCSTR class_name, LPCSTR window_name, DWORD style,
                            int x, int y, int width, int height, HWND parent, HMENU menu_or_id,
                            HINSTANCE instance, LPVOID parameter) {
    AssertUiThread();
    if (instance == nullptr) instance = GetModuleHandleA(nullptr);
    const WindowClass* const window_class = FindClass(instance, class_name);
    if (window_class == nullptr) {
        SetLastError(ERROR_CLASS_DOES_NOT_EXIST);
        return nullptr;
    }
    if (parent != nullptr && FindLive(parent) == nullptr) return nullptr;
    if (IsChildStyle(style) && (parent == nullptr || LookUp(parent)->destroying)) {
        SetLastError(parent == nullptr ? kErrorChildWithoutParent : ERROR_INVALID_WINDOW_HANDLE);
        return nullptr;
    }
    CREATESTRUCTA create{
        parameter,   instance,   menu_or_id, parent, height, width, y, x, static_cast<LONG>(style),
        window_name, class_name, ex_style};
    CompleteStyles(create);
    ChoosePlace(create);
    Window* const window = Make(*window_class, create);
    if (window == nullptr) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    const WindowLock lock(window);
    const HWND handle = window->handle;
    if (window_name != nullptr) window->text = window_name;
    Join(window, create);
    if (window->parent == nullptr) {
        window->surface = std::make_unique<Surface>(std::max(create.cx, 1), std::max(create.cy, 1),
                                                    DefaultScale(), Surface::Damage::kCollect);
    }
    LayoutChanged();
    if (!SendCreation(window, create)) return nullptr;
    if (IsOverlapped(window->style)) {
        window->size_told = false;
    } else {
        SendPlace(window);
        if (LookUp(handle) == nullptr) return nullptr;
    }
    if (window->parent != nullptr && (window->ex_style & WS_EX_NOPARENTNOTIFY) == 0) {
        NotifyParent(window, WM_CREATE);
        if (LookUp(handle) == nullptr) return nullptr;
    }
    if ((style & WS_VISIBLE) != 0)
        ShowWindow(handle, (style & WS_MAXIMIZE) != 0 ? SW_SHOWMAXIMIZED : SW_SHOW);
    return LookUp(handle) != nullptr ? handle : nullptr;
}
