#pragma once

#include "platform/toolkit/dialog_template.h"

class CWinApp;
class CWnd;

/// What belongs to one module, a program or a library: its instance, its application object and
/// its dialogs. Every module that uses the toolkit holds exactly one, made by IMPLEMENT_MODULE.
class TOOLKIT_API AFX_MODULE_STATE {
public:
    /// `inside` is any address in the module.
    AFX_MODULE_STATE(CWinApp& app, std::span<const toolkit::TemplateTable> tables,
                     const void* inside);
    AFX_MODULE_STATE(const AFX_MODULE_STATE&) = delete;
    AFX_MODULE_STATE& operator=(const AFX_MODULE_STATE&) = delete;

    CWinApp& App() const { return app_; }
    HINSTANCE Instance() const { return instance_; }
    /// Null when the module has no such dialog.
    const toolkit::DialogTemplate* FindTemplate(UINT id) const;

private:
    CWinApp& app_;
    HINSTANCE instance_;
    std::span<const toolkit::TemplateTable> tables_;
};

/// The state of the module that this call is compiled into.
TOOLKIT_MODULE_LOCAL AFX_MODULE_STATE* AfxGetStaticModuleState();
/// The state that is current in this thread: the one entered last, the program's when none is.
TOOLKIT_API AFX_MODULE_STATE* AfxGetModuleState();

TOOLKIT_API CWinApp* AfxGetApp();
TOOLKIT_API CWnd* AfxGetMainWnd();
TOOLKIT_API HINSTANCE AfxGetInstanceHandle();
/// Where templates are looked up: the same module.
TOOLKIT_API HINSTANCE AfxGetResourceHandle();

/// Registers a window class of the current module and answers its name, which stays valid. Equal
/// arguments answer the same class. Null when the system refuses.
TOOLKIT_API LPCSTR AfxRegisterWndClass(UINT style, HCURSOR cursor = nullptr,
                                       HBRUSH background = nullptr, HICON icon = nullptr);
/// Controls that come as components are not supported, so there is nothing to enable.
inline void AfxEnableControlContainer(void* = nullptr) {}
/// Loads what rich edit controls need; must precede the first template with one.
TOOLKIT_API BOOL AfxInitRichEdit2();

namespace toolkit {

/// Makes a module current for a scope. A null module changes nothing.
class TOOLKIT_API ModuleScope {
public:
    explicit ModuleScope(AFX_MODULE_STATE* module);
    ~ModuleScope();
    ModuleScope(const ModuleScope&) = delete;
    ModuleScope& operator=(const ModuleScope&) = delete;

private:
    AFX_MODULE_STATE* former_;
};

}  // namespace toolkit

#define AFX_MANAGE_STATE(module) const toolkit::ModuleScope TOOLKIT_UNIQUE(module_scope)(module);
#define TOOLKIT_UNIQUE(name) TOOLKIT_JOIN(name, __LINE__)
#define TOOLKIT_JOIN(name, line) TOOLKIT_PASTE(name, line)
#define TOOLKIT_PASTE(name, line) name##line

/// Once in one source of each module: its application object and its tables of templates
/// (an array of toolkit::TemplateTable, which may be empty only as an empty span).
#define IMPLEMENT_MODULE(app, tables)                       \
    AFX_MODULE_STATE* AfxGetStaticModuleState() {           \
        static AFX_MODULE_STATE state(app, tables, &state); \
        return &state;                                      \
    }                                                       \
    [[maybe_unused]] static const AFX_MODULE_STATE* const kModuleMade = AfxGetStaticModuleState();
