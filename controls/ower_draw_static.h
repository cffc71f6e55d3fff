#pragma once

#include "controls/memory_surface.h"
#include "platform/toolkit/toolkit.h"

/// A text on whatever a window shows behind it. With a background owner its ground is a copy of
/// that window's pixels, taken at the first paint and kept; without one it is the brush that its
/// parent gives for statics.
///
/// It paints when its ground is erased, in the alignment of its style, and is itself a parent on
/// which statics are transparent.
class COwerDrawStatic : public CStatic {
public:
    /// A window that shows the ground, usually the page; null for none. It must outlive the first
    /// paint.
    void SetBackgroundOwner(CWnd* owner);
    /// Instead of the colour that the parent gives.
    void SetTextColor(COLORREF color);

protected:
    /// What stands in a window that was another class's has to go.
    void PreSubclassWindow() override { Invalidate(); }

    BOOL OnEraseBkgnd(CDC* dc);
    void OnPaint();
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    void OnEnable(BOOL) { Invalidate(); }
    LRESULT OnSetText(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void PaintPlain(HDC dc, const CRect& client);
    void PaintText(HDC dc, CRect rect);

    HWND owner_ = nullptr;
    BackgroundCopy background_;
    COLORREF color_ = 0;
    bool has_color_ = false;
};
