#pragma once

#include "platform/toolkit/toolkit.h"

/// An edit that brings its own font, can refuse typing and has no menu. In a list it is the editor
/// of a cell, and the list is told when the focus leaves it.
class CWyEdit : public CEdit {
public:
    CWyEdit();

    /// The font that is made with the window; later changes change nothing.
    LOGFONTA m_logFont;
    /// Off, typed characters are dropped; keys that type nothing still work.
    BOOL m_bEnabled = TRUE;

protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnKillFocus(CWnd* next);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnContextMenu(CWnd* window, CPoint point);

    DECLARE_MESSAGE_MAP()

private:
    CFont font_;
};
