#include "session/gold_login_dlg.h"

namespace {

constexpr int kWidth = 518;
constexpr int kHeight = 346;
constexpr int kServerItemHeight = 18;
constexpr int kAccountLimit = 20;
constexpr int kButtonsAboveBottom = 25;

}  // namespace

BOOL CGoldLoginDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SendDlgItemMessage(kAccount, EM_LIMITTEXT, kAccountLimit);
    SendDlgItemMessage(kServers, LB_SETITEMHEIGHT, 0, kServerItemHeight);
    SetWindowPos(nullptr, 0, 0, kWidth, kHeight, SWP_NOZORDER | SWP_NOACTIVATE);
    PlaceButtons();
    CenterWindow();
    return TRUE;
}

void CGoldLoginDlg::PlaceButtons() {
    CRect client;
    GetClientRect(&client);
    for (const int id : {IDOK, IDCANCEL}) {
        CWnd* button = GetDlgItem(id);
        CRect place;
        button->GetWindowRect(&place);
        ScreenToClient(&place);
        button->MoveWindow(place.left, client.bottom - kButtonsAboveBottom, place.Width(),
                           place.Height());
    }
}
