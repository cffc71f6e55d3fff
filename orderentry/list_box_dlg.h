#pragma once

#include "platform/toolkit/toolkit.h"

/// The popup list under a price edit.
class CListBoxDlg : public CDialog {
public:
    static constexpr UINT IDD = 10107;
    static constexpr int kList = 10007;

protected:
    void OnOK() override {}
    void OnCancel() override {}
};
