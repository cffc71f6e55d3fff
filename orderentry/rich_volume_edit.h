#pragma once

#include <string>

#include "orderentry/key_board_dlg_volume.h"
#include "platform/toolkit/toolkit.h"

/// A volume edit: digits only, selected whole when it gets the focus, never left empty. With preset
/// volumes a click opens them as a keyboard.
class CRichVolumeEdit : public CRichEditCtrl {
public:
    ~CRichVolumeEdit() override;

    CKeyBoardDlgVolume& Keyboard() { return m_keyboard; }

protected:
    void OnLButtonUp(UINT flags, CPoint point);
    void OnSetFocus(CWnd* former);
    void OnKillFocus(CWnd* next);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnTimer(UINT_PTR id);
    void OnDestroy();
    DECLARE_MESSAGE_MAP()

private:
    std::string Text() const;
    /// Selects what the timer is going to select. Keys do it first: else the second digit typed
    /// would replace the first.
    void SelectNow();

    bool m_bSelectPending = false;
    std::string m_strSaved;
    CKeyBoardDlgVolume m_keyboard;
};
