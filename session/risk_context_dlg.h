#pragma once

#include "platform/toolkit/toolkit.h"

/// Shows the disclosure of risks.
class CRiskContextDlg : public CDialog {
public:
    static constexpr UINT IDD = 10023;
    static constexpr int kText = 10042;

    explicit CRiskContextDlg(CWnd* parent = nullptr) : CDialog(IDD, parent) {}
};
