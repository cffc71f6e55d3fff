#pragma once

#include "controls/templates.h"
#include "platform/toolkit/toolkit.h"

/// Stands in for a panel's pages until somebody has logged in: a link that asks the host for the
/// login.
class CPanelLoginDlg : public CDialog {
public:
    static constexpr UINT IDD = controls::kEmptyDialog;

protected:
    void OnOK() override {}
    void OnCancel() override {}
};
