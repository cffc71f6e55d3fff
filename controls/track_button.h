#pragma once

#include <string>

#include "platform/toolkit/toolkit.h"

/// What all buttons have in common: a visual state that follows pointer, press and focus, and a
/// paint step composed off-screen. A member of the family says how a state looks.
///
/// In a template it may stand as any button; it is owner-drawn from the moment it is bound. A
/// disabled window is painted as kDisabled whatever the state.
class CTrackButton : public CButton {
public:
    enum State : int { kNormal = 0, kHover = 1, kPressed = 2, kDisabled = 3, kInert = 4 };

    BOOL Create(LPCSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id);

    int State() const { return m_nState; }
    void DrawItem(LPDRAWITEMSTRUCT item) override;
    /// A key that is held down presses once.
    BOOL PreTranslateMessage(MSG* message) override;

protected:
    using CWnd::Create;

    /// Paints one state; the text goes with it.
    virtual void PaintState(const CDC& dc, const CRect& client, int state) = 0;
    /// Does a press take the focus before the button's own handling?
    virtual bool FocusOnPress() const { return false; }
    /// The first move over the button, and every one behind it.
    virtual void OnHover(CPoint) {}
    /// The pointer has left.
    virtual void OnUnhover() {}

    virtual void ChangeState(int state);
    /// A press has ended without a click.
    virtual void EndPress() { ChangeState(kNormal); }
    /// Would Enter press it, wherever the focus is?
    virtual bool IsDefault() const { return false; }
    std::string Caption() const;
    void PreSubclassWindow() override;

    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonDown(UINT flags, CPoint point);
    void OnLButtonDblClk(UINT flags, CPoint point);
    void OnLButtonUp(UINT flags, CPoint point);
    void OnKillFocus(CWnd* next);
    void OnEnable(BOOL enable);
    BOOL OnEraseBkgnd(CDC*) { return TRUE; }
    LRESULT OnMouseLeave(WPARAM, LPARAM);
    LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    int ShownState() const;

    int m_nState = kNormal;
    bool m_bPressing = false;    ///< by the mouse, which has not been let go yet
    bool m_bOverButton = false;  ///< leaving is being watched
};

namespace controls {

/// The default look of a caption: centred on both axes in one line.
void PaintCaption(const CDC& dc, const CRect& rect, const std::string& caption, COLORREF color);

}  // namespace controls
