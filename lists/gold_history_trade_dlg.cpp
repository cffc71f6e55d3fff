#include "lists/gold_history_trade_dlg.h"

#include "controls/page_ground.h"
#include "lists/history_date_rules.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kMargin = 12;
constexpr int kTextTop = 44;

int DateOf(const CDateTimeCtrl& picker) {
    SYSTEMTIME time{};
    picker.GetTime(time);
    return DateNumber(time);
}

}  // namespace

BEGIN_MESSAGE_MAP(CGoldHistoryTradeDlg, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_BN_CLICKED(kQuery, &CGoldHistoryTradeDlg::OnQuery)
END_MESSAGE_MAP()

void CGoldHistoryTradeDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kText, m_edit);
    DDX_Control(exchange, kQuery, m_btnQuery);
    DDX_Control(exchange, kFrom, m_from);
    DDX_Control(exchange, kTo, m_to);
}

BOOL CGoldHistoryTradeDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetPageSkin(m_btnQuery, kSkinPages, 1);
    SetGroundOfRichEdit(*this, kText);
    return TRUE;
}

void CGoldHistoryTradeDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    if (m_edit.m_hWnd == nullptr) return;
    m_edit.MoveWindow(kMargin, kTextTop, cx - 2 * kMargin, cy - kTextTop - kMargin);
}

void CGoldHistoryTradeDlg::OnQuery() {
    const int from = DateOf(m_from);
    const int to = DateOf(m_to);
    if (from > to) {
        MessageBox("起始时间必须小于结束时间", "提示", MB_ICONINFORMATION);
        return;
    }
    m_edit.SetWindowText("");
    CUICallBack* const core = GetUICallBack();
    if (core != nullptr) core->QueryTradeByDate(from, to, 0);
}

BOOL CGoldHistoryTradeDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
