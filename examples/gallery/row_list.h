#pragma once

#include <string>

#include "platform/toolkit/toolkit.h"

namespace gallery {

/// An owner-drawn list: rows are formatted from numbers when they are painted, off the screen, and
/// copied once. The pattern that lists of live data follow.
class RowList : public CWnd {
public:
    static constexpr int kRowCount = 10000;

    BOOL CreateList(CWnd* parent, UINT id, const RECT& rect);

protected:
    void OnPaint();
    BOOL OnEraseBkgnd(CDC*) { return TRUE; }
    void OnSize(UINT kind, int width, int height);
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    BOOL OnMouseWheel(UINT keys, short delta, CPoint point);
    void OnLButtonDown(UINT keys, CPoint point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    UINT OnGetDlgCode() { return DLGC_WANTARROWS; }
    DECLARE_MESSAGE_MAP()

private:
    static constexpr int kRowHeight = 22;

    int VisibleRows() const;
    void ScrollTo(int top);
    void Select(int row);
    void UpdateScrollBar();
    void PaintHeader(HDC dc, int width) const;
    void PaintRow(HDC dc, int row, int top, int width) const;

    int top_ = 0;
    int selected_ = 3;
};

}  // namespace gallery
