#pragma once

#include <span>
#include <string>

#include "controls/bmp_button_no_pic.h"
#include "controls/ower_draw_list_view.h"
#include "controls/v_button.h"
#include "lists/list_columns.h"
#include "lists/scoped_lock.h"
#include "orderentry/contract_rules.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/contract/earray.h"
#include "plugin/contract/order_records.h"

/// The day's trades, and the button that writes them to a file.
class CGoldTradeDlg : public CDialog {
public:
    static constexpr UINT IDD = 10009;
    static constexpr int kList = 10024;
    static constexpr int kMode = 10008;
    static constexpr int kExport = 10044;

    /// The window goes first, while the members that paint it are still there.
    ~CGoldTradeDlg() override { DestroyWindow(); }

    void Connect(const ContractSource* contracts) { m_pContracts = contracts; }
    /// Reads the trades from the core and shows them, the newest first.
    void Refresh();
    /// Asks for a file and writes the trades into it; nothing happens without trades.
    void Export();

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    int OnCreate(LPCREATESTRUCT create);
    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    void OnExport() { Export(); }
    DECLARE_MESSAGE_MAP()

private:
    static void DrawCell(HDC dc, int row, int column, RECT* rect, HFONT bold, CWnd* parent,
                         void* context);
    std::span<CZebTrade> Trades();
    void Write(const std::string& path);

    CListLock m_lock;  ///< the painter holds it
    const ContractSource* m_pContracts = nullptr;
    EArray<CZebTrade> m_trades{32};
    COwerDrawListView m_list;
    lists::WideColumn m_numberColumn{};  ///< the last one
    CVButton m_btnMode;
    CBmpButtonNoPic m_btnExport;
};
