#pragma once

// The save-file dialog.

#include "windef.h"

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
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
};
using OPENFILENAME = OPENFILENAMEA;
using LPOPENFILENAMEA = OPENFILENAMEA*;

#define OFN_READONLY 0x00000001
#define OFN_OVERWRITEPROMPT 0x00000002
#define OFN_HIDEREADONLY 0x00000004
#define OFN_NOCHANGEDIR 0x00000008
#define OFN_EXTENSIONDIFFERENT 0x00000400
#define OFN_PATHMUSTEXIST 0x00000800
#define OFN_EXPLORER 0x00080000
#define OFN_ENABLESIZING 0x00800000

#define CDERR_STRUCTSIZE 0x0001
#define FNERR_INVALIDFILENAME 0x3002
#define FNERR_BUFFERTOOSMALL 0x3003

WIN32_EXPORT BOOL WINAPI GetSaveFileNameA(LPOPENFILENAMEA parameters);
/// Why the last file dialog of this thread answered FALSE: 0 when the person cancelled it.
WIN32_EXPORT DWORD WINAPI CommDlgExtendedError();

#define GetSaveFileName GetSaveFileNameA
