#include "plugin/qm_gold_trade_ui_app.h"

#include "plugin/settings/application_directory.h"
#include "plugin/settings/start_settings.h"

CQmGoldTradeUIApp::CQmGoldTradeUIApp() : CWinApp("QmGoldTradeUI") {}

BOOL CQmGoldTradeUIApp::InitInstance() {
    ::OleInitialize(nullptr);
    AfxEnableControlContainer(nullptr);
    ReadStartSettings();
    return CWinApp::InitInstance();
}

void EnsureStarted() {
    static bool started = false;
    if (started) return;
    started = true;
    AFX_MANAGE_STATE(AfxGetStaticModuleState())
    RememberApplicationDirectory();
    AfxInitRichEdit2();
    AfxGetApp()->InitInstance();
}
