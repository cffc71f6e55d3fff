#pragma once

#include "platform/toolkit/wnd.h"

/// One pass over the controls of a window and the members that belong to them.
class CDataExchange {
public:
    BOOL m_bSaveAndValidate;  ///< TRUE from the controls to the members
    CWnd* m_pDlgWnd;

    CDataExchange(CWnd* dialog, BOOL save_and_validate)
        : m_bSaveAndValidate(save_and_validate), m_pDlgWnd(dialog) {}
};

/// Binds the object to the control, once. Asserts that the control exists.
TOOLKIT_API void DDX_Control(CDataExchange* exchange, int id, CWnd& control);
