#pragma once

// Device contexts, objects, lines and areas, copies, regions and text.
//
// Colours, mixing: any COLORREF, no palettes. Map mode: MM_TEXT. Bitmaps: 32 bits, and 1 bit as far
// as the first bitmap of a memory context needs it. Pens: solid, dotted, dashed, null.

#include "wingdi_types.h"

// ---- device contexts ----

WIN32_EXPORT HDC WINAPI CreateCompatibleDC(HDC dc);
WIN32_EXPORT BOOL WINAPI DeleteDC(HDC dc);
WIN32_EXPORT int WINAPI SaveDC(HDC dc);
WIN32_EXPORT BOOL WINAPI RestoreDC(HDC dc, int saved);
WIN32_EXPORT int WINAPI GetDeviceCaps(HDC dc, int index);
WIN32_EXPORT COLORREF WINAPI SetTextColor(HDC dc, COLORREF color);
WIN32_EXPORT COLORREF WINAPI GetTextColor(HDC dc);
WIN32_EXPORT COLORREF WINAPI SetBkColor(HDC dc, COLORREF color);
WIN32_EXPORT COLORREF WINAPI GetBkColor(HDC dc);
WIN32_EXPORT int WINAPI SetBkMode(HDC dc, int mode);
WIN32_EXPORT int WINAPI GetBkMode(HDC dc);
WIN32_EXPORT UINT WINAPI SetTextAlign(HDC dc, UINT align);
WIN32_EXPORT UINT WINAPI GetTextAlign(HDC dc);
WIN32_EXPORT int WINAPI SetStretchBltMode(HDC dc, int mode);
WIN32_EXPORT int WINAPI GetStretchBltMode(HDC dc);
WIN32_EXPORT BOOL WINAPI SetViewportOrgEx(HDC dc, int x, int y, LPPOINT former);
WIN32_EXPORT BOOL WINAPI GetViewportOrgEx(HDC dc, LPPOINT origin);
WIN32_EXPORT BOOL WINAPI OffsetViewportOrgEx(HDC dc, int x, int y, LPPOINT former);
WIN32_EXPORT BOOL WINAPI GetCurrentPositionEx(HDC dc, LPPOINT position);

// ---- objects ----

WIN32_EXPORT HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object);
WIN32_EXPORT HGDIOBJ WINAPI GetCurrentObject(HDC dc, UINT type);
WIN32_EXPORT HGDIOBJ WINAPI GetStockObject(int index);
WIN32_EXPORT BOOL WINAPI DeleteObject(HGDIOBJ object);
WIN32_EXPORT int WINAPI GetObjectA(HANDLE object, int size, LPVOID data);
WIN32_EXPORT DWORD WINAPI GetObjectType(HGDIOBJ object);
WIN32_EXPORT HBRUSH WINAPI CreateSolidBrush(COLORREF color);
WIN32_EXPORT HPEN WINAPI CreatePen(int style, int width, COLORREF color);
WIN32_EXPORT HFONT WINAPI CreateFontA(int height, int width, int escapement, int orientation,
                                      int weight, DWORD italic, DWORD underline, DWORD strike_out,
                                      DWORD char_set, DWORD out_precision, DWORD clip_precision,
                                      DWORD quality, DWORD pitch_and_family, LPCSTR face);
WIN32_EXPORT HFONT WINAPI CreateFontIndirectA(const LOGFONTA* font);
WIN32_EXPORT HBITMAP WINAPI CreateCompatibleBitmap(HDC dc, int width, int height);
WIN32_EXPORT HBITMAP WINAPI CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage,
                                             void** bits, HANDLE section, DWORD offset);

// ---- lines and areas ----

WIN32_EXPORT BOOL WINAPI MoveToEx(HDC dc, int x, int y, LPPOINT former);
WIN32_EXPORT BOOL WINAPI LineTo(HDC dc, int x, int y);
WIN32_EXPORT BOOL WINAPI Polyline(HDC dc, const POINT* points, int count);
WIN32_EXPORT BOOL WINAPI Polygon(HDC dc, const POINT* points, int count);
WIN32_EXPORT BOOL WINAPI Rectangle(HDC dc, int left, int top, int right, int bottom);
WIN32_EXPORT BOOL WINAPI Ellipse(HDC dc, int left, int top, int right, int bottom);
WIN32_EXPORT BOOL WINAPI RoundRect(HDC dc, int left, int top, int right, int bottom, int width,
                                   int height);
WIN32_EXPORT COLORREF WINAPI GetPixel(HDC dc, int x, int y);
WIN32_EXPORT COLORREF WINAPI SetPixel(HDC dc, int x, int y, COLORREF color);
WIN32_EXPORT BOOL WINAPI GradientFill(HDC dc, PTRIVERTEX vertices, ULONG vertex_count, PVOID mesh,
                                      ULONG mesh_count, ULONG mode);

// ---- copies ----

WIN32_EXPORT BOOL WINAPI PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation);
WIN32_EXPORT BOOL WINAPI BitBlt(HDC dc, int x, int y, int width, int height, HDC source,
                                int source_x, int source_y, DWORD operation);
WIN32_EXPORT BOOL WINAPI StretchBlt(HDC dc, int x, int y, int width, int height, HDC source,
                                    int source_x, int source_y, int source_width, int source_height,
                                    DWORD operation);
WIN32_EXPORT BOOL WINAPI TransparentBlt(HDC dc, int x, int y, int width, int height, HDC source,
                                        int source_x, int source_y, int source_width,
                                        int source_height, UINT transparent);
WIN32_EXPORT BOOL WINAPI AlphaBlend(HDC dc, int x, int y, int width, int height, HDC source,
                                    int source_x, int source_y, int source_width, int source_height,
                                    BLENDFUNCTION blend);

// ---- clipping and regions ----

WIN32_EXPORT int WINAPI ExcludeClipRect(HDC dc, int left, int top, int right, int bottom);
WIN32_EXPORT int WINAPI IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
WIN32_EXPORT int WINAPI SelectClipRgn(HDC dc, HRGN region);
WIN32_EXPORT int WINAPI GetClipBox(HDC dc, LPRECT box);
WIN32_EXPORT HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom);
WIN32_EXPORT HRGN WINAPI CreateRectRgnIndirect(const RECT* rect);
WIN32_EXPORT BOOL WINAPI SetRectRgn(HRGN region, int left, int top, int right, int bottom);
WIN32_EXPORT int WINAPI CombineRgn(HRGN result, HRGN first, HRGN second, int mode);
WIN32_EXPORT int WINAPI OffsetRgn(HRGN region, int x, int y);
WIN32_EXPORT int WINAPI GetRgnBox(HRGN region, LPRECT box);
WIN32_EXPORT BOOL WINAPI PtInRegion(HRGN region, int x, int y);

// ---- text ----

WIN32_EXPORT BOOL WINAPI TextOutA(HDC dc, int x, int y, LPCSTR text, int count);
WIN32_EXPORT BOOL WINAPI ExtTextOutA(HDC dc, int x, int y, UINT options, const RECT* rect,
                                     LPCSTR text, UINT count, const INT* advances);
WIN32_EXPORT BOOL WINAPI GetTextExtentPoint32A(HDC dc, LPCSTR text, int count, LPSIZE size);
WIN32_EXPORT BOOL WINAPI GetTextExtentExPointA(HDC dc, LPCSTR text, int count, int max_extent,
                                               LPINT fit, LPINT partial, LPSIZE size);
WIN32_EXPORT BOOL WINAPI GetTextMetricsA(HDC dc, LPTEXTMETRICA metrics);

#define GetObject GetObjectA
#define CreateFont CreateFontA
#define CreateFontIndirect CreateFontIndirectA
#define TextOut TextOutA
#define ExtTextOut ExtTextOutA
#define GetTextExtentPoint32 GetTextExtentPoint32A
#define GetTextExtentExPoint GetTextExtentExPointA
#define GetTextMetrics GetTextMetricsA
