#pragma once

#include <span>

#include "controls/bmp_button_no_pic.h"
#include "controls/ower_draw_list_view.h"
#include "controls/v_button.h"
#include "lists/list_columns.h"
#include "lists/panel_host.h"
#include "lists/scoped_lock.h"
#include "orderentry/contract_rules.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/contract/earray.h"
#include "plugin/contract/order_records.h"

class CUICallBack;
struct CancelRequest;

/// The day's orders, all of them or those that can be cancelled, with the buttons that do it. It
/// never edits rows: each change reads the whole list anew.
class CGoldOrderDlg : public CDialog {
public:
    static constexpr UINT IDD = 10007;
    static constexpr int kList = 10024;
    static constexpr int kMode = 10008;
    static constexpr int kCancel = 10009;
    static constexpr int kCancelAll = 10021;

    /// The window goes first, while the members that paint it are still there.
    ~CGoldOrderDlg() override { DestroyWindow(); }

    /// The host of the panels; may be null.
    void SetOwner(PanelHost* host) { m_pPanelHost = host; }
    void Connect(const ContractSource* contracts) { m_pContracts = contracts; }
    /// Reads the orders from the core and shows them, on the panels too if asked.
    void Refresh(bool bNotifyPanels);
    /// Shows or hides the buttons above the list.
    void ShowToolbar(bool show);
    /// Cancels the order of a row, or all that can be, unless the user decides against it. What
    /// can't be cancelled is passed over without a word.
    void CancelRow(int row);
    void CancelAll();

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    void OnTimer(UINT_PTR timer);
    LRESULT OnListEvent(WPARAM event, LPARAM list);
    void OnListDoubleClick(NMHDR* header, LRESULT* result);
    void OnMode();
    void OnCancelRow();
    void OnCancelAll() { CancelAll(); }
    DECLARE_MESSAGE_MAP()

private:
    static void DrawCell(HDC dc, int row, int column, RECT* rect, HFONT bold, CWnd* parent,
                         void* context);
    void LayOut();
    void ShowMode();
    bool MayCancel(CUICallBack& core, const char* question);
    /// Sends the requests, and asks for the list once more a while after the last ones.
    void Send(CUICallBack& core, std::span<CancelRequest> requests, const char* note);
    void Enable(CBmpButtonNoPic& button, bool enable);
    std::span<CZebOrder> Orders();

    CListLock m_lock;  ///< the orders' painter and the cancelling hold it
    PanelHost* m_pPanelHost = nullptr;
    const ContractSource* m_pContracts = nullptr;
    EArray<CZebOrder> m_orders{32};
    bool m_bShowAll = true;
    bool m_bToolbar = false;
    COwerDrawListView m_list;
    lists::WideColumn m_remarkColumn{};
    CVButton m_btnMode;
    CBmpButtonNoPic m_btnCancel;
    CBmpButtonNoPic m_btnCancelAll;
};
