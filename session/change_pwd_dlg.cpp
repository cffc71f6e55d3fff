#include "session/change_pwd_dlg.h"

#include "controls/page_ground.h"

BEGIN_MESSAGE_MAP(CChangePwdDlg, CDialog)
    ON_WM_ERASEBKGND()
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

void CChangePwdDlg::ClearPasswords() {
    for (const int id : {kCurrentPassword, kNewPassword, kRepeatedPassword}) SetDlgItemText(id, "");
}

void CChangePwdDlg::OnOK() {}

BOOL CChangePwdDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}

HBRUSH CChangePwdDlg::OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
    const HBRUSH ground = PageGroundBrush(dc, kind);
    return ground != nullptr ? ground : CDialog::OnCtlColor(dc, control, kind);
}
