#pragma once

#include "platform/toolkit/message_map.h"

/// One entry for each message that has a handler of a fixed name and signature.

#define ON_WM_CREATE() TOOLKIT_ENTRY(WM_CREATE, int, &ThisClass::OnCreate, LPCREATESTRUCT)
#define ON_WM_DESTROY() TOOLKIT_ENTRY(WM_DESTROY, void, &ThisClass::OnDestroy)
#define ON_WM_SIZE() TOOLKIT_ENTRY(WM_SIZE, void, &ThisClass::OnSize, UINT, int, int)
#define ON_WM_MOVE() TOOLKIT_ENTRY(WM_MOVE, void, &ThisClass::OnMove, int, int)
#define ON_WM_SHOWWINDOW() TOOLKIT_ENTRY(WM_SHOWWINDOW, void, &ThisClass::OnShowWindow, BOOL, UINT)
#define ON_WM_ENABLE() TOOLKIT_ENTRY(WM_ENABLE, void, &ThisClass::OnEnable, BOOL)
#define ON_WM_TIMER() TOOLKIT_ENTRY(WM_TIMER, void, &ThisClass::OnTimer, UINT_PTR)

#define ON_WM_ERASEBKGND() TOOLKIT_ENTRY(WM_ERASEBKGND, BOOL, &ThisClass::OnEraseBkgnd, CDC*)
#define ON_WM_PAINT() TOOLKIT_ENTRY(WM_PAINT, void, &ThisClass::OnPaint)
#define ON_WM_NCPAINT() TOOLKIT_ENTRY(WM_NCPAINT, void, &ThisClass::OnNcPaint)
#define ON_WM_CTLCOLOR() \
    TOOLKIT_ENTRY(toolkit::kCtlColor, HBRUSH, &ThisClass::OnCtlColor, CDC*, CWnd*, UINT)
#define ON_WM_CTLCOLOR_REFLECT()                                                                \
    TOOLKIT_ENTRY(toolkit::kReflected | toolkit::kCtlColor, HBRUSH, &ThisClass::CtlColor, CDC*, \
                  UINT)
#define ON_WM_DRAWITEM() \
    TOOLKIT_ENTRY(WM_DRAWITEM, void, &ThisClass::OnDrawItem, int, LPDRAWITEMSTRUCT)
#define ON_WM_MEASUREITEM() \
    TOOLKIT_ENTRY(WM_MEASUREITEM, void, &ThisClass::OnMeasureItem, int, LPMEASUREITEMSTRUCT)

#define ON_WM_SETFOCUS() TOOLKIT_ENTRY(WM_SETFOCUS, void, &ThisClass::OnSetFocus, CWnd*)
#define ON_WM_KILLFOCUS() TOOLKIT_ENTRY(WM_KILLFOCUS, void, &ThisClass::OnKillFocus, CWnd*)
#define ON_WM_CHAR() TOOLKIT_ENTRY(WM_CHAR, void, &ThisClass::OnChar, UINT, UINT, UINT)
#define ON_WM_KEYDOWN() TOOLKIT_ENTRY(WM_KEYDOWN, void, &ThisClass::OnKeyDown, UINT, UINT, UINT)
#define ON_WM_KEYUP() TOOLKIT_ENTRY(WM_KEYUP, void, &ThisClass::OnKeyUp, UINT, UINT, UINT)
#define ON_WM_GETDLGCODE() TOOLKIT_ENTRY(WM_GETDLGCODE, UINT, &ThisClass::OnGetDlgCode)

#define ON_WM_LBUTTONDOWN() \
    TOOLKIT_ENTRY(WM_LBUTTONDOWN, void, &ThisClass::OnLButtonDown, UINT, CPoint)
#define ON_WM_LBUTTONUP() TOOLKIT_ENTRY(WM_LBUTTONUP, void, &ThisClass::OnLButtonUp, UINT, CPoint)
#define ON_WM_LBUTTONDBLCLK() \
    TOOLKIT_ENTRY(WM_LBUTTONDBLCLK, void, &ThisClass::OnLButtonDblClk, UINT, CPoint)
#define ON_WM_RBUTTONUP() TOOLKIT_ENTRY(WM_RBUTTONUP, void, &ThisClass::OnRButtonUp, UINT, CPoint)
#define ON_WM_NCLBUTTONDOWN() \
    TOOLKIT_ENTRY(WM_NCLBUTTONDOWN, void, &ThisClass::OnNcLButtonDown, UINT, CPoint)
#define ON_WM_MOUSEMOVE() TOOLKIT_ENTRY(WM_MOUSEMOVE, void, &ThisClass::OnMouseMove, UINT, CPoint)
#define ON_WM_MOUSEWHEEL() \
    TOOLKIT_ENTRY(WM_MOUSEWHEEL, BOOL, &ThisClass::OnMouseWheel, UINT, short, CPoint)
#define ON_WM_HSCROLL() \
    TOOLKIT_ENTRY(WM_HSCROLL, void, &ThisClass::OnHScroll, UINT, UINT, CScrollBar*)
#define ON_WM_VSCROLL() \
    TOOLKIT_ENTRY(WM_VSCROLL, void, &ThisClass::OnVScroll, UINT, UINT, CScrollBar*)
#define ON_WM_SETCURSOR() \
    TOOLKIT_ENTRY(WM_SETCURSOR, BOOL, &ThisClass::OnSetCursor, CWnd*, UINT, UINT)
#define ON_WM_CONTEXTMENU() \
    TOOLKIT_ENTRY(WM_CONTEXTMENU, void, &ThisClass::OnContextMenu, CWnd*, CPoint)
