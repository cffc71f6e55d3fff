#pragma once

#include "platform/toolkit/toolkit.h"

/// The account's figures as a text that fills the page.
class CGoldFundsdlg : public CDialog {
public:
    static constexpr UINT IDD = 10021;
    static constexpr int kText = 10042;

    /// Shows the text when the page is visible; else it is dropped, and the next update brings it.
    void ShowText(const char* text);
    /// Asks the core for the funds while somebody is logged in.
    void RequestFunds();

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()
};
