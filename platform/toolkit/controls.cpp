#include "platform/toolkit/controls.h"

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, result);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

BOOL CEdit::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create("Edit", "", style, rect, parent, id);
}

void CEdit::GetSel(int& start, int& end) const {
    DWORD first = 0;
    DWORD last = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    start = static_cast<int>(first);
    end = static_cast<int>(last);
}

BOOL CRichEditCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return AfxInitRichEdit2() && CWnd::Create(RICHEDIT_CLASSA, "", style, rect, parent, id);
}

void CRichEditCtrl::SetSel(long start, long end) {
    SetSel({static_cast<LONG>(start), static_cast<LONG>(end)});
}

void CRichEditCtrl::GetSel(long& start, long& end) const {
    CHARRANGE range{};
    GetSel(range);
    start = range.cpMin;
    end = range.cpMax;
}

UINT CListBox::ItemFromPoint(CPoint point, BOOL& outside) const {
    const auto found =
        static_cast<DWORD>(SendMessage(LB_ITEMFROMPOINT, 0, MAKELPARAM(point.x, point.y)));
    outside = HIWORD(found);
    return LOWORD(found);
}

BOOL CListBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    switch (message) {
        case WM_DRAWITEM: DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam)); return TRUE;
        case WM_MEASUREITEM:
            MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
            return TRUE;
        default: return CWnd::OnChildNotify(message, wParam, lParam, result);
    }
}

int CTabCtrl::InsertItem(int index, LPCSTR text) {
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<LPSTR>(text);  // only read
    return static_cast<int>(
        SendMessage(TCM_INSERTITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item)));
}

HTREEITEM CTreeCtrl::HitTest(CPoint point, UINT* flags) const {
    TVHITTESTINFO hit{point, 0, nullptr};
    SendMessage(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if (flags != nullptr) *flags = hit.flags;
    return hit.hItem;
}

BOOL CTreeCtrl::ItemHasChildren(HTREEITEM item) const {
    return SendMessage(TVM_GETNEXTITEM, TVGN_CHILD, reinterpret_cast<LPARAM>(item)) != 0;
}
