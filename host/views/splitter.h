#pragma once

#include <functional>

#include "host/views/view.h"

namespace views {

/// A bar between two panes. While it is dragged it tells, step by step, where it is wanted.
class Splitter : public View {
public:
    explicit Splitter(bool upright) : upright_(upright) {}

    /// Called with how far the bar is wanted from where it stands.
    std::function<void(int delta)> on_drag;
    /// Called when the button is let go.
    std::function<void()> on_end;

protected:
    void Paint(const Painter& painter, CSize size) override;
    void OnLButtonDown(UINT keys, CPoint point);
    void OnLButtonUp(UINT keys, CPoint point);
    void OnMouseMove(UINT keys, CPoint point);
    BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);
    LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    bool upright_;  ///< between left and right
    bool drags_ = false;
    CPoint start_;
};

}  // namespace views
