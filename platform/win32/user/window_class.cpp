#include "platform/win32/user/window_class.h"

#include <memory>
#include <vector>

#include "platform/text/letter_case.h"
#include "platform/win32/controls/register.h"
#include "platform/win32/kernel/last_error.h"

namespace winbase {

namespace {

constexpr ATOM kFirstAtom = 0xC000;
constexpr int kMostExtra = 4096;

std::vector<std::unique_ptr<WindowClass>>& Classes() {
    static auto& classes = *new std::vector<std::unique_ptr<WindowClass>>;
    return classes;
}

bool Named(const WindowClass& window_class, LPCSTR name) {
    if (IS_INTRESOURCE(name)) return window_class.atom == LOWORD(reinterpret_cast<ULONG_PTR>(name));
    return text::EqualNoCase(window_class.name, name);
}

HINSTANCE ModuleOr(HINSTANCE instance) {
    return instance != nullptr ? instance : GetModuleHandleA(nullptr);
}

}  // namespace

WindowClass* FindClass(HINSTANCE module, LPCSTR name) {
    RegisterStandardControls();
    if (name == nullptr) return nullptr;
    WindowClass* shared = nullptr;
    for (const auto& known : Classes()) {
        if (!Named(*known, name)) continue;
        if (known->module == ModuleOr(module)) return known.get();
        if (known->system) shared = known.get();
    }
    return shared;
}

}  // namespace winbase

using namespace winbase;

ATOM WINAPI RegisterClassA(const WNDCLASSA* window_class) {
    if (window_class == nullptr || window_class->lpszClassName == nullptr ||
        IS_INTRESOURCE(window_class->lpszClassName) || window_class->lpfnWndProc == nullptr ||
        window_class->cbWndExtra < 0 || window_class->cbWndExtra > kMostExtra ||
        window_class->cbClsExtra < 0) {
        return static_cast<ATOM>(Fail(ERROR_INVALID_PARAMETER));
    }
    RegisterStandardControls();
    const HINSTANCE module = ModuleOr(window_class->hInstance);
    for (const auto& known : Classes()) {
        if (known->module == module && Named(*known, window_class->lpszClassName)) {
            return static_cast<ATOM>(Fail(ERROR_CLASS_ALREADY_EXISTS));
        }
    }
    static ATOM next_atom = kFirstAtom;
    auto added = std::make_unique<WindowClass>();
    added->name = window_class->lpszClassName;
    added->module = module;
    added->atom = next_atom++;
    added->system = (window_class->style & CS_GLOBALCLASS) != 0;
    added->style = window_class->style;
    added->procedure = window_class->lpfnWndProc;
    added->class_extra = window_class->cbClsExtra;
    added->window_extra = window_class->cbWndExtra;
    added->icon = window_class->hIcon;
    added->cursor = window_class->hCursor;
    added->background = window_class->hbrBackground;
    Classes().push_back(std::move(added));
    return Classes().back()->atom;
}

BOOL WINAPI UnregisterClassA(LPCSTR name, HINSTANCE instance) {
    if (name == nullptr) return Fail(ERROR_INVALID_PARAMETER);
    auto& classes = Classes();
    for (auto known = classes.begin(); known != classes.end(); ++known) {
        if ((*known)->module != ModuleOr(instance) || !Named(**known, name)) continue;
        if ((*known)->window_count > 0) return Fail(ERROR_CLASS_HAS_WINDOWS);
        classes.erase(known);
        return TRUE;
    }
    return Fail(ERROR_CLASS_DOES_NOT_EXIST);
}

BOOL WINAPI GetClassInfoA(HINSTANCE instance, LPCSTR name, WNDCLASSA* window_class) {
    const WindowClass* const found = FindClass(instance, name);
    if (found == nullptr || window_class == nullptr) return Fail(ERROR_CLASS_DOES_NOT_EXIST);
    *window_class = {};
    window_class->style = found->style;
    window_class->lpfnWndProc = found->procedure;
    window_class->cbClsExtra = found->class_extra;
    window_class->cbWndExtra = found->window_extra;
    window_class->hInstance = found->module;
    window_class->hIcon = found->icon;
    window_class->hCursor = found->cursor;
    window_class->hbrBackground = found->background;
    window_class->lpszClassName = name;
    return TRUE;
}

int WINAPI GetClassNameA(HWND handle, LPSTR name, int size) {
    const Window* const window = FindLive(handle);
    if (window == nullptr || name == nullptr || size <= 0) return 0;
    const std::string text =
        window->window_class != nullptr ? window->window_class->name : "#32769";
    lstrcpynA(name, text.c_str(), size);
    return lstrlenA(name);
}
