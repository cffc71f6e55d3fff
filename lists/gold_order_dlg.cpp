#include "lists/gold_order_dlg.h"

#include "controls/page_ground.h"
#include "lists/order_cell_rules.h"
#include "lists/order_list_rules.h"
#include "orderentry/price_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kSpareRecords = 16;
constexpr int kToolbarHeight = 23;
/// Between a cell's lines and its text, beside what the list leaves.
constexpr int kCellMargin = 3;
constexpr UINT_PTR kRefreshTimer = 1;
constexpr UINT kRefreshMillis = 1500;

constexpr lists::Column kColumns[kOrderColumns] = {
    {"委托时间", 60}, {"合约", 60},    {"买卖", 60},     {"开平", 60},     {"委托价格", 80, 6},
    {"委手", 60, 6},  {"成手", 60, 6}, {"状态", 120, 5}, {"备注", 120, 5}, {"委托号", 60, 5},
};

}  // namespace

BEGIN_MESSAGE_MAP(CGoldOrderDlg, CDialog)
    ON_WM_CREATE()
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
    ON_WM_TIMER()
    ON_MESSAGE(WM_LIST_EVENT, &CGoldOrderDlg::OnListEvent)
    ON_NOTIFY(NM_DBLCLK, kList, &CGoldOrderDlg::OnListDoubleClick)
    ON_BN_CLICKED(kMode, &CGoldOrderDlg::OnMode)
    ON_BN_CLICKED(kCancel, &CGoldOrderDlg::OnCancelRow)
    ON_BN_CLICKED(kCancelAll, &CGoldOrderDlg::OnCancelAll)
END_MESSAGE_MAP()

int CGoldOrderDlg::OnCreate(LPCREATESTRUCT create) {
    if (CDialog::OnCreate(create) == -1) return -1;
    lists::MakeList(m_list, *this, kList, this);
    m_list.m_pfnDrawCell = DrawCell;
    lists::SetColumns(m_list, kColumns);
    m_remarkColumn = {kOrderRemarkColumn, kColumns[kOrderRemarkColumn].width};
    return 0;
}

void CGoldOrderDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, kMode, m_btnMode);
    DDX_Control(exchange, kCancel, m_btnCancel);
    DDX_Control(exchange, kCancelAll, m_btnCancelAll);
}

BOOL CGoldOrderDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SetPageSkin(m_btnMode, kSkinPages, lists::kUprightSkin);
    ShowMode();
    m_btnCancel.EnableWindow(FALSE);
    m_btnCancelAll.EnableWindow(FALSE);
    LayOut();
    return TRUE;
}

std::span<CZebOrder> CGoldOrderDlg::Orders() {
    return {m_orders.GetData(), static_cast<std::size_t>(m_orders.GetCount())};
}

void CGoldOrderDlg::Refresh(bool bNotifyPanels) {
    CUICallBack* const core = GetUICallBack();
    if (core == nullptr) return;
    const int came = ReadRecords(m_orders, kSpareRecords, [core](CZebOrder* buffer, int capacity) {
        return core->GetOrderList(buffer, capacity);
    });
    m_orders.SetSize(came);
    if (!m_bShowAll) KeepCancellable(m_orders);
    // The selected row is looked up in the core's order, not in the one that is shown.
    const bool row_cancellable = IsRowCancellable(Orders(), m_list.GetSelectedRow());
    const bool any_cancellable = IsAnyCancellable(Orders());
    SortOrders(Orders());
    if (m_hWnd != nullptr) {
        m_list.SetRowCount(m_orders.GetCount(), TRUE);
        lists::FitColumn(m_list, m_remarkColumn);
        Enable(m_btnCancel, row_cancellable);
        Enable(m_btnCancelAll, any_cancellable);
    }
    if (bNotifyPanels && m_pPanelHost != nullptr) {
        m_pPanelHost->ShowOrdersOnPanels(m_orders.GetData(), m_orders.GetCount());
    }
}

void CGoldOrderDlg::Enable(CBmpButtonNoPic& button, bool enable) {
    // A disabled window that keeps the focus swallows all keys.
    if (!enable && ::GetFocus() == button.m_hWnd) m_list.SetFocus();
    button.EnableWindow(enable);
}

void CGoldOrderDlg::DrawCell(HDC dc, int row, int column, RECT* rect, HFONT bold, CWnd*,
                             void* context) {
    auto& page = *static_cast<CGoldOrderDlg*>(context);
    const CScopedLock lock(page.m_lock);
    if (row < 0 || row >= page.m_orders.GetCount()) return;
    const CZebOrder& order = page.m_orders.GetData()[row];
    const CZebContract* contract = nullptr;
    if (page.m_pContracts != nullptr) {
        const std::string code(text::FieldText(order.szContract));
        contract = page.m_pContracts->FindContractByCode(code.c_str());
    }
    const RECT place{rect->left + kCellMargin, rect->top, rect->right - kCellMargin, rect->bottom};
    lists::DrawCellText(dc, OrderCell(order, column, contract), place, bold);
}

void CGoldOrderDlg::OnMode() {
    m_bShowAll = !m_bShowAll;
    ShowMode();
    m_list.ResetScrollY(0);
    Refresh(false);
}

void CGoldOrderDlg::ShowMode() { m_btnMode.SetWindowText(m_bShowAll ? "委托—可撤" : "可撤—委托"); }

LRESULT CGoldOrderDlg::OnListEvent(WPARAM event, LPARAM) {
    if (event == kListRowChosen) {
        Enable(m_btnCancel, IsRowCancellable(Orders(), m_list.GetSelectedRow()));
    }
    return 0;
}

void CGoldOrderDlg::OnListDoubleClick(NMHDR*, LRESULT* result) {
    *result = 0;
    CancelRow(m_list.GetSelectedRow());
}

void CGoldOrderDlg::OnCancelRow() { CancelRow(m_list.GetSelectedRow()); }

bool CGoldOrderDlg::MayCancel(CUICallBack& core, const char* question) {
    CTradeParam param{};
    core.GetTradeParam(&param);
    if (param.bNoCancelConfirm != 0) return true;
    const HWND page = m_hWnd;
    const int answer = MessageBox(question, "提示", MB_YESNO);
    // The host may have taken the page down while the question was open.
    return answer == IDYES && ::IsWindow(page);
}

void CGoldOrderDlg::CancelRow(int row) {
    CUICallBack* const core = GetUICallBack();
    if (core == nullptr) return;
    std::vector<CancelRequest> requests;
    {
        const CScopedLock lock(m_lock);
        if (!IsRowCancellable(Orders(), row)) return;
        // While the question is open the list goes on: the order that was pointed at may stand
        // elsewhere by then, or nowhere.
        requests.push_back(MakeCancelRequest(Orders()[static_cast<std::size_t>(row)]));
    }
    if (MayCancel(*core, "确定要手动撤单？")) Send(*core, requests, "WY: 手动撤单");
}

void CGoldOrderDlg::CancelAll() {
    CUICallBack* const core = GetUICallBack();
    if (core == nullptr || !IsAnyCancellable(Orders())) return;
    if (!MayCancel(*core, "确定要全部撤单？")) return;
    std::vector<CancelRequest> requests;
    {
        const CScopedLock lock(m_lock);
        requests = CancelRequestsOfAll(Orders());
    }
    Send(*core, requests, "WY：手动撤单");
}

void CGoldOrderDlg::Send(CUICallBack& core, std::span<CancelRequest> requests, const char* note) {
    const CScopedLock lock(m_lock);
    for (CancelRequest& request : requests) {
        core.CancelOrder(&request.order, request.order_ref.c_str(), note, request.order.nSession);
        core.ShowStatusText(note, kStatusOrderPageNote);
    }
    // What became of it comes back as events; this asks for the list once more when they are in.
    KillTimer(kRefreshTimer);
    SetTimer(kRefreshTimer, kRefreshMillis, nullptr);
}

void CGoldOrderDlg::OnTimer(UINT_PTR timer) {
    if (timer != kRefreshTimer) {
        CDialog::OnTimer(timer);
        return;
    }
    KillTimer(kRefreshTimer);
    if (CUICallBack* const core = GetUICallBack()) core->RefreshOrders();
}

void CGoldOrderDlg::ShowToolbar(bool show) {
    m_bToolbar = show;
    LayOut();
    // The list's frame is drawn on the page's ground, which nobody paints when only the list moves.
    if (m_hWnd != nullptr) Invalidate();
}

void CGoldOrderDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    LayOut();
    Invalidate();  // the list's frame is part of the ground
}

void CGoldOrderDlg::LayOut() {
    if (m_btnMode.m_hWnd == nullptr || m_list.m_hWnd == nullptr) return;
    for (CWnd* const button : {&m_btnCancel, &m_btnCancelAll}) {
        button->ShowWindow(m_bToolbar ? SW_SHOW : SW_HIDE);
    }
    CRect client;
    GetClientRect(&client);
    const int offset = m_bToolbar ? kToolbarHeight : 0;
    const int below = client.Height() - offset;
    m_btnMode.MoveWindow(0, offset + 2, 21, below - 4);
    m_list.MoveWindow(26, offset + 2, client.Width() - 28, below - 2);
    lists::FitColumn(m_list, m_remarkColumn);
}

BOOL CGoldOrderDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    m_list.DrawBorder();
    return TRUE;
}
