#include "host/terminal/sign_in_dlg.h"

#include "host/skin/palette.h"

namespace terminal {

BEGIN_MESSAGE_MAP(SignInDlg, CDialog)
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

BOOL SignInDlg::CreateHidden(CWnd* owner) { return Create(kSignInDialog, owner); }

void SignInDlg::Open(const std::string& account, const std::string& message,
                     const std::string& hint) {
    SetDlgItemText(kAccount, account.c_str());
    SetDlgItemText(kPassword, "");
    SetDlgItemText(kHint, hint.c_str());
    SetMessage(message);
    SetBusy(false);
    CenterWindow();
    ShowWindow(SW_SHOW);
    GotoDlgCtrl(GetDlgItem(account.empty() ? kAccount : kPassword));
}

void SignInDlg::Close() {
    SetDlgItemText(kPassword, "");
    ShowWindow(SW_HIDE);
}

void SignInDlg::SetBusy(bool busy) {
    busy_ = busy;
    for (const int id : {kAccount, kPassword, IDOK}) GetDlgItem(id)->EnableWindow(!busy);
}

void SignInDlg::SetMessage(const std::string& message) {
    SetDlgItemText(kMessage, message.c_str());
}

std::string SignInDlg::TextOf(int id) const {
    char text[128] = "";
    GetDlgItemText(id, text, sizeof text);
    return text;
}

void SignInDlg::OnOK() {
    if (busy_) return;
    const std::string account = TextOf(kAccount);
    if (account.empty()) {
        SetMessage("请输入账户");
        GotoDlgCtrl(GetDlgItem(kAccount));
        return;
    }
    if (on_sign_in) on_sign_in(account, TextOf(kPassword));
}

HBRUSH SignInDlg::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    HBRUSH brush = CDialog::OnCtlColor(dc, control, kind);
    const int id = control->GetDlgCtrlID();
    if (id == kMessage) dc->SetTextColor(busy_ ? skin::kLight.accent : skin::kLight.buy);
    if (id == kHint) dc->SetTextColor(skin::kLight.secondary);
    return brush;
}

}  // namespace terminal
