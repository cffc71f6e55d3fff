#pragma once

#include "controls/tab_set.h"
#include "funds/tran_account_child_dlg.h"

/// The bank page: a strip of two tabs over one child dialog, which holds all controls.
class CTranAccountDlg : public CDialog {
public:
    static constexpr UINT IDD = 10012;
    static constexpr int kTabs = 10034;

    CTranAccountChildDlg& Child() { return m_child; }

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}

    void OnTabChanged(NMHDR* header, LRESULT* result);
    void OnSize(UINT type, int cx, int cy);
    BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()

private:
    CTabSet m_tabs;
    CTranAccountChildDlg m_child;
};
