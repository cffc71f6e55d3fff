#pragma once

#include "platform/toolkit/toolkit.h"

/// A page of the list that shows nothing but the skin's ground.
class CQueryAccountDlg : public CDialog {
public:
    static constexpr UINT IDD = 10011;

protected:
    void OnOK() override {}
    void OnCancel() override {}

    BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()
};
