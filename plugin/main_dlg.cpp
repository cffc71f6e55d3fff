#include "plugin/main_dlg.h"

#include "plugin/client_report.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/has_elapsed.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/event_dispatcher.h"
#include "plugin/event_post.h"
#include "plugin/logged_in.h"
#include "plugin/settings/process_values.h"

namespace {

constexpr UINT_PTR kFundsTimer = 1;
constexpr UINT kFundsTimerMillis = 90000;
/// So long after an order or a trade the funds are asked for, at the next tick of the timer.
constexpr DWORD kFundsDelayMillis = 2000;

constexpr int kMenuItemHeight = 22;
constexpr int kMenuPicture = 7;

/// What the host has the front end run on its thread.
using UiFunction = int(CALLBACK*)(int, int, int);

struct Place {
    CWnd* window;
    int x;
    int y;
    int width;
    int height;
};

void Show(CWnd& page, int nCmd) {
    if (page.GetSafeHwnd() != nullptr) page.ShowWindow(nCmd);
}

}  // namespace

BEGIN_MESSAGE_MAP(CMainDlg, CDialog)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_MESSAGE(WM_TRADE_PARAM_CHANGED, &CMainDlg::OnTradeParamChanged)
    ON_MESSAGE(WM_CORE_EVENT, &CMainDlg::OnCoreEvent)
    ON_MESSAGE(WM_RUN_ON_UI_THREAD, &CMainDlg::OnRunOnUiThread)
    ON_WM_TIMER()
    ON_WM_DESTROY()
    ON_WM_SHOWWINDOW()
END_MESSAGE_MAP()

CMainDlg::CMainDlg() { g_dwLastActivityTick = 0; }

CMainDlg::~CMainDlg() {
    // Panels may outlive the window, which the host can close first, but not their owner.
    DestroyPanels();
    DestroyWindow();
}

void CMainDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kMenuId, m_menu);
}

int CMainDlg::OnCreate(LPCREATESTRUCT create) {
    if (CDialog::OnCreate(create) == -1) return -1;
    m_dlgBSBase.Create(CGoldBSBaseDlg::IDD, this);
    Show(m_dlgBSBase, SW_SHOW);
    m_pCurPage = &m_dlgBSBase;
    Positions().SetOwner(this);
    Orders().SetOwner(this);
    m_dlgBSBase.OrderPage().Connect(&m_report, this, &m_stopLink);
    m_dlgTranAccount.Create(CTranAccountDlg::IDD, this);
    m_dlgChangePwd.Create(CChangePwdDlg::IDD, this);
    m_dlgFunds.Create(CGoldFundsdlg::IDD, this);
    m_dlgCombination.Create(CGOLDCombinationDlg::IDD, this);
    m_dlgCombination.SetContracts(&m_dlgBSBase);
    m_dlgSettlement.Create(CSettlementDlg::IDD, this);
    for (CWnd* page : {static_cast<CWnd*>(&m_dlgTranAccount), static_cast<CWnd*>(&m_dlgChangePwd),
                       static_cast<CWnd*>(&m_dlgFunds), static_cast<CWnd*>(&m_dlgCombination),
                       static_cast<CWnd*>(&m_dlgSettlement)}) {
        // They begin one pixel inside the menu: who paints last must not decide who is seen there.
        page->ModifyStyle(0, WS_CLIPSIBLINGS);
        Show(*page, SW_HIDE);
    }
    BeginCoreEvents(m_hWnd);
    return 0;
}

BOOL CMainDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    m_menu.ModifyStyle(0, WS_CLIPSIBLINGS);
    m_menu.ResetContent();
    if (CUICallBack* core = GetUICallBack()) {
        m_menu.SetBitmap(core->GetSkinBitmap(kSkinPages, kMenuPicture));
    }
    m_menu.SetItemHeight(0, kMenuItemHeight);
    SetTimer(kFundsTimer, kFundsTimerMillis, nullptr);
    return TRUE;
}

void CMainDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    // Four pixels lie between the menu and the first page; the others begin at the menu's edge.
    // Hosts fit their frames to both, so the difference stays.
    const int page_width = cx - 143;
    const int page_height = cy - 4;
    const Place places[] = {
        {&m_menu, 1, 1, 139, cy - 2},
        {&m_dlgBSBase, 143, 2, page_width, page_height},
        {&m_dlgTranAccount, 139, 2, page_width, page_height},
        {&m_dlgChangePwd, 139, 2, page_width, page_height},
        {&m_dlgFunds, 139, 2, page_width, page_height},
        {&m_dlgCombination, 139, 2, page_width, page_height},
        {&m_dlgSettlement, 139, 2, page_width, page_height},
    };
    for (const Place& place : places) {
        if (place.window->GetSafeHwnd() == nullptr) continue;
        place.window->MoveWindow(place.x, place.y, place.width, place.height);
    }
}

BOOL CMainDlg::OnEraseBkgnd(CDC* dc) {
    CRect client;
    GetClientRect(&client);
    CUICallBack* core = GetUICallBack();
    const CBrush brush(core != nullptr ? core->GetSkinColor() : COLORREF{});
    ::FillRect(dc->GetSafeHdc(), &client, brush);
    if (m_menu.GetSafeHwnd() != nullptr) m_menu.Invalidate();
    return TRUE;
}

void CMainDlg::OnShowWindow(BOOL bShow, UINT status) {
    CDialog::OnShowWindow(bShow, status);
    if (bShow == TRUE) Invalidate();
}

void CMainDlg::OnDestroy() {
    EndCoreEvents(m_hWnd);
    KillTimer(kFundsTimer);
    CDialog::OnDestroy();
}

void CMainDlg::ShowPage(int page, int nCmd) {
    switch (page) {
        case 0:
        case 1:
        case 2:
        case 3:
        case 17:
            Show(m_dlgBSBase, nCmd);
            m_dlgBSBase.SetPage(page);
            break;
        case 4:
            Show(m_dlgFunds, nCmd);
            if (nCmd != 0) m_dlgFunds.RequestFunds();
            break;
        case 5:
            if (nCmd != 0) ReloadTradeParam();
            break;
        case 6: Show(m_dlgCombination, nCmd); break;
        case 7: Show(m_dlgTranAccount, nCmd); break;
        case 32: Show(m_dlgSettlement, nCmd); break;
        default: break;
    }
}

void CMainDlg::ReloadTradeParam() {
    if (CUICallBack* core = GetUICallBack()) {
        CTradeParam param{};
        core->GetTradeParam(&param);
        core->ApplyTradeParam(&param);
    }
    m_dlgBSBase.OrderPage().ReloadSettings();
    for (CPanelTradeDlg* panel : LivePanels()) panel->ReloadSettings();
}

LRESULT CMainDlg::OnTradeParamChanged(WPARAM wParam, LPARAM) {
    if (wParam == 1) ReloadTradeParam();
    return 0;
}

LRESULT CMainDlg::OnCoreEvent(WPARAM wParam, LPARAM lParam) {
    DispatchCoreEvent(*this, wParam, lParam);
    return 0;
}

LRESULT CMainDlg::OnRunOnUiThread(WPARAM wParam, LPARAM lParam) {
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    const auto function = reinterpret_cast<UiFunction>(wParam);
    const auto* arguments = reinterpret_cast<const int*>(lParam);
    if (function != nullptr && arguments != nullptr) {
        function(arguments[0], arguments[1], arguments[2]);
    }
    return 0;
}

void CMainDlg::OnTimer(UINT_PTR id) {
    CheckFunds();
    CDialog::OnTimer(id);
    if (id == kClientReportTimer) SendClientReport();
}

// The tick stays as it is: once there was activity every tick of a timer asks for the funds, and an
// order or a trade puts that off by one tick at most.
void CMainDlg::CheckFunds() {
    if (g_dwLastActivityTick == 0) return;
    if (!HasElapsed(g_dwLastActivityTick, ::GetTickCount(), kFundsDelayMillis)) return;
    if (LoggedIn()) GetUICallBack()->QueryAccount(0);
}

// The timer comes back only with an answer that restarts it.
void CMainDlg::SendClientReport() {
    KillTimer(kClientReportTimer);
    if (!LoggedIn()) return;
    const std::string report = BuildClientReport(g_strReportChallenge);
    GetUICallBack()->SendFunctionRequest(kFunctionClientReport, report.c_str());
    GetUICallBack()->ShowStatusText("发送4", kStatusPlain);
}
