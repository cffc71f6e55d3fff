#pragma once

// Conversions between code pages and UTF-16. The ANSI code page is 936 whatever the machine says.

#include "windef.h"

#define CP_ACP 0u
#define CP_UTF8 65001u

#define MB_PRECOMPOSED 0x00000001u
#define MB_ERR_INVALID_CHARS 0x00000008u
#define WC_NO_BEST_FIT_CHARS 0x00000400u

/// Code pages: CP_ACP, 936, CP_UTF8. Flags: MB_PRECOMPOSED (the only way there is) and
/// MB_ERR_INVALID_CHARS.
WIN32_EXPORT int WINAPI MultiByteToWideChar(UINT code_page, DWORD flags, LPCSTR text, int length,
                                            LPWSTR buffer, int size);
/// Code pages as above. Flags: WC_NO_BEST_FIT_CHARS, which changes nothing, as no character is
/// ever replaced by a similar one.
WIN32_EXPORT int WINAPI WideCharToMultiByte(UINT code_page, DWORD flags, LPCWSTR text, int length,
                                            LPSTR buffer, int size, LPCSTR default_char,
                                            LPBOOL used_default);
WIN32_EXPORT BOOL WINAPI IsDBCSLeadByte(BYTE byte);
