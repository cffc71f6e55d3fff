#include "orderentry/prompt_insert_order_dlg.h"

#include <algorithm>
#include <iterator>

#include "orderentry/confirmation_rules.h"
#include "orderentry/price_rules.h"

namespace {

constexpr int kLines[] = {
    CPromptInsertOrderDlg::kContract, CPromptInsertOrderDlg::kDirection,
    CPromptInsertOrderDlg::kOffset,   CPromptInsertOrderDlg::kPrice,
    CPromptInsertOrderDlg::kVolume,   CPromptInsertOrderDlg::kOrderType,
};

}  // namespace

BEGIN_MESSAGE_MAP(CPromptInsertOrderDlg, CDialog)
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

BOOL CPromptInsertOrderDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    const ConfirmationText text = DescribeOrder(*m_pRequest);
    SetDlgItemText(kContract, text.contract);
    SetDlgItemText(kDirection, text.direction);
    SetDlgItemText(kOffset, text.offset);
    SetDlgItemText(kPrice, text.price);
    SetDlgItemText(kVolume, text.volume);
    SetDlgItemText(kOrderType, text.order_type);
    GetDlgItem(kExtra)->ShowWindow(SW_HIDE);
    SetDlgItemText(IDOK, "下单确认");
    SetDlgItemText(IDCANCEL, "取消");
    const HICON icon = ::LoadIconA(nullptr, IDI_QUESTION);
    SendDlgItemMessage(kIcon, STM_SETICON, reinterpret_cast<WPARAM>(icon));
    return TRUE;
}

HBRUSH CPromptInsertOrderDlg::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    const HBRUSH ground = CDialog::OnCtlColor(dc, control, kind);
    if (std::ranges::find(kLines, control->GetDlgCtrlID()) != std::end(kLines)) {
        dc->SetTextColor(ConfirmationColor(*m_pRequest));
    }
    return ground;
}

bool ConfirmOrder(CWnd* window, const CInsertOrderRequest& request, bool bClose) {
    const OrderOrigin origin = bClose ? OrderOrigin::kQuickClose : OrderOrigin::kOrderPage;
    if (!MustConfirm(ReadTradeParam(), origin)) return true;
    CPromptInsertOrderDlg dialog(&request, window);
    return dialog.DoModal() == IDOK;
}
