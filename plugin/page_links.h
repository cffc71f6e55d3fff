#pragma once

#include <memory>

#include "lists/gold_reprot_dlg.h"
#include "orderentry/panel_parts.h"
#include "orderentry/report_pane.h"
#include "orderentry/stop_dialog.h"

/// What positions ask of order entry and stops.
class PositionLink : public PositionDialogs {
public:
    bool ConfirmOrder(CWnd* window, const CInsertOrderRequest& request, bool bClose) override;
    bool EditStops(const CZebContract& contract, CPresetStop& stop, const char* title,
                   CWnd* parent) override;
};

/// The report page as the page of order and lists knows it. Must outlive that page.
class ReportLink : public ReportPane {
public:
    bool Create(CWnd* parent) override;
    CWnd& Window() override { return m_report; }
    void Connect(const ContractSource& contracts, HWND row_receiver) override;
    void SetPage(int page) override { m_report.SetPage(page); }
    void OnQuote(unsigned int packed, const JSDyn1& quote) override;
    int CloseVolume(const char* contract, char direction) const override;
    double HoldLoss() const override { return m_report.m_position.m_dLossHold; }

    CGoldPositionDlg& Positions() { return m_report.m_position; }
    CGoldOrderDlg& Orders() { return m_report.m_order; }
    CGoldTradeDlg& Trades() { return m_report.m_trade; }

private:
    PositionLink m_dialogs;  ///< before the page that holds on to it
    CGoldReprotDlg m_report;
};

/// The stop dialog as order page and tickets know it.
class StopLink : public StopDialog {
public:
    bool Edit(const CZebContract& contract, CPresetStop& stop, const char* title,
              CWnd* parent) override;
};

/// The pages of one panel that are not order entry's.
std::unique_ptr<PanelParts> MakePanelParts();
