#include "stops/auto_stop_loss_pup_base.h"

#include "platform/text/bounded_text.h"

BEGIN_MESSAGE_MAP(CGOLDAutoStopLossPupBase, CDialog)
    ON_NOTIFY(TCN_SELCHANGE, kTabs, &CGOLDAutoStopLossPupBase::OnTabChanged)
END_MESSAGE_MAP()

void CGOLDAutoStopLossPupBase::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kTabs, m_tabs);
}

BOOL CGOLDAutoStopLossPupBase::OnInitDialog() {
    CDialog::OnInitDialog();
    char title[64];
    text::CopyText(title, m_pTitle);
    SetWindowText(title);
    m_tabs.InsertItem(0, "止损止盈");
    m_tabs.InsertItem(1, "参    数");
    m_stops.Create(CGOLDAutoStopLossPup::IDD, &m_tabs);
    m_settings.Create(GOLDSetStopLoss::IDD, &m_tabs);
    CRect tabs;
    m_tabs.GetClientRect(&tabs);
    for (CDialog* page : {static_cast<CDialog*>(&m_stops), static_cast<CDialog*>(&m_settings)}) {
        page->MoveWindow(tabs.left + 3, tabs.top + 21, tabs.Width() - 8, tabs.Height() - 26);
    }
    ShowSelectedPage();
    return TRUE;
}

void CGOLDAutoStopLossPupBase::OnTabChanged(NMHDR*, LRESULT* result) {
    ShowSelectedPage();
    *result = 0;
}

void CGOLDAutoStopLossPupBase::ShowSelectedPage() {
    const bool settings = m_tabs.GetCurSel() == 1;
    m_stops.ShowWindow(settings ? SW_HIDE : SW_SHOW);
    m_settings.ShowWindow(settings ? SW_SHOW : SW_HIDE);
}
