#pragma once

#include "controls/memory_surface.h"
#include "platform/toolkit/toolkit.h"

/// A radio button whose mark comes from the core's skin and whose ground is what its parent shows
/// behind it. Clicked, it is checked and its parent hears WM_RADIO_CHECKED; the parent unchecks the
/// others. The space key clicks as well.
///
/// The parent answers WM_CTLCOLORSTATIC as for any radio button: the text's colour, and the brush
/// of an opaque ground. It may stand in a template as a "Button"; BM_GETCHECK and BM_SETCHECK work.
///
/// The skin is eight pictures side by side: unchecked normal, under the pointer, pressed and
/// disabled, then the same four checked, with an opacity channel.
class COwerRadio : public CWnd {
public:
    COwerRadio() = default;

    BOOL Create(LPCSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id);

    BOOL IsChecked() const { return m_bChecked; }
    /// Tells nobody.
    void SetChecked(BOOL checked);
    /// Opaque, the ground is the parent's brush; else a copy of the parent's pixels, taken at the
    /// first paint and kept whatever the parent shows later.
    void SetOpaque(BOOL opaque);

protected:
    using CWnd::Create;

    /// The marks; they stay the core's. Null paints none.
    virtual HBITMAP GetSkin();
    /// The button was let go over the window it was pressed on.
    virtual void OnClick();

    int m_nState = kNormal;
    BOOL m_bPressed = FALSE;  ///< the left button went down here and is still down
    BOOL m_bOpaque = FALSE;
    BackgroundCopy m_background;
    BOOL m_bChecked = FALSE;

    /// What stands in a window that was another class's has to go.
    void PreSubclassWindow() override { Invalidate(); }

    BOOL OnEraseBkgnd(CDC* dc);
    void OnPaint();
    void OnLButtonDown(UINT keys, CPoint point);
    void OnLButtonUp(UINT keys, CPoint point);
    void OnMouseMove(UINT keys, CPoint point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnKeyUp(UINT, UINT, UINT) {}
    void OnChar(UINT, UINT, UINT) {}
    void OnSetFocus(CWnd* former);
    void OnKillFocus(CWnd*) { Invalidate(); }
    void OnEnable(BOOL) { Invalidate(); }
    UINT OnGetDlgCode() { return DLGC_BUTTON; }
    LRESULT OnSecondPress(WPARAM wParam, LPARAM lParam);
    LRESULT OnMouseLeave(WPARAM wParam, LPARAM lParam);
    LRESULT OnCaptureChanged(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetText(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetFont(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetFont(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetCheck(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetCheck(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

    enum State : int { kNormal = 0, kHover = 1, kPressed = 2 };

    /// Its window and its id, as the messages to the parent carry them.
    WPARAM Sender() const { return reinterpret_cast<WPARAM>(m_hWnd); }
    LPARAM SenderId() const { return ::GetWindowLongA(m_hWnd, GWL_ID); }
    void ChangeState(int state);

private:
    void TrackLeave();
    void PaintGround(HDC dc, const CRect& client);
    int PaintMark(HDC dc, const CRect& client);
    void PaintText(HDC dc, CRect rect);

    HFONT font_ = nullptr;  ///< set since this object has the window
    bool tracking_ = false;
    bool clicking_ = false;
    bool shows_focus_ = false;  ///< it came by a key, so the eye has to be told
};
