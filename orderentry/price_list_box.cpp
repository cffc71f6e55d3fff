#include "orderentry/price_list_box.h"

#include "plugin/contract/messages.h"

BEGIN_MESSAGE_MAP(CPriceListBox, CListBox)
    ON_WM_LBUTTONUP()
END_MESSAGE_MAP()

LRESULT CPriceListBox::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool typed = message == WM_KEYDOWN || message == WM_KEYUP || message == WM_CHAR;
    if (typed && m_pEdit && m_pEdit->GetSafeHwnd()) {
        return m_pEdit->SendMessage(message, wParam, lParam);
    }
    return CListBox::WindowProc(message, wParam, lParam);
}

void CPriceListBox::OnLButtonUp(UINT, CPoint point) {
    const HWND window = m_hWnd;
    Default();
    if (!::IsWindow(window) || !m_pEdit || !m_pEdit->GetSafeHwnd()) return;
    BOOL outside = TRUE;
    const UINT row = ItemFromPoint(point, outside);
    if (!outside && GetCount() > 0) m_pEdit->PostMessage(WM_PRICE_ROW_CHOSEN, row);
}
