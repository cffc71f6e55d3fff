#pragma once

#include <memory>

#include "lists/gold_order_dlg.h"
#include "lists/gold_position_dlg.h"
#include "lists/gold_trade_dlg.h"
#include "lists/pane_splitter.h"

/// The lists of the trading view: positions beside orders, or one list alone.
class CGoldReprotDlg : public CDialog {
public:
    static constexpr UINT IDD = 10005;

    CGoldPositionDlg m_position;
    CGoldOrderDlg m_order;
    CGoldTradeDlg m_trade;

    /// 0 positions and orders, 1 orders, 2 trades, 3 positions, 17 nothing. Another number below
    /// that is only remembered.
    void SetPage(int page);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    void OnLButtonDown(UINT keys, CPoint point);
    void OnLButtonUp(UINT keys, CPoint point);
    void OnMouseMove(UINT keys, CPoint point);
    BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);
    LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void LayOut();

    std::unique_ptr<CPaneSplitter> m_pSplitter = std::make_unique<CPaneSplitter>(*this, 0.5, 50);
    int m_nPage = 0;
};
