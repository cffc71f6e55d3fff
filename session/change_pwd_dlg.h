#pragma once

#include "platform/toolkit/toolkit.h"

/// The page on which the user changes the trading password. It checks the three fields and sends
/// one request; what comes back is the dispatcher's business.
class CChangePwdDlg : public CDialog {
public:
    static constexpr UINT IDD = 10014;
    static constexpr int kCurrentPassword = 10006;
    static constexpr int kNewPassword = 10020;
    static constexpr int kRepeatedPassword = 1005;

    /// Empties the three fields.
    void ClearPasswords();

protected:
    void OnOK() override;
    void OnCancel() override {}

    BOOL OnEraseBkgnd(CDC* dc);
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    DECLARE_MESSAGE_MAP()
};
