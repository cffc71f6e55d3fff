#include "host/terminal/param_dlg.h"

#include <cstdlib>
#include <cstring>

#include "host/skin/palette.h"
#include "platform/text/bounded_text.h"

namespace terminal {

BEGIN_MESSAGE_MAP(ParamDlg, CDialog)
    ON_BN_CLICKED(kOverPrice, &ParamDlg::OnOverPrice)
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

template <class Table>
void ParamDlg::Fill(int id, const Table& table, int chosen) {
    for (const char* text : table) {
        SendDlgItemMessage(id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    }
    SendDlgItemMessage(id, CB_SETCURSEL, static_cast<WPARAM>(chosen));
}

int ParamDlg::Chosen(int id) const {
    return static_cast<int>(::SendDlgItemMessageA(GetSafeHwnd(), id, CB_GETCURSEL, 0, 0));
}

BOOL ParamDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    CheckDlgButton(kConfirmOrders, choices.confirm_orders);
    CheckDlgButton(kConfirmCloses, choices.confirm_closes);
    CheckDlgButton(kConfirmCancels, choices.confirm_cancels);
    CheckDlgButton(kOverPrice, choices.over_price);
    CheckDlgButton(kResetPrice, choices.reset_price);
    CheckDlgButton(kResetDirection, choices.reset_direction);
    for (const auto& [id, ticks] : {std::pair{int{kOverTicks}, choices.over_ticks},
                                    {int{kCloseTicks}, choices.close_ticks}}) {
        SetDlgItemText(id, std::to_string(ticks).c_str());
        SendDlgItemMessage(id, EM_LIMITTEXT, 3);
    }
    Fill(kDefaultPrice, kDefaultPrices, choices.default_price);
    Fill(kClosePrice, kClosePrices, choices.close_price);
    Fill(kPanelBuy1, kPanelBuys, choices.panel_buy[0]);
    Fill(kPanelBuy2, kPanelBuys, choices.panel_buy[1]);
    Fill(kPanelSell1, kPanelSells, choices.panel_sell[0]);
    Fill(kPanelSell2, kPanelSells, choices.panel_sell[1]);
    OnOverPrice();
    return TRUE;
}

void ParamDlg::OnOverPrice() {
    GetDlgItem(kOverTicks)->EnableWindow(IsDlgButtonChecked(kOverPrice) == BST_CHECKED);
}

bool ParamDlg::ReadTicks(int id, int& ticks) {
    char text[16] = "";
    GetDlgItemText(id, text, sizeof text);
    const std::size_t length = std::strlen(text);
    if (length == 0 || length > 3 || std::strspn(text, "0123456789") != length) {
        SetDlgItemText(kFault, "价位数请填 0 到 999");
        GotoDlgCtrl(GetDlgItem(id));
        return false;
    }
    ticks = std::atoi(text);
    return true;
}

void ParamDlg::OnOK() {
    const auto checked = [this](int id) { return IsDlgButtonChecked(id) == BST_CHECKED; };
    // A switched off number can't be mended, so it is not looked at and stays what it was.
    if (checked(kOverPrice) && !ReadTicks(kOverTicks, choices.over_ticks)) return;
    if (!ReadTicks(kCloseTicks, choices.close_ticks)) return;
    choices.confirm_orders = checked(kConfirmOrders);
    choices.confirm_closes = checked(kConfirmCloses);
    choices.confirm_cancels = checked(kConfirmCancels);
    choices.over_price = checked(kOverPrice);
    choices.reset_price = checked(kResetPrice);
    choices.reset_direction = checked(kResetDirection);
    choices.default_price = Chosen(kDefaultPrice);
    choices.close_price = Chosen(kClosePrice);
    choices.panel_buy[0] = Chosen(kPanelBuy1);
    choices.panel_buy[1] = Chosen(kPanelBuy2);
    choices.panel_sell[0] = Chosen(kPanelSell1);
    choices.panel_sell[1] = Chosen(kPanelSell2);
    CDialog::OnOK();
}

HBRUSH ParamDlg::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    HBRUSH brush = CDialog::OnCtlColor(dc, control, kind);
    if (control->GetDlgCtrlID() == kFault) dc->SetTextColor(skin::kLight.buy);
    return brush;
}

}  // namespace terminal
