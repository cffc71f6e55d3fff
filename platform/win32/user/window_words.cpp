#include <cstring>

#include "platform/text/gbk.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

constexpr DWORD kErrorInvalidIndex = 1413;

// Words behind the window's own record: pages keep pointers there.
template <class Value>
Value ReadExtra(const Window& window, int index) {
    Value value{};
    const auto start = static_cast<std::size_t>(index);
    if (index < 0 || start + sizeof value > window.extra.size()) {
        SetLastError(kErrorInvalidIndex);
        return 0;
    }
    std::memcpy(&value, window.extra.data() + start, sizeof value);
    return value;
}

template <class Value>
Value WriteExtra(Window& window, int index, Value value) {
    const auto start = static_cast<std::size_t>(index);
    if (index < 0 || start + sizeof value > window.extra.size()) {
        SetLastError(kErrorInvalidIndex);
        return 0;
    }
    const Value old = ReadExtra<Value>(window, index);
    std::memcpy(window.extra.data() + start, &value, sizeof value);
    return old;
}

LONG_PTR ChangeStyle(Window* window, int index, DWORD value) {
    const HWND handle = window->handle;
    DWORD& word = index == GWL_STYLE ? window->style : window->ex_style;
    STYLESTRUCT change{word, value};
    const auto wParam = static_cast<WPARAM>(index);
    SendMessageA(handle, WM_STYLECHANGING, wParam, reinterpret_cast<LPARAM>(&change));
    if (LookUp(handle) == nullptr) return 0;
    const DWORD old = word;
    word = change.styleNew;
    if (index == GWL_STYLE) {
        // What decides the window's place in the tree is settled at creation.
        constexpr DWORD kFixed = WS_CHILD;
        word = (word & ~kFixed) | (old & kFixed);
    }
    change.styleOld = old;
    LayoutChanged();
    SendMessageA(handle, WM_STYLECHANGED, wParam, reinterpret_cast<LPARAM>(&change));
    return static_cast<LONG>(old);
}

LONG_PTR GetWord(HWND handle, int index) {
    const Window* const window = FindLive(handle);
    if (window == nullptr) return 0;
    switch (index) {
        case GWL_STYLE: return static_cast<LONG>(window->style);
        case GWL_EXSTYLE: return static_cast<LONG>(window->ex_style);
        case GWLP_ID: return static_cast<LONG_PTR>(window->id);
        case GWLP_WNDPROC: return reinterpret_cast<LONG_PTR>(window->procedure);
        case GWLP_HINSTANCE: return reinterpret_cast<LONG_PTR>(window->instance);
        case GWLP_USERDATA: return window->user_data;
        case GWLP_HWNDPARENT: {
            const Window* const up = window->parent != nullptr ? window->parent : window->owner;
            return up != nullptr ? reinterpret_cast<LONG_PTR>(up->handle) : 0;
        }
        default: return ReadExtra<LONG_PTR>(*window, index);
    }
}

LONG_PTR SetWord(HWND handle, int index, LONG_PTR value) {
    Window* const window = FindLive(handle);
    if (window == nullptr) return 0;
    LONG_PTR old = 0;
    switch (index) {
        case GWL_STYLE:
        case GWL_EXSTYLE: return ChangeStyle(window, index, static_cast<DWORD>(value));
        case GWLP_ID:
            old = static_cast<LONG_PTR>(window->id);
            window->id = static_cast<UINT_PTR>(value);
            return old;
        case GWLP_WNDPROC:
            if (value == 0) return Fail(ERROR_INVALID_PARAMETER);
            old = reinterpret_cast<LONG_PTR>(window->procedure);
            window->procedure = reinterpret_cast<WNDPROC>(value);
            return old;
        case GWLP_HINSTANCE:
            old = reinterpret_cast<LONG_PTR>(window->instance);
            window->instance = reinterpret_cast<HINSTANCE>(value);
            return old;
        case GWLP_USERDATA:
            old = window->user_data;
            window->user_data = value;
            return old;
        default: return WriteExtra<LONG_PTR>(*window, index, value);
    }
}

}  // namespace

LRESULT DefaultSetText(Window* window, const char* text) {
    window->text = text != nullptr ? text : "";
    const bool titled = (window->style & WS_CAPTION) == WS_CAPTION;
    if (titled && IsShown(window)) PaintFrame(window);
    return TRUE;
}

LRESULT DefaultGetText(const Window* window, char* buffer, std::size_t size) {
    if (size == 0 || buffer == nullptr) return 0;
    const std::size_t length = text::PrefixLength(window->text, size - 1);
    std::memcpy(buffer, window->text.data(), length);
    buffer[length] = '\0';
    return static_cast<LRESULT>(length);
}

}  // namespace winbase

using namespace winbase;

LONG WINAPI GetWindowLongA(HWND window, int index) {
    const Window* const found = index >= 0 ? FindLive(window) : nullptr;
    if (index >= 0) return found != nullptr ? ReadExtra<LONG>(*found, index) : 0;
    return static_cast<LONG>(GetWord(window, index));
}

LONG WINAPI SetWindowLongA(HWND window, int index, LONG value) {
    Window* const found = index >= 0 ? FindLive(window) : nullptr;
    if (index >= 0) return found != nullptr ? WriteExtra<LONG>(*found, index, value) : 0;
    return static_cast<LONG>(SetWord(window, index, value));
}

LONG_PTR WINAPI GetWindowLongPtrA(HWND window, int index) { return GetWord(window, index); }

LONG_PTR WINAPI SetWindowLongPtrA(HWND window, int index, LONG_PTR value) {
    return SetWord(window, index, value);
}

ULONG_PTR WINAPI GetClassLongPtrA(HWND handle, int index) {
    const Window* const window = FindLive(handle);
    if (window == nullptr || window->window_class == nullptr) return 0;
    switch (index) {
        case GCL_STYLE: return window->window_class->style;
        case GCLP_HBRBACKGROUND:
            return reinterpret_cast<ULONG_PTR>(window->window_class->background);
        case GCLP_HCURSOR: return reinterpret_cast<ULONG_PTR>(window->window_class->cursor);
        default: return static_cast<ULONG_PTR>(Fail(kErrorInvalidIndex));
    }
}

ULONG_PTR WINAPI SetClassLongPtrA(HWND handle, int index, LONG_PTR value) {
    Window* const window = FindLive(handle);
    if (window == nullptr || window->window_class == nullptr) return 0;
    const ULONG_PTR old = GetClassLongPtrA(handle, index);
    switch (index) {
        case GCL_STYLE: window->window_class->style = static_cast<UINT>(value); break;
        case GCLP_HBRBACKGROUND:
            window->window_class->background = reinterpret_cast<HBRUSH>(value);
            break;
        case GCLP_HCURSOR: window->window_class->cursor = reinterpret_cast<HCURSOR>(value); break;
        default: break;
    }
    return old;
}

BOOL WINAPI SetPropA(HWND handle, LPCSTR name, HANDLE data) {
    Window* const window = FindLive(handle);
    if (window == nullptr || name == nullptr || IS_INTRESOURCE(name)) return FALSE;
    window->properties[name] = data;
    return TRUE;
}

HANDLE WINAPI GetPropA(HWND handle, LPCSTR name) {
    const Window* const window = FindLive(handle);
    if (window == nullptr || name == nullptr || IS_INTRESOURCE(name)) return nullptr;
    const auto found = window->properties.find(name);
    return found != window->properties.end() ? found->second : nullptr;
}

HANDLE WINAPI RemovePropA(HWND handle, LPCSTR name) {
    const HANDLE data = GetPropA(handle, name);
    Window* const window = LookUp(handle);
    if (window != nullptr && name != nullptr && !IS_INTRESOURCE(name))
        window->properties.erase(name);
    return data;
}

BOOL WINAPI SetWindowTextA(HWND handle, LPCSTR text) {
    if (FindLive(handle) == nullptr) return FALSE;
    return static_cast<BOOL>(SendMessageA(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)));
}

int WINAPI GetWindowTextA(HWND handle, LPSTR text, int size) {
    if (text == nullptr || size <= 0) return 0;
    *text = '\0';
    if (FindLive(handle) == nullptr) return 0;
    return static_cast<int>(SendMessageA(handle, WM_GETTEXT, static_cast<WPARAM>(size),
                                         reinterpret_cast<LPARAM>(text)));
}

int WINAPI GetWindowTextLengthA(HWND handle) {
    if (FindLive(handle) == nullptr) return 0;
    return static_cast<int>(SendMessageA(handle, WM_GETTEXTLENGTH, 0, 0));
}
