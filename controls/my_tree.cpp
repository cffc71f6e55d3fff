#include "controls/my_tree.h"

namespace {

constexpr COLORREF kSelectedText = 0xFFFFFF;
constexpr COLORREF kSelectedGround = 0xDE7732;

}  // namespace

BEGIN_MESSAGE_MAP(CMyTree, CTreeCtrl)
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONDBLCLK()
    ON_NOTIFY_REFLECT(NM_CUSTOMDRAW, &ThisClass::OnCustomDraw)
END_MESSAGE_MAP()

void CMyTree::OnLButtonDown(UINT keys, CPoint point) {
    UINT flags = 0;
    const HTREEITEM node = HitTest(point, &flags);
    if (!node || (flags & TVHT_ONITEMBUTTON) == 0 || !ItemHasChildren(node)) {
        CTreeCtrl::OnLButtonDown(keys, point);
        return;
    }
    // No default step: it would toggle once more.
    TellButton(node);
    SelectItem(node);
    SetFocus();
    Toggle(node);
}

void CMyTree::OnLButtonDblClk(UINT keys, CPoint point) {
    UINT flags = 0;
    const HTREEITEM node = HitTest(point, &flags);
    const bool on_node = (flags & (TVHT_ONITEM | TVHT_ONITEMBUTTON)) != 0;
    if (node && on_node && ItemHasChildren(node)) {
        Toggle(node);
    } else {
        CTreeCtrl::OnLButtonDblClk(keys, point);
    }
}

void CMyTree::TellButton(HTREEITEM node) {
    NMTREEVIEW notice{};
    notice.hdr.hwndFrom = m_hWnd;
    notice.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
    notice.hdr.code = kTreeButtonPressed;
    notice.action = TVE_TOGGLE;
    notice.itemNew.hItem = node;
    ::SendMessageA(::GetParent(m_hWnd), WM_NOTIFY, notice.hdr.idFrom,
                   reinterpret_cast<LPARAM>(&notice));
}

void CMyTree::Toggle(HTREEITEM node) {
    const bool expanded = (GetItemState(node, TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
    Expand(node, expanded ? TVE_COLLAPSE : TVE_EXPAND);
}

void CMyTree::OnCustomDraw(NMHDR* header, LRESULT* result) {
    auto& drawing = *reinterpret_cast<NMTVCUSTOMDRAW*>(header);
    *result = CDRF_DODEFAULT;
    if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) {
        *result = CDRF_NOTIFYITEMDRAW;
    } else if (drawing.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && IsWindowEnabled()) {
        const UINT state = drawing.nmcd.uItemState;
        if ((state & CDIS_SELECTED) != 0 && (state & CDIS_FOCUS) == 0) {
            drawing.clrText = kSelectedText;
            drawing.clrTextBk = kSelectedGround;
        }
        *result = CDRF_NOTIFYPOSTPAINT;
    }
}
