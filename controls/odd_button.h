#pragma once

#include "controls/track_button.h"

/// An owner-drawn button that still plays its part among a dialog's buttons: the dialog may make it
/// the default one, and it answers for the type it had before it became owner-drawn.
class COddButton : public CTrackButton {
public:
    COddButton();

    /// The type in `style` is the one it answers for.
    BOOL Create(LPCSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id);

protected:
    /// Without a face of its own: the caption on the parent's ground.
    void PaintState(const CDC& dc, const CRect& client, int state) override;
    void PreSubclassWindow() override;
    bool IsDefault() const override { return m_bDefault; }

    UINT OnGetDlgCode();
    LRESULT OnSetStyle(WPARAM style, LPARAM redraw);
    DECLARE_MESSAGE_MAP()

private:
    void TakeType(DWORD style);
    /// The one that was set, as dialogs do, or one of our own.
    HGDIOBJ Font() const;

    DWORD m_nType = BS_PUSHBUTTON;  ///< before it became owner-drawn
    CFont m_font;
    bool m_bDefault = false;
    bool m_bCanDefault = false;
};
