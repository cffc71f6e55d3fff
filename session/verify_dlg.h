#pragma once

#include "platform/toolkit/toolkit.h"

/// Takes the code of a text message that confirms a login, and waits for the server's answer.
class CVerifyDlg : public CDialog {
public:
    static constexpr UINT IDD = 10029;
    static constexpr int kCode = 10006;
    static constexpr int kWaiting = 10037;

    explicit CVerifyDlg(CWnd* parent = nullptr) : CDialog(IDD, parent) {}
};
