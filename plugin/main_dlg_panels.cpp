#include "plugin/contract/core_access.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/funds_text.h"
#include "plugin/logged_in.h"
#include "plugin/main_dlg.h"
#include "plugin/settings/process_values.h"

// Panels and contracts of the main dialog.

namespace {

unsigned int PackKey(unsigned short market, unsigned short code) {
    return market | static_cast<unsigned int>(code) << 16;
}

}  // namespace

void CMainDlg::AddPanel(CPanelTradeDlg* panel) { m_arrPanels.push_back(panel); }

CPanelTradeDlg* CMainDlg::FindPanel(HWND hWnd) const {
    if (hWnd == nullptr) return nullptr;
    for (CPanelTradeDlg* panel : m_arrPanels) {
        if (panel->GetSafeHwnd() == hWnd) return panel;
    }
    return nullptr;
}

std::vector<CPanelTradeDlg*> CMainDlg::LivePanels() const {
    std::vector<CPanelTradeDlg*> panels;
    for (CPanelTradeDlg* panel : m_arrPanels) {
        if (panel->GetSafeHwnd() != nullptr) panels.push_back(panel);
    }
    return panels;
}

void CMainDlg::RemovePanel(HWND hWnd) {
    CPanelTradeDlg* panel = FindPanel(hWnd);
    if (panel == nullptr) return;
    m_arrPanels.remove(panel);
    m_mapPanelStk.erase(hWnd);
    panel->DestroyWindow();
    delete panel;
}

void CMainDlg::DestroyPanels() {
    std::list<CPanelTradeDlg*> panels;
    panels.swap(m_arrPanels);
    for (CPanelTradeDlg* panel : panels) {
        panel->DestroyWindow();
        delete panel;
    }
}

void CMainDlg::MovePanel(HWND hWnd, int x, int y, int w, int h) {
    if (CPanelTradeDlg* panel = FindPanel(hWnd)) panel->MoveWindow(x, y, w, h);
}

void CMainDlg::ShowPanel(HWND hWnd, int nCmd, int lock) {
    CPanelTradeDlg* panel = FindPanel(hWnd);
    if (panel == nullptr) return;
    panel->ShowWindow(nCmd);
    if (LoggedIn()) panel->ShowLocked(lock != 0);
}

void CMainDlg::ResetPanels() {
    for (CPanelTradeDlg* panel : LivePanels()) panel->ShowLogin();
}

void CMainDlg::LockPanels(int lock) {
    for (CPanelTradeDlg* panel : LivePanels()) panel->ShowLocked(lock != 0);
}

void CMainDlg::SetPanelStk(const CZebContract* contract, unsigned short market, unsigned short code,
                           HWND hWnd) {
    if (contract == nullptr && !LoggedIn()) {
        m_mapPanelStk[hWnd] = PackKey(market, code);
        return;
    }
    CPanelTradeDlg* panel = FindPanel(hWnd);
    if (panel == nullptr) return;
    panel->BindContract(market, code, contract);
    // A floating loss lowers the funds on show here whoever works the funds out: panels are set up
    // between two answers, and the figure must not rise until the next one.
    panel->ShowFunds(g_dEquity, ShownAvailable(g_dAvailable, Positions().m_dProfitHold),
                     Positions().m_dProfitOpen);
}

void CMainDlg::ChangeStk(unsigned short market, unsigned short code, HWND hWnd) {
    if (!LoggedIn()) {
        m_dwCurStk = PackKey(market, code);
        SetPanelStk(nullptr, market, code, hWnd);
        return;
    }
    const CZebContract* contract = m_dlgBSBase.FindContractBySymbol(PackKey(market, code));
    SetPanelStk(contract, market, code, hWnd);
    m_dlgBSBase.OrderPage().SetContract(contract);
    Orders().Refresh(true);
}

void CMainDlg::ApplyKeptStks() {
    const std::map<HWND, unsigned int> kept = m_mapPanelStk;
    for (const auto& [hWnd, packed] : kept) {
        SetPanelStk(m_dlgBSBase.FindContractBySymbol(packed), LOWORD(packed), HIWORD(packed), hWnd);
        Orders().Refresh(true);
    }
    // The list is read even when no panel has a contract.
    Orders().Refresh(true);
    m_dlgBSBase.OrderPage().SetContract(m_dlgBSBase.FindContractBySymbol(m_dwCurStk));
}

void CMainDlg::LoadContracts() {
    const std::vector<CPanelTradeDlg*> panels = LivePanels();
    for (CPanelTradeDlg* panel : panels) {
        panel->BindContract(LOWORD(panel->Packed()), HIWORD(panel->Packed()), nullptr);
    }
    m_dlgBSBase.LoadContracts();
    for (CPanelTradeDlg* panel : panels) {
        const unsigned int packed = panel->Packed();
        if (packed == 0) continue;  // it had none, whatever the host has under that key
        const CZebContract* contract = m_dlgBSBase.FindContractBySymbol(packed);
        if (contract != nullptr) panel->BindContract(LOWORD(packed), HIWORD(packed), contract);
    }
}

void CMainDlg::ShowFundsLine(double equity, double available, double open_profit) {
    CUICallBack* const core = GetUICallBack();
    if (g_nUseProfile != 1 || core == nullptr) return;
    core->SetFundsText(FundsLine(equity, available, open_profit).c_str(), kModuleNumber);
}

void CMainDlg::ShowFundsOnPanels(double equity, double available, double open_profit) {
    for (CPanelTradeDlg* panel : LivePanels()) panel->ShowFunds(equity, available, open_profit);
}

void CMainDlg::ShowOrdersOnPanels(const CZebOrder* orders, int count) {
    for (CPanelTradeDlg* panel : LivePanels()) panel->ShowOrders(orders, count);
}

void CMainDlg::RefreshStopChecks() {
    m_dlgBSBase.OrderPage().RefreshStopCheck();
    for (CPanelTradeDlg* panel : LivePanels()) panel->RefreshStopCheck();
}
