#pragma once

#include "platform/toolkit/toolkit.h"

/// Covers a locked panel. Its controls are hidden and disabled: the panel is unlocked on the main
/// page.
class CLockDlg : public CDialog {
public:
    static constexpr UINT IDD = 1008;
    static constexpr int kPassword = 10006;
    static constexpr int kExit = 10008;
    static constexpr int kKeyboard = 10009;
    static constexpr int kNotice = 10001;

protected:
    void OnOK() override {}
    void OnCancel() override {}
};
