#include "plugin/page_links.h"

#include "funds/client_right_dlg.h"
#include "lists/panel_watch_info_dlg.h"
#include "orderentry/prompt_insert_order_dlg.h"
#include "session/lock_dlg.h"
#include "session/panel_login_dlg.h"
#include "stops/auto_stop_loss_pup_base.h"

namespace {

class PanelLink : public PanelParts {
public:
    bool Create(PanelPart part, CWnd* parent) override {
        return Page(part).Create(TemplateOf(part), parent) != FALSE;
    }
    CWnd& Window(PanelPart part) override { return Page(part); }
    void Connect(HWND row_receiver) override { m_watch.SetOwner(row_receiver); }
    void ShowFunds(double available, double open_profit) override {
        m_clientRight.ShowFunds(available, open_profit);
    }
    void SetContract(const CZebContract* contract) override { m_watch.SetContract(contract); }
    void RefreshPositions() override { m_watch.RefreshPositions(); }
    void ShowOrders(const CZebOrder* orders, int count) override {
        m_watch.OnOrders(orders, count);
    }

private:
    CDialog& Page(PanelPart part) {
        switch (part) {
            case PanelPart::kClientRight: return m_clientRight;
            case PanelPart::kWatch: return m_watch;
            case PanelPart::kLogin: return m_login;
            case PanelPart::kLock: break;
        }
        return m_lock;
    }

    static UINT TemplateOf(PanelPart part) {
        switch (part) {
            case PanelPart::kClientRight: return CClientRightDlg::IDD;
            case PanelPart::kWatch: return CPanelWatchInfoDlg::IDD;
            case PanelPart::kLogin: return CPanelLoginDlg::IDD;
            case PanelPart::kLock: break;
        }
        return CLockDlg::IDD;
    }

    CClientRightDlg m_clientRight;
    CPanelWatchInfoDlg m_watch;
    CPanelLoginDlg m_login;
    CLockDlg m_lock;
};

}  // namespace

bool ReportLink::Create(CWnd* parent) {
    return m_report.Create(CGoldReprotDlg::IDD, parent) != FALSE;
}

void ReportLink::Connect(const ContractSource& contracts, HWND row_receiver) {
    m_report.m_position.Connect(&contracts, row_receiver);
    m_report.m_position.SetDialogs(&m_dialogs);
    m_report.m_order.Connect(&contracts);
    m_report.m_trade.Connect(&contracts);
}

void ReportLink::OnQuote(unsigned int packed, const JSDyn1& quote) {
    m_report.m_position.OnQuote(packed, quote);
}

int ReportLink::CloseVolume(const char* contract, char direction) const {
    return m_report.m_position.GetOppositeAvailable(contract, direction);
}

bool PositionLink::ConfirmOrder(CWnd* window, const CInsertOrderRequest& request, bool bClose) {
    return ::ConfirmOrder(window, request, bClose);
}

bool PositionLink::EditStops(const CZebContract& contract, CPresetStop& stop, const char* title,
                             CWnd* parent) {
    return StopLink().Edit(contract, stop, title, parent);
}

bool StopLink::Edit(const CZebContract& contract, CPresetStop& stop, const char* title,
                    CWnd* parent) {
    CGOLDAutoStopLossPupBase dialog(&contract, &stop, title, parent);
    return dialog.DoModal() == IDOK;
}

std::unique_ptr<PanelParts> MakePanelParts() { return std::make_unique<PanelLink>(); }
