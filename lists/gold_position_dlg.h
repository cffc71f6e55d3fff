#pragma once

#include "controls/bmp_button_no_pic.h"
#include "controls/ower_draw_list_view.h"
#include "controls/v_button.h"
#include "lists/panel_host.h"
#include "orderentry/contract_rules.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/contract/earray.h"
#include "plugin/contract/position_records.h"

/// The open positions, as totals or as the lots that they consist of, with the buttons that close
/// them. It never edits rows: each change reads the whole list anew.
class CGoldPositionDlg : public CDialog {
public:
    static constexpr UINT IDD = 10006;
    static constexpr int kList = 10024;
    static constexpr int kMode = 10008;
    static constexpr int kClose1 = 10027;
    static constexpr int kClose30 = 10023;
    static constexpr int kClose50 = 10028;
    static constexpr int kClose70 = 10029;
    static constexpr int kClose100 = 10030;
    static constexpr int kStop = 10031;

    /// The window goes first, while the members that paint it are still there.
    ~CGoldPositionDlg() override { DestroyWindow(); }

    /// Sums over all totals, as of the last Refresh.
    double m_dProfitOpen = 0;
    double m_dProfitHold = 0;
    double m_dLossHold = 0;
    bool m_bDetail = false;  ///< lots are shown

    /// The host of the panels; may be null.
    void SetOwner(PanelHost* host) { m_pPanelHost = host; }
    /// Where contracts are found, and who gets what the user does with rows.
    void Connect(const ContractSource* contracts, HWND row_receiver);

    /// Reads lots (`bDetailList`) or totals from the core if `bFetch`, shows them if they are on
    /// show, and works out and publishes the sums anew.
    void Refresh(bool bDetailList, bool bFetch);
    void OnQuote(unsigned int packed, const JSDyn1& quote);

    /// Null for an index that is not there.
    const CZebPosition* GetPositionAt(int index) const;
    /// Available lots of the first total of the contract with the other direction; 0 without one.
    int GetOppositeAvailable(const char* contract, char direction) const;
    bool HasPosition(const char* contract) const;

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()

private:
    PanelHost* m_pPanelHost = nullptr;
    const ContractSource* m_pContracts = nullptr;
    HWND m_hOwner = nullptr;  ///< gets the row messages
    EArray<CZebPosition> m_positions{32};
    EArray<PositionGroup> m_groups{32};
    COwerDrawListView m_list;
    CVButton m_btnMode;
    CBmpButtonNoPic m_btnClose1;
    CBmpButtonNoPic m_btnClose30;
    CBmpButtonNoPic m_btnClose50;
    CBmpButtonNoPic m_btnClose70;
    CBmpButtonNoPic m_btnClose100;
    CBmpButtonNoPic m_btnStop;
};
