#pragma once

#include "platform/toolkit/toolkit.h"

/// Notification of CMyTree to its parent when the button of a node with children is pressed, before
/// the node is selected and toggled. It comes as an NMTREEVIEW whose `itemNew.hItem` is the node
/// and whose `action` is TVE_TOGGLE. The system's own codes are negative.
inline constexpr UINT kTreeButtonPressed = 0x0701;

/// A tree that toggles nodes itself and keeps its selection visible without the focus.
class CMyTree : public CTreeCtrl {
protected:
    void OnLButtonDown(UINT keys, CPoint point);
    void OnLButtonDblClk(UINT keys, CPoint point);
    void OnCustomDraw(NMHDR* header, LRESULT* result);
    DECLARE_MESSAGE_MAP()

private:
    void TellButton(HTREEITEM node);
    void Toggle(HTREEITEM node);
};
