#pragma once

#include <windows.h>

namespace winbase {

/// What the dialog functions know of a dialog beyond its window.
struct DialogState {
    HFONT font = nullptr;
    bool owns_font = false;
    SIZE base_units{0, 0};  ///< pixels of 4 by 8 dialog units; 0 until the font is known
    int default_id = 0;     ///< of the button that Enter presses
    bool has_default_id = false;
    HWND last_focus = nullptr;      ///< where the focus returns to with activation
    HWND disabled_owner = nullptr;  ///< what the end of a modal dialog enables again
    bool modal = false;
    bool ended = false;
    INT_PTR result = 0;
};

/// The state of a dialog, or null for a window that is none.
DialogState* FindDialog(HWND dialog);
/// The same, made when the window has none yet. A window becomes a dialog when its procedure first
/// reaches DefDlgProcA.
DialogState& MakeDialog(HWND dialog);
/// The window is gone: frees its font and its state.
void ForgetDialog(HWND dialog);

/// Pixels of 4 by 8 dialog units in a font (null: the system's).
SIZE BaseUnits(HFONT font);
/// From dialog units to pixels.
int UnitsToX(const SIZE& base, int units);
int UnitsToY(const SIZE& base, int units);

}  // namespace winbase
