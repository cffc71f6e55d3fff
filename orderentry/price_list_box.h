#pragma once

#include "platform/toolkit/toolkit.h"

/// The list of words below a price edit. What is typed into it goes on to the edit, so that typing
/// continues while the list is open; a chosen row is told to the edit.
class CPriceListBox : public CListBox {
public:
    /// Who gets keys and chosen rows. Null for nobody.
    void SetEdit(CWnd* edit) { m_pEdit = edit; }

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnLButtonUp(UINT flags, CPoint point);
    DECLARE_MESSAGE_MAP()

private:
    CWnd* m_pEdit = nullptr;
};
