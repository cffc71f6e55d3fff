#pragma once

#include "platform/toolkit/toolkit.h"

/// Shares a part of a window between two panes side by side, with a divider that the user can drag.
/// The window hands it its mouse messages and moves what stands in the panes.
class CPaneSplitter {
public:
    /// `ratio` is the left pane's share, `least` the pixels that dragging leaves each pane.
    CPaneSplitter(CWnd& window, double ratio, int least)
        : m_window(window), m_dRatio(ratio), m_nLeast(least) {}

    void SetRect(const CRect& rect) { m_rect = rect; }
    /// 0 left, 1 right.
    CRect Pane(int pane) const;
    CRect Divider() const;

    // Points are in the window's client area.
    void OnPress(CPoint point);
    /// Answers whether the divider has moved.
    bool OnMove(CPoint point);
    void OnRelease();
    /// The mouse went to another window, which ends a drag.
    void OnCaptureLost() { m_bDragging = false; }
    bool IsOver(CPoint point) const { return m_bDragging || Divider().PtInRect(point) != FALSE; }

private:
    /// Width for both panes.
    int Room() const;
    int LeftWidth() const;

    CWnd& m_window;
    CRect m_rect;
    double m_dRatio;
    int m_nLeast;
    bool m_bDragging = false;
    int m_nGrip = 0;  ///< where the divider was taken, from its left
};
