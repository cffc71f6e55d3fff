#pragma once

// Drawing with the system's colours, text in rectangles, and the arithmetic of rectangles.

#include "wingdi_types.h"

// DrawTextA formats. Not supported: DT_TABSTOP, DT_EXTERNALLEADING, DT_INTERNAL, DT_EDITCONTROL,
// DT_PATH_ELLIPSIS, DT_WORD_ELLIPSIS, DT_MODIFYSTRING, DT_RTLREADING.
#define DT_TOP 0x0000
#define DT_LEFT 0x0000
#define DT_CENTER 0x0001
#define DT_RIGHT 0x0002
#define DT_VCENTER 0x0004
#define DT_BOTTOM 0x0008
#define DT_WORDBREAK 0x0010
#define DT_SINGLELINE 0x0020
#define DT_EXPANDTABS 0x0040
#define DT_NOCLIP 0x0100
#define DT_CALCRECT 0x0400
#define DT_NOPREFIX 0x0800
#define DT_END_ELLIPSIS 0x8000

// System colours; a class or FillRect brush may also be one of them plus 1.
#define COLOR_SCROLLBAR 0
#define COLOR_BACKGROUND 1
#define COLOR_DESKTOP COLOR_BACKGROUND
#define COLOR_ACTIVECAPTION 2
#define COLOR_INACTIVECAPTION 3
#define COLOR_MENU 4
#define COLOR_WINDOW 5
#define COLOR_WINDOWFRAME 6
#define COLOR_MENUTEXT 7
#define COLOR_WINDOWTEXT 8
#define COLOR_CAPTIONTEXT 9
#define COLOR_ACTIVEBORDER 10
#define COLOR_INACTIVEBORDER 11
#define COLOR_APPWORKSPACE 12
#define COLOR_HIGHLIGHT 13
#define COLOR_HIGHLIGHTTEXT 14
#define COLOR_BTNFACE 15
#define COLOR_3DFACE COLOR_BTNFACE
#define COLOR_BTNSHADOW 16
#define COLOR_3DSHADOW COLOR_BTNSHADOW
#define COLOR_GRAYTEXT 17
#define COLOR_BTNTEXT 18
#define COLOR_INACTIVECAPTIONTEXT 19
#define COLOR_BTNHIGHLIGHT 20
#define COLOR_3DHIGHLIGHT COLOR_BTNHIGHLIGHT
#define COLOR_3DHILIGHT COLOR_BTNHIGHLIGHT
#define COLOR_3DDKSHADOW 21
#define COLOR_3DLIGHT 22
#define COLOR_INFOTEXT 23
#define COLOR_INFOBK 24
#define COLOR_HOTLIGHT 26

WIN32_EXPORT int WINAPI DrawTextA(HDC dc, LPCSTR text, int count, LPRECT rect, UINT format);
WIN32_EXPORT int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH brush);
WIN32_EXPORT int WINAPI FrameRect(HDC dc, const RECT* rect, HBRUSH brush);
WIN32_EXPORT BOOL WINAPI InvertRect(HDC dc, const RECT* rect);
WIN32_EXPORT BOOL WINAPI DrawFocusRect(HDC dc, const RECT* rect);
WIN32_EXPORT DWORD WINAPI GetSysColor(int index);
WIN32_EXPORT HBRUSH WINAPI GetSysColorBrush(int index);

WIN32_EXPORT BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom);
WIN32_EXPORT BOOL WINAPI SetRectEmpty(LPRECT rect);
WIN32_EXPORT BOOL WINAPI CopyRect(LPRECT target, const RECT* source);
WIN32_EXPORT BOOL WINAPI InflateRect(LPRECT rect, int x, int y);
WIN32_EXPORT BOOL WINAPI OffsetRect(LPRECT rect, int x, int y);
WIN32_EXPORT BOOL WINAPI IntersectRect(LPRECT target, const RECT* first, const RECT* second);
WIN32_EXPORT BOOL WINAPI UnionRect(LPRECT target, const RECT* first, const RECT* second);
WIN32_EXPORT BOOL WINAPI SubtractRect(LPRECT target, const RECT* first, const RECT* second);
WIN32_EXPORT BOOL WINAPI EqualRect(const RECT* first, const RECT* second);
WIN32_EXPORT BOOL WINAPI IsRectEmpty(const RECT* rect);
WIN32_EXPORT BOOL WINAPI PtInRect(const RECT* rect, POINT point);

#define DrawText DrawTextA
