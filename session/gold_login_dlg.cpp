#include "session/gold_login_dlg.h"

namespace {

constexpr int kWidth = 518;
constexpr int kHeight = 346;
constexpr int kServerItemHeight = 18;
constexpr int kAccountLimit = 20;
constexpr int kButtonsAboveBottom = 25;

struct Place {
    int id;
    int x;
    int y;
    int width;
    int height;
};

// Templates know no pixels; the rows stand 29 of them apart. Drop-downs have the height of their
// open list.
using Login = CGoldLoginDlg;
constexpr Place kPlaces[] = {
    {Login::kServers, 30, 120, 190, 155},          {Login::kAccountTypeLabel, 230, 123, 65, 22},
    {Login::kAccountType, 295, 120, 151, 96},      {Login::kAccountLabel, 230, 152, 65, 22},
    {Login::kAccount, 295, 149, 151, 22},          {Login::kKeepAccount, 453, 149, 40, 22},
    {Login::kKeepAccountLabel, 466, 152, 48, 16},  {Login::kPasswordLabel, 230, 181, 65, 22},
    {Login::kPassword, 295, 178, 151, 22},         {Login::kPasswordKeys, 452, 180, 20, 20},
    {Login::kLinePasswordLabel, 230, 210, 65, 22}, {Login::kLinePassword, 295, 207, 151, 22},
    {Login::kLinePasswordKeys, 452, 209, 20, 20},  {Login::kPasswordType, 222, 236, 73, 96},
    {Login::kDynamicPassword, 295, 236, 151, 22},  {Login::kDynamicPasswordKeys, 452, 238, 20, 20},
};

}  // namespace

BEGIN_MESSAGE_MAP(CGoldLoginDlg, CDialog)
    ON_WM_SIZE()
END_MESSAGE_MAP()

BOOL CGoldLoginDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    SendDlgItemMessage(kAccount, EM_LIMITTEXT, kAccountLimit);
    SendDlgItemMessage(kServers, LB_SETITEMHEIGHT, 0, kServerItemHeight);
    SetWindowPos(nullptr, 0, 0, kWidth, kHeight, SWP_NOZORDER | SWP_NOACTIVATE);
    PlaceButtons();
    CenterWindow();
    return TRUE;
}

void CGoldLoginDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    for (const Place& place : kPlaces) {
        HWND control = ::GetDlgItem(m_hWnd, place.id);
        if (control == nullptr) continue;
        ::MoveWindow(control, place.x, place.y, place.width, place.height, TRUE);
    }
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
