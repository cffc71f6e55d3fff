#include "platform/toolkit/module.h"

#include <cstdio>
#include <set>
#include <string>

#include "platform/toolkit/app.h"

namespace {

AFX_MODULE_STATE* program_module = nullptr;
thread_local AFX_MODULE_STATE* current_module = nullptr;

HINSTANCE ModuleAt(const void* address) {
    HMODULE module = nullptr;
    ::GetModuleHandleExA(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        static_cast<LPCSTR>(address), &module);
    return module;
}

}  // namespace

AFX_MODULE_STATE::AFX_MODULE_STATE(CWinApp& app, std::span<const toolkit::TemplateTable> tables,
                                   const void* inside)
    : app_(app), instance_(ModuleAt(inside)), tables_(tables) {
    app_.m_hInstance = instance_;
    const bool in_program = instance_ == ::GetModuleHandleA(nullptr);
    if (in_program && program_module == nullptr) program_module = this;
}

const toolkit::DialogTemplate* AFX_MODULE_STATE::FindTemplate(UINT id) const {
    for (const toolkit::TemplateTable& table : tables_) {
        for (const toolkit::DialogTemplate& dialog : table) {
            if (dialog.id == id) return &dialog;
        }
    }
    return nullptr;
}

AFX_MODULE_STATE* AfxGetModuleState() {
    return current_module != nullptr ? current_module : program_module;
}

CWinApp* AfxGetApp() {
    AFX_MODULE_STATE* module = AfxGetModuleState();
    return module != nullptr ? &module->App() : nullptr;
}

CWnd* AfxGetMainWnd() {
    CWinApp* app = AfxGetApp();
    return app != nullptr ? app->m_pMainWnd : nullptr;
}

HINSTANCE AfxGetInstanceHandle() {
    AFX_MODULE_STATE* module = AfxGetModuleState();
    return module != nullptr ? module->Instance() : ::GetModuleHandleA(nullptr);
}

HINSTANCE AfxGetResourceHandle() { return AfxGetInstanceHandle(); }

LPCSTR AfxRegisterWndClass(UINT style, HCURSOR cursor, HBRUSH background, HICON icon) {
    static std::set<std::string> names;
    const HINSTANCE instance = AfxGetInstanceHandle();
    char text[96];
    std::snprintf(text, sizeof(text), "Toolkit:%p:%x:%p:%p:%p", static_cast<void*>(instance), style,
                  static_cast<void*>(cursor), static_cast<void*>(background),
                  static_cast<void*>(icon));
    const char* name = names.insert(text).first->c_str();

    WNDCLASSA window_class{};
    if (::GetClassInfoA(instance, name, &window_class)) return name;
    window_class = {};
    window_class.style = style;
    window_class.lpfnWndProc = ::DefWindowProcA;
    window_class.hInstance = instance;
    window_class.hIcon = icon;
    window_class.hCursor = cursor;
    window_class.hbrBackground = background;
    window_class.lpszClassName = name;
    return ::RegisterClassA(&window_class) != 0 ? name : nullptr;
}

BOOL AfxInitRichEdit2() {
    // The library stays loaded: controls may outlive any module.
    static const HMODULE library = ::LoadLibraryA("riched20.dll");
    return library != nullptr;
}

namespace toolkit {

ModuleScope::ModuleScope(AFX_MODULE_STATE* module) : former_(current_module) {
    if (module != nullptr) current_module = module;
}

ModuleScope::~ModuleScope() { current_module = former_; }

}  // namespace toolkit
