#pragma once

#include <windows.h>

#include "platform/win32/controls/dialog_template.h"

namespace winbase {

/// Creates a dialog and its controls, initialises it and shows it when its style says so. Null when
/// a window cannot be created or the dialog destroys itself in WM_INITDIALOG. `disabled_owner` is
/// enabled again by the end of a modal dialog.
enum class DialogKind { kModeless, kModal };
HWND CreateDialogFrom(const DialogTemplate& dialog, HINSTANCE instance, HWND owner,
                      DLGPROC procedure, LPARAM parameter, DialogKind kind, HWND disabled_owner);

/// Creates a dialog and runs it until it ends; -1 when it cannot be created.
INT_PTR RunDialog(const DialogTemplate& dialog, HINSTANCE instance, HWND owner, DLGPROC procedure,
                  LPARAM parameter);

// ---- focus and default button (dialog_focus.cpp) ----

/// Gives a control the focus as the dialog's keys do: an edit with its whole text selected, a push
/// button as the one that Enter presses.
void FocusControl(HWND dialog, HWND control);
/// Draws `control`, if it is a push button, or else the dialog's own default button as the default.
void ShowDefaultButton(HWND dialog, HWND control);
/// The focus returns to where it was; false when there is no such place.
bool RestoreDialogFocus(HWND dialog);
void SaveDialogFocus(HWND dialog);
/// WM_GETDLGCODE of a control; `key` is what was typed, if anything was.
UINT DialogCodeOf(HWND control, const MSG* key = nullptr);

/// Calls for every control that Tab may meet, in order, also hidden and disabled ones; those within
/// WS_EX_CONTROLPARENT children stand in their places.
std::vector<HWND> ControlsOf(HWND dialog);

// ---- keys (dialog_keys.cpp) ----

/// Presses the button that Enter means.
void PressDefaultButton(HWND dialog);
/// WM_COMMAND of a button, unless it is disabled; a missing one counts as enabled.
enum class Delivery { kSent, kPosted };
void PressButton(HWND dialog, int id, Delivery delivery);

}  // namespace winbase
