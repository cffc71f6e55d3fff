#pragma once

#include <list>
#include <map>
#include <vector>

#include "controls/my_list_box.h"
#include "funds/gold_funds_dlg.h"
#include "funds/settlement_dlg.h"
#include "funds/tran_account_dlg.h"
#include "lists/panel_host.h"
#include "orderentry/gold_bs_base_dlg.h"
#include "orderentry/panel_trade_dlg.h"
#include "orderentry/stop_check_listener.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/page_links.h"
#include "session/change_pwd_dlg.h"
#include "stops/gold_combination_dlg.h"

// Kinds of CMainDlg::BroadcastDyn.
inline constexpr int kBroadcastQuote = 1;  ///< data is a JSDyn1, packed the contract
inline constexpr int kBroadcastPress = 3;  ///< packed is x | y << 16

/// The dialog that the host embeds: a menu at the left, beside it one of six pages. It owns the
/// pages and the panels, hands quotes on to them, keeps the session's timers and handles the core's
/// events. It holds no trading data: each page keeps its own.
///
/// A packed contract is market | code << 16. All operations belong to the windows' thread.
class CMainDlg : public CDialog, public PanelHost, public StopCheckListener {
public:
    static constexpr UINT IDD = 10000;
    static constexpr int kMenuId = 10000;
    /// Runs from a server's order for a client report to the report.
    static constexpr UINT_PTR kClientReportTimer = 500;

    CMainDlg();
    ~CMainDlg() override;

    /// Shows or hides one page and leaves the others alone; the numbers are the menu's. An unknown
    /// one does nothing.
    void ShowPage(int page, int nCmd);
    /// Hands a push to the pages first, then to the panels that it is about. Answers 0.
    int BroadcastDyn(int kind, unsigned int packed, const void* data);
    /// Contracts whose quotes are wanted: the positions' until all were offered once, then only the
    /// order page's. Answers how many.
    int GetStkList(unsigned int* list, int capacity);

    // Panels. An unknown window is ignored.
    /// Takes the panel over.
    void AddPanel(CPanelTradeDlg* panel);
    /// Destroys one panel and forgets its contract.
    void RemovePanel(HWND hWnd);
    void DestroyPanels();
    void MovePanel(HWND hWnd, int x, int y, int w, int h);
    /// Shows the panel and, while logged in, its lock face or working face by `lock`.
    void ShowPanel(HWND hWnd, int nCmd, int lock);
    /// All panels back to their logged-out look.
    void ResetPanels();
    /// The lock face for a value other than 0, else the working face.
    void LockPanels(int lock);
    /// Gives a panel its contract and the funds; without one and logged out, the key is kept.
    void SetPanelStk(const CZebContract* contract, unsigned short market, unsigned short code,
                     HWND hWnd);
    /// The host's current contract, for the panel, the order page and the order list; kept for them
    /// while logged out.
    void ChangeStk(unsigned short market, unsigned short code, HWND hWnd);
    /// Gives the panels and the order page what was kept for them, and reads the orders.
    void ApplyKeptStks();
    /// Nothing while the server works the funds out: it tells the host itself.
    void ShowFundsLine(double equity, double available, double open_profit) override;
    void ShowFundsOnPanels(double equity, double available, double open_profit) override;
    void ShowOrdersOnPanels(const CZebOrder* orders, int count) override;
    void RefreshStopChecks() override;

    /// Reads the trading parameters and puts them to work everywhere.
    void ReloadTradeParam();
    /// Reads the contracts. Panels let theirs go first and find the new ones by market and code: no
    /// page ever points into a table that was cleared.
    void LoadContracts();

    CSettlementDlg& Settlement() { return m_dlgSettlement; }
    CGoldBSBaseDlg& BSBase() { return m_dlgBSBase; }
    CTranAccountDlg& TranAccount() { return m_dlgTranAccount; }
    CChangePwdDlg& ChangePwd() { return m_dlgChangePwd; }
    CGoldFundsdlg& Funds() { return m_dlgFunds; }
    CGOLDCombinationDlg& Combination() { return m_dlgCombination; }
    CGoldPositionDlg& Positions() { return m_report.Positions(); }
    CGoldOrderDlg& Orders() { return m_report.Orders(); }
    CGoldTradeDlg& Trades() { return m_report.Trades(); }
    CMyListBox& Menu() { return m_menu; }
    /// Those whose windows are alive; a host may have closed one behind our back.
    std::vector<CPanelTradeDlg*> LivePanels() const;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    LRESULT OnTradeParamChanged(WPARAM wParam, LPARAM lParam);
    LRESULT OnCoreEvent(WPARAM wParam, LPARAM lParam);
    LRESULT OnRunOnUiThread(WPARAM wParam, LPARAM lParam);
    void OnTimer(UINT_PTR id);
    void OnDestroy();
    void OnShowWindow(BOOL bShow, UINT status);
    DECLARE_MESSAGE_MAP()

private:
    CPanelTradeDlg* FindPanel(HWND hWnd) const;
    int AppendPositionKeys(unsigned int* list, int capacity);
    static void CheckFunds();
    void SendClientReport();

    ReportLink m_report;  ///< before the page that holds on to it
    StopLink m_stopLink;

    unsigned char m_bStkListDone = 0;  ///< all positions have been offered to GetStkList once
    void* m_hPanelOwner = nullptr;
    std::list<CPanelTradeDlg*> m_arrPanels;      ///< owned
    std::map<HWND, unsigned int> m_mapPanelStk;  ///< kept for panels while logged out
    unsigned int m_dwCurStk = 0;                 ///< kept for the order page while logged out
    char m_szScratch[8192] = {};
    CSettlementDlg m_dlgSettlement;
    CGoldBSBaseDlg m_dlgBSBase{m_report};
    CTranAccountDlg m_dlgTranAccount;
    CChangePwdDlg m_dlgChangePwd;
    CGoldFundsdlg m_dlgFunds;
    CWnd* m_pCurPage = nullptr;
    CGOLDCombinationDlg m_dlgCombination;
    CMyListBox m_menu;
};
