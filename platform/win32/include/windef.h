#pragma once

// The plain types of the Windows interface. No function is declared here, so that headers which
// only pass handles and integers around need nothing else.

#include <cstddef>
#include <cstdint>

#define CALLBACK
#define WINAPI
#define APIENTRY WINAPI
#define CONST const
#define VOID void

#define WIN32_EXPORT extern "C" __attribute__((visibility("default")))

using BOOL = int;
using BYTE = unsigned char;
using WORD = unsigned short;
using DWORD = unsigned int;
using LONG = int;
using ULONG = unsigned int;
using INT = int;
using UINT = unsigned int;
using SHORT = short;
using USHORT = unsigned short;
using CHAR = char;
using UCHAR = unsigned char;
using WCHAR = char16_t;
using FLOAT = float;
using LONGLONG = long long;
using ULONGLONG = unsigned long long;
using DWORDLONG = unsigned long long;

using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = ULONG_PTR;
using SIZE_T = ULONG_PTR;

using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;

using LPSTR = char*;
using LPCSTR = const char*;
using PSTR = char*;
using PCSTR = const char*;
using LPWSTR = WCHAR*;
using LPCWSTR = const WCHAR*;
using LPVOID = void*;
using LPCVOID = const void*;
using PVOID = void*;
using LPBYTE = BYTE*;
using PBYTE = BYTE*;
using LPWORD = WORD*;
using LPDWORD = DWORD*;
using PDWORD = DWORD*;
using LPINT = int*;
using LPLONG = LONG*;
using LPBOOL = BOOL*;
using PULONG_PTR = ULONG_PTR*;
using PDWORD_PTR = DWORD_PTR*;

using ATOM = WORD;
using HRESULT = LONG;
using COLORREF = DWORD;
using LPCOLORREF = COLORREF*;

#ifndef TRUE
#define FALSE 0
#define TRUE 1
#endif

// A handle is a number that looks like a pointer; nothing ever stands behind it.
#define DECLARE_HANDLE(name) \
    struct name##__;         \
    using name = name##__*

using HANDLE = void*;
using HGLOBAL = HANDLE;
using HLOCAL = HANDLE;
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HHOOK);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HPEN);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HRGN);
DECLARE_HANDLE(HPALETTE);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HACCEL);
DECLARE_HANDLE(HKL);
DECLARE_HANDLE(HRSRC);
DECLARE_HANDLE(HDWP);
using HCURSOR = HICON;
using HMODULE = HINSTANCE;
using HGDIOBJ = void*;
using PHANDLE = HANDLE*;

using FARPROC = INT_PTR(CALLBACK*)();

struct tagPOINT {
    LONG x;
    LONG y;
};
using POINT = tagPOINT;
using LPPOINT = POINT*;

struct tagSIZE {
    LONG cx;
    LONG cy;
};
using SIZE = tagSIZE;
using LPSIZE = SIZE*;

struct tagRECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
using RECT = tagRECT;
using LPRECT = RECT*;
using LPCRECT = const RECT*;

struct POINTS {
    SHORT x;
    SHORT y;
};

#define MAX_PATH 260

#define MAKEWORD(low, high)                       \
    (static_cast<WORD>((static_cast<BYTE>(low)) | \
                       (static_cast<WORD>(static_cast<BYTE>(high)) << 8)))
#define MAKELONG(low, high)                                           \
    (static_cast<LONG>((static_cast<DWORD>(static_cast<WORD>(low))) | \
                       (static_cast<DWORD>(static_cast<WORD>(high)) << 16)))
#define LOWORD(value) (static_cast<WORD>((DWORD_PTR)(value)&0xffff))
#define HIWORD(value) (static_cast<WORD>(((DWORD_PTR)(value) >> 16) & 0xffff))
#define LOBYTE(value) (static_cast<BYTE>((DWORD_PTR)(value)&0xff))
#define HIBYTE(value) (static_cast<BYTE>(((DWORD_PTR)(value) >> 8) & 0xff))
#define MAKEWPARAM(low, high) (static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKELPARAM(low, high) (static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKELRESULT(low, high) (static_cast<LRESULT>(static_cast<DWORD>(MAKELONG(low, high))))
