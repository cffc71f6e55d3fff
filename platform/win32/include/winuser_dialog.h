#pragma once

// Dialogs, message boxes and the standard controls of the window library.

#include "winuser_types.h"

// Dialog functions
WIN32_EXPORT HWND WINAPI CreateDialogIndirectParamA(HINSTANCE instance, LPCDLGTEMPLATEA dialog,
                                                    HWND parent, DLGPROC procedure,
                                                    LPARAM parameter);
WIN32_EXPORT INT_PTR WINAPI DialogBoxIndirectParamA(HINSTANCE instance, LPCDLGTEMPLATEA dialog,
                                                    HWND parent, DLGPROC procedure,
                                                    LPARAM parameter);
WIN32_EXPORT BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);
WIN32_EXPORT LRESULT WINAPI DefDlgProcA(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
WIN32_EXPORT BOOL WINAPI IsDialogMessageA(HWND dialog, LPMSG message);
WIN32_EXPORT BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect);
WIN32_EXPORT LONG WINAPI GetDialogBaseUnits();
WIN32_EXPORT BOOL WINAPI SetDlgItemTextA(HWND dialog, int id, LPCSTR text);
WIN32_EXPORT UINT WINAPI GetDlgItemTextA(HWND dialog, int id, LPSTR text, int size);
WIN32_EXPORT LRESULT WINAPI SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam,
                                                LPARAM lParam);
WIN32_EXPORT BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check);
WIN32_EXPORT UINT WINAPI IsDlgButtonChecked(HWND dialog, int id);
WIN32_EXPORT BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int check);
WIN32_EXPORT HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
WIN32_EXPORT HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
WIN32_EXPORT int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR title, UINT flags);

#define DS_ABSALIGN 0x01
#define DS_SETFONT 0x40
#define DS_MODALFRAME 0x80
#define DS_NOIDLEMSG 0x100
#define DS_3DLOOK 0x0004
#define DS_FIXEDSYS 0x0008
#define DS_CONTROL 0x0400
#define DS_CENTER 0x0800
#define DS_SHELLFONT (DS_SETFONT | DS_FIXEDSYS)

#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define IDCLOSE 8

#define MB_OK 0x0000
#define MB_OKCANCEL 0x0001
#define MB_YESNOCANCEL 0x0003
#define MB_YESNO 0x0004
#define MB_RETRYCANCEL 0x0005
#define MB_ICONERROR 0x0010
#define MB_ICONHAND 0x0010
#define MB_ICONSTOP 0x0010
#define MB_ICONQUESTION 0x0020
#define MB_ICONWARNING 0x0030
#define MB_ICONEXCLAMATION 0x0030
#define MB_ICONINFORMATION 0x0040
#define MB_ICONASTERISK 0x0040
#define MB_DEFBUTTON1 0x0000
#define MB_DEFBUTTON2 0x0100
#define MB_DEFBUTTON3 0x0200
#define MB_TASKMODAL 0x2000
#define MB_SETFOREGROUND 0x00010000
#define MB_TOPMOST 0x00040000

#include "winuser_controls.h"
