#include "orderentry/contract_rules.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/event_call.h"
#include "plugin/event_cases.h"
#include "plugin/settings/login_blocks.h"
#include "plugin/settings/process_values.h"

namespace events {

namespace {

/// The button that starts a login; the main dialog has none of its own.
constexpr int kLoginButton = IDOK;

void PostTo(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (window != nullptr) ::PostMessageA(window, message, wParam, lParam);
}

HWND GrandparentOf(HWND window) {
    const HWND parent = ::GetParent(window);
    return parent != nullptr ? ::GetParent(parent) : nullptr;
}

/// The core starts trading, and every list is asked for.
void StartTrading(CUICallBack* core) {
    if (core != nullptr) core->BeginTrading();
    g_dwLastActivityTick = 1;
    if (core == nullptr) return;
    core->QueryInitial1();
    core->QueryInitial2();
    core->QueryInitial3();
    if (g_bNeedShowStopLossAndProfit != 0) core->StartStopMonitor();
}

void SendToPanels(const EventCall& call, CMainDlg& shell) {
    std::vector<HWND> windows;
    for (const CPanelTradeDlg* panel : shell.LivePanels()) windows.push_back(panel->GetSafeHwnd());
    for (const HWND window : windows) {
        ::SendMessageA(window, WM_CORE_EVENT, call.wParam, call.lParam);
    }
}

}  // namespace

// Pages, funds and the activity tick stay as they are, and nothing connects again: a new session
// begins with a new login.
void OnConnectionLost(EventCall& call) {
    const auto status = static_cast<int>(call.lParam);
    if (status != ZEB_CONNECTION_BROKEN && status != ZEB_CONNECTION_DROPPED) return;
    // Title and texts are misspelt, and stay so: people and their tools know them.
    call.Box(
        status == ZEB_CONNECTION_BROKEN ? "黄金交易：联接断开了！" : "黄金交易联：被服务器断开了！",
        "提示a1", MB_ICONINFORMATION | MB_TOPMOST);
    if (CUICallBack* core = call.Core()) core->Logout();
    CMainDlg* shell = call.Shell();
    if (shell == nullptr) return;
    shell->ResetPanels();
    PostTo(GrandparentOf(call.Window()), WM_SESSION_LOST, 0, kModuleNumber);
}

// It is about the login alone; the payload is the core's own and good for this call only.
void OnSettleResult(EventCall& call) { TellLoginDialog(call.wParam, call.lParam); }

void OnLoginResult(EventCall& call) { TakeLoginBlock(call.wParam, call.lParam); }

void OnContractsReady(EventCall& call) {
    CMainDlg& shell = *call.Shell();
    shell.LoadContracts();
    // The positions came before; only with the contracts their profits can be worked out.
    shell.Positions().Refresh(shell.Positions().m_bDetail, false);
    if (g_pfnHostCallBack != nullptr) g_pfnHostCallBack(HOST_CONTRACTS_LOADED, kModuleNumber, 0);
}

void OnPasswordResult(EventCall& call) {
    if (!call.Failed()) call.Shell()->ChangePwd().ClearPasswords();
    call.Box(call.TextOr("修改密码失败！"), "提示3",
             call.Failed() ? MB_ICONERROR : MB_ICONINFORMATION);
}

// The one moment at which the trading pages go live.
void OnInitialLoadDone(EventCall& call) {
    CMainDlg& shell = *call.Shell();
    StartTrading(call.Core());
    shell.Combination().OnCoreEvent(call.wParam, call.lParam);
    PostTo(g_hFrameWnd, WM_FRAME_NOTICE, kFrameReady, 0);
    shell.TranAccount().Child().LoadBanks();
    SendToPanels(call, shell);
    shell.ApplyKeptStks();
    if (CUICallBack* core = call.Core()) core->NotifyInitDone(kModuleNumber);
    shell.Settlement().Query("");
}

void OnNotice(EventCall& call) {
    if (!call.Failed()) {
        if (!call.HasBlock()) return;
        ShowEventBox(call.Window(), {.kind = EventBox::Kind::kNotice,
                                     .text = call.Text(),
                                     .title = "通知",
                                     .okWord = "确认"});
        return;
    }
    call.Box(call.Text(), "登录失败", MB_OK);
    if (CUICallBack* core = call.Core()) core->Logout();
    if (call.Shell() == nullptr) return;
    ::EnableWindow(::GetDlgItem(call.Window(), kLoginButton), TRUE);
}

void OnSystemNotice(EventCall& call) {
    if (call.Failed()) {
        call.Box(call.TextOr("内存不足"), "提示12", MB_ICONERROR);
        return;
    }
    const std::string notice = call.Text();
    if (notice.empty()) return;
    ShowEventBox(
        call.Window(),
        {.kind = EventBox::Kind::kNotice, .text = notice, .title = "交易通知", .okWord = "确定"});
}

}  // namespace events
