#pragma once

#include "orderentry/price_list_box.h"

/// The popup list under a price edit. Showing it takes the focus from nobody.
class CListBoxDlg : public CDialog {
public:
    static constexpr UINT IDD = 10107;
    static constexpr int kList = 10007;

    /// Makes it hidden and empty; keys and chosen rows go to the edit. False if that fails.
    bool Make(CWnd& edit);
    CPriceListBox& List() { return m_list; }
    /// Shows it with its corner at a place of the screen, as high as its rows.
    void ShowAt(CPoint corner, int width);

protected:
    BOOL OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override {}
    void OnSize(UINT type, int cx, int cy);
    DECLARE_MESSAGE_MAP()

private:
    CPriceListBox m_list;
};
