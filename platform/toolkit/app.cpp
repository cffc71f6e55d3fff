#include "platform/toolkit/app.h"

#include "platform/toolkit/thread_state.h"

namespace {

/// The application whose loop this thread runs, for the filter of messages.
class RunningScope {
public:
    explicit RunningScope(CWinApp* app) : former_(toolkit::State().running) { Set(app); }
    ~RunningScope() { Set(former_); }
    RunningScope(const RunningScope&) = delete;
    RunningScope& operator=(const RunningScope&) = delete;

private:
    static void Set(CWinApp* app) {
        toolkit::State().running = app;
        toolkit::UpdateFilter();
    }
    CWinApp* former_;
};

}  // namespace

int CWinApp::ExitInstance() { return exit_code_; }

int CWinApp::Run() {
    const RunningScope running(this);
    MSG message{};
    for (;;) {
        LONG idle_count = 0;
        while (!::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE) && OnIdle(idle_count)) {
            ++idle_count;
        }
        if (::GetMessageA(&message, nullptr, 0, 0) <= 0) break;
        toolkit::Dispatch(message);
    }
    exit_code_ = static_cast<int>(message.wParam);
    return exit_code_;
}

BOOL CWinApp::OnIdle(LONG) { return FALSE; }

BOOL CWinApp::PreTranslateMessage(MSG* message) { return toolkit::WalkPreTranslate(message); }

int AfxWinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    CWinApp* app = AfxGetApp();
    if (app->InitInstance()) app->Run();
    return app->ExitInstance();
}
