#pragma once

#include "platform/toolkit/toolkit.h"

/// Enters a password by mouse, its keys in a new order each time.
class CKeyBoardDlg : public CDialog {
public:
    static constexpr UINT IDD = 10108;
    static constexpr int kFirstDigit = 10050;
    static constexpr int kFirstLetter = 10060;
    static constexpr int kBackspace = 10086;
    static constexpr int kCase = 10087;
    static constexpr int kHide = 10088;

protected:
    void OnOK() override {}
    void OnCancel() override {}
};
