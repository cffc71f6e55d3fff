#pragma once

// The dialog that asks for a file to write.

#include "winuser_types.h"

using LPOFNHOOKPROC = UINT_PTR(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);

struct OPENFILENAMEA {
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    LPCSTR lpstrFilter;
    LPSTR lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;
    LPSTR lpstrFile;
    DWORD nMaxFile;
    LPSTR lpstrFileTitle;
    DWORD nMaxFileTitle;
    LPCSTR lpstrInitialDir;
    LPCSTR lpstrTitle;
    DWORD Flags;
    WORD nFileOffset;
    WORD nFileExtension;
    LPCSTR lpstrDefExt;
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    LPCSTR lpTemplateName;
    PVOID pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
};
using OPENFILENAME = OPENFILENAMEA;
using LPOPENFILENAMEA = OPENFILENAMEA*;

#define OFN_OVERWRITEPROMPT 0x00000002
#define OFN_HIDEREADONLY 0x00000004
#define OFN_NOCHANGEDIR 0x00000008

/// Flags: the above. False when the user gave up, or the name did not fit `nMaxFile`.
WIN32_EXPORT BOOL WINAPI GetSaveFileNameA(LPOPENFILENAMEA file);

#define GetSaveFileName GetSaveFileNameA
