#include "host/views/splitter.h"

namespace views {

BEGIN_MESSAGE_MAP(Splitter, View)
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_MOUSEMOVE()
    ON_WM_SETCURSOR()
    ON_MESSAGE(WM_CAPTURECHANGED, &Splitter::OnCaptureChanged)
END_MESSAGE_MAP()

void Splitter::Paint(const Painter& painter, CSize size) {
    painter.Fill({0, 0, size.cx, size.cy}, drags_ ? painter.colors.accent : painter.colors.line);
}

void Splitter::OnLButtonDown(UINT keys, CPoint point) {
    CWnd::OnLButtonDown(keys, point);
    drags_ = true;
    start_ = point;
    SetCapture();
    Invalidate(FALSE);
}

void Splitter::OnMouseMove(UINT keys, CPoint point) {
    CWnd::OnMouseMove(keys, point);
    // The bar moves along, so the point stays near the place where it was taken.
    const int delta = upright_ ? point.x - start_.x : point.y - start_.y;
    if (drags_ && delta != 0 && on_drag) on_drag(delta);
}

void Splitter::OnLButtonUp(UINT keys, CPoint point) {
    CWnd::OnLButtonUp(keys, point);
    if (drags_) ReleaseCapture();
}

LRESULT Splitter::OnCaptureChanged(WPARAM, LPARAM) {
    if (!drags_) return 0;
    drags_ = false;
    Invalidate(FALSE);
    if (on_end) on_end();
    return 0;
}

BOOL Splitter::OnSetCursor(CWnd*, UINT, UINT) {
    SetCursor(LoadCursorA(nullptr, upright_ ? IDC_SIZEWE : IDC_SIZENS));
    return TRUE;
}

}  // namespace views
