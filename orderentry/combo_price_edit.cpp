#include "orderentry/combo_price_edit.h"

std::unique_ptr<CWnd> CComboPriceEdit::CreateInnerEdit(int id) {
    auto edit = std::make_unique<CPriceEditRich>();
    edit->Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL | ES_CENTER, CRect(0, 0, 0, 0),
                 this, static_cast<UINT>(id));
    edit->SetBackgroundColor(FALSE, BackColor());
    edit->SetEventMask(ENM_CHANGE);
    edit->LimitText(kTextMax);
    m_pPrice = edit.get();
    return edit;
}

void CComboPriceEdit::OnClickOutside(int x, int y) {
    if (m_pPrice) m_pPrice->OnClickOutside(CPoint(x, y));
}

void CComboPriceEdit::SetListWidth(int width) {
    if (m_pPrice) m_pPrice->SetListWidth(width);
}

bool CComboPriceEdit::IsListOpen() const { return m_pPrice && m_pPrice->IsListOpen(); }

void CComboPriceEdit::SetListOption(const char* text, int value) {
    if (m_pPrice) m_pPrice->SetListOption(text, value);
}

void CComboPriceEdit::SelectWord(const char* text) {
    if (m_pPrice) m_pPrice->SelectWord(text);
}

BOOL CComboPriceEdit::OnCommand(WPARAM wParam, LPARAM lParam) {
    const BOOL handled = CPriceEditEx::OnCommand(wParam, lParam);
    // The page has been told, and may have taken the edit down for it.
    if (GetSafeHwnd() && LOWORD(wParam) == EditId() && HIWORD(wParam) == EN_CHANGE) {
        EnableButtons();
        OnClickOutside(0, 0);
    }
    return handled;
}
