#include "plugin/qm_interface_ui.h"

#include <memory>

#include "plugin/logged_in.h"
#include "plugin/main_dlg.h"
#include "plugin/page_links.h"
#include "plugin/qm_gold_trade_ui_app.h"
#include "plugin/settings/process_values.h"

// The host's side of the exported class. The core's is in qm_interface_core.cpp.

namespace {

constexpr unsigned int kNoPanel = 0xFFFFFFFF;
/// Hosts number the pages from here.
constexpr int kFirstPage = 10000001;

HWND WindowOf(unsigned int number) {
    return reinterpret_cast<HWND>(static_cast<ULONG_PTR>(number));
}

unsigned int NumberOf(HWND window) {
    return static_cast<unsigned int>(reinterpret_cast<ULONG_PTR>(window));
}

/// Two coordinates or halves of a key in one number.
unsigned int Pack(unsigned int low, int high) {
    return (low & 0xFFFF) | static_cast<unsigned int>(high) << 16;
}

}  // namespace

// The order and the number of the fields are what hosts were built with.
static_assert(sizeof(std::atomic<CMainDlg*>) == sizeof(void*) &&
              std::atomic<CMainDlg*>::is_always_lock_free);
static_assert(sizeof(QmInterfaceUI) <= 4 * sizeof(void*));

QmInterfaceUI::QmInterfaceUI() { EnsureStarted(); }

QmInterfaceUI::QmInterfaceUI(const QmInterfaceUI& other)
    : CBaseUI(other), m_pUICallBack(other.m_pUICallBack), m_nLock(other.m_nLock) {}

QmInterfaceUI& QmInterfaceUI::operator=(const QmInterfaceUI& other) {
    if (this == &other) return *this;
    m_pUICallBack = other.m_pUICallBack;
    m_nLock = other.m_nLock;
    return *this;
}

QmInterfaceUI::~QmInterfaceUI() { DeleteMain(); }

void QmInterfaceUI::DeleteMain() {
    if (AliveMain() != nullptr) DestroyWindows();
    AFX_MANAGE_STATE(AfxGetStaticModuleState())
    delete m_pMainDlg.exchange(nullptr);
}

void QmInterfaceUI::SetCallBack(HostFunction function) {
    EnsureStarted();
    g_pfnHostCallBack = function;
}

void QmInterfaceUI::SetUICallBack(CUICallBack* core) {
    EnsureStarted();
    g_pUICallBack = core;
    m_pUICallBack = core;
}

void QmInterfaceUI::SetFrameWnd(HWND frame) { g_hFrameWnd = frame; }

CMainDlg* QmInterfaceUI::AliveMain() const {
    CMainDlg* const main = m_pMainDlg;
    return main != nullptr && ::IsWindow(main->GetSafeHwnd()) ? main : nullptr;
}

int QmInterfaceUI::Create(int x, int y, int w, int h, HWND parent) {
    DeleteMain();
    AFX_MANAGE_STATE(AfxGetStaticModuleState())
    g_hParentWnd = parent;
    auto* const main = new CMainDlg;
    m_pMainDlg = main;
    main->Create(CMainDlg::IDD, CWnd::FromHandle(parent));
    if (::IsWindow(main->GetSafeHwnd())) {
        main->MoveWindow(x, y, w, h);
        main->ShowWindow(SW_SHOW);
    }
    return 1;
}

unsigned int QmInterfaceUI::CreatePanel(int, int, int, int, HWND parent) {
    CMainDlg* const main = m_pMainDlg;
    if (main == nullptr) return kNoPanel;
    if (CUICallBack* core = GetUICallBack()) core->GetPanelBackColor(&crPanelBack);
    AFX_MANAGE_STATE(AfxGetStaticModuleState())
    auto panel = std::make_unique<CPanelTradeDlg>(MakePanelParts());
    if (!panel->Create(CPanelTradeDlg::IDD, CWnd::FromHandle(parent))) return kNoPanel;
    panel->ShowWindow(SW_HIDE);
    CPanelTradeDlg* const added = panel.release();
    main->AddPanel(added);
    added->MoveWindow(0, 0, 0, 0);
    added->SetOwner(main);
    return NumberOf(added->GetSafeHwnd());
}

void QmInterfaceUI::OnDestroyWindow(unsigned int window) {
    CMainDlg* const main = AliveMain();
    if (main == nullptr) return;
    if (window == 0) {
        DestroyWindows();
        return;
    }
    AFX_MANAGE_STATE(AfxGetStaticModuleState())
    main->RemovePanel(WindowOf(window));
}

void QmInterfaceUI::DestroyWindows() {
    AFX_MANAGE_STATE(AfxGetStaticModuleState())
    CMainDlg* const main = m_pMainDlg;
    main->DestroyPanels();
    main->DestroyWindow();
}

// Panels have parents of their own, and may be there without the main window.
void QmInterfaceUI::OnSize(int x, int y, int w, int h, unsigned int window) {
    CMainDlg* const main = m_pMainDlg;
    if (main == nullptr) return;
    AFX_MANAGE_STATE(AfxGetStaticModuleState())
    if (window != 0) {
        main->MovePanel(WindowOf(window), x, y, w, h);
    } else if (AliveMain() != nullptr) {
        main->MoveWindow(x, y, w, h);
    }
}

void QmInterfaceUI::ShowWindow(unsigned int command, unsigned int window) {
    CMainDlg* const main = m_pMainDlg;
    if (main == nullptr) return;
    AFX_MANAGE_STATE(AfxGetStaticModuleState())
    const auto nCmd = static_cast<int>(command);
    if (window != 0) {
        main->ShowPanel(WindowOf(window), nCmd, m_nLock);
    } else if (AliveMain() != nullptr) {
        main->ShowWindow(nCmd);
    }
}

void QmInterfaceUI::Close() {
    CMainDlg* const main = m_pMainDlg;
    if (main == nullptr || !LoggedIn()) return;
    AFX_MANAGE_STATE(AfxGetStaticModuleState())
    ShowWindow(SW_HIDE, 0);
    GetUICallBack()->Logout();
    main->ResetPanels();
}

void QmInterfaceUI::LockScreen(int lock) {
    CMainDlg* const main = m_pMainDlg;
    if (main == nullptr) return;
    AFX_MANAGE_STATE(AfxGetStaticModuleState())
    m_nLock = lock;
    main->LockPanels(lock);
}

void QmInterfaceUI::CurStkChanged(unsigned short market, unsigned short code, unsigned int window) {
    CMainDlg* const main = AliveMain();
    if (main == nullptr) return;
    AFX_MANAGE_STATE(AfxGetStaticModuleState())
    main->ChangeStk(market, code, WindowOf(window));
}

void QmInterfaceUI::OnDyn(unsigned int market, int code, const JSDyn1* quote) {
    if (CMainDlg* main = AliveMain()) {
        AFX_MANAGE_STATE(AfxGetStaticModuleState())
        main->BroadcastDyn(kBroadcastQuote, Pack(market, code), quote);
    }
}

void QmInterfaceUI::gMouseDown(POINT point) {
    if (CMainDlg* main = AliveMain()) {
        AFX_MANAGE_STATE(AfxGetStaticModuleState())
        const auto x = static_cast<unsigned int>(point.x);
        main->BroadcastDyn(kBroadcastPress, Pack(x, point.y), nullptr);
    }
}

int QmInterfaceUI::GetStkList(unsigned int* list, int capacity) {
    CMainDlg* const main = AliveMain();
    if (main == nullptr || !main->IsWindowVisible()) return 0;
    return main->GetStkList(list, capacity);
}

void QmInterfaceUI::OnRefresh() {
    if (CUICallBack* core = GetUICallBack()) core->RefreshOrders();
}

void QmInterfaceUI::ShowWindow_Script(int page, int command) {
    CMainDlg* const main = AliveMain();
    if (main == nullptr || page < kFirstPage) return;
    AFX_MANAGE_STATE(AfxGetStaticModuleState())
    main->ShowPage(page - kFirstPage, command);
}

CWnd* QmInterfaceUI::GetMainDlg() { return AliveMain(); }

CWnd* QmInterfaceUI::GetMenuCtrl(int&) {
    CMainDlg* const main = AliveMain();
    return main != nullptr ? &main->Menu() : nullptr;
}

HWND QmInterfaceUI::CreateConditionOrderDlg(HWND target) {
    CMainDlg* const main = AliveMain();
    if (main == nullptr) return nullptr;
    main->BSBase().SetConditionTarget(target);
    return main->BSBase().OrderPage().GetSafeHwnd();
}

CWnd* QmInterfaceUI::GetConditionParentDlg() {
    CMainDlg* const main = AliveMain();
    return main != nullptr ? &main->BSBase() : nullptr;
}

void QmInterfaceUI::OnCodeListChanged() {}

void QmInterfaceUI::CodeTableChanged(unsigned short) {}
