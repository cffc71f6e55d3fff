#pragma once

#include "platform/toolkit/wnd.h"

/// The application object of a module. A program runs its loop; a library has one for its settings,
/// and lives under the loop of its host.
class TOOLKIT_API CWinApp : public CCmdTarget {
public:
    LPCSTR m_pszAppName;  ///< title of boxes that have none
    HINSTANCE m_hInstance = nullptr;
    CWnd* m_pMainWnd = nullptr;

    explicit CWinApp(LPCSTR name = nullptr) : m_pszAppName(name) {}

    /// FALSE when the module cannot start.
    virtual BOOL InitInstance() { return TRUE; }
    /// What the program answers to its caller after Run.
    virtual int ExitInstance();
    /// The message loop; ends with WM_QUIT.
    virtual int Run();
    /// Called while nothing waits; count starts at 0 after each message. TRUE asks for another
    /// call.
    virtual BOOL OnIdle(LONG count);
    /// Sees each message that is fetched while Run runs, also in loops of boxes and dialogs; TRUE
    /// keeps it from being dispatched. By default it goes to the windows.
    virtual BOOL PreTranslateMessage(MSG* message);

private:
    int exit_code_ = 0;
};

/// A program's life: InitInstance, Run unless that failed, ExitInstance.
TOOLKIT_API int AfxWinMain(HINSTANCE instance, HINSTANCE former, LPSTR command_line, int show);

namespace toolkit {

/// Offers a message to PreTranslateMessage of its window and of those above it.
bool WalkPreTranslate(MSG* message);

}  // namespace toolkit
