#pragma once

// Up-down, tab, date picker and tree, and what all controls with WM_NOTIFY share.

// clang-format off
#include "winuser_types.h"
#include "winbase_types.h"
#include "commctrl_tree.h"
// clang-format on

struct INITCOMMONCONTROLSEX {
    DWORD dwSize;
    DWORD dwICC;
};
using LPINITCOMMONCONTROLSEX = INITCOMMONCONTROLSEX*;

#define ICC_TREEVIEW_CLASSES 0x00000002
#define ICC_TAB_CLASSES 0x00000008
#define ICC_UPDOWN_CLASS 0x00000010
#define ICC_DATE_CLASSES 0x00000100
#define ICC_STANDARD_CLASSES 0x00004000

/// The classes are there from the start; asking for others than the above fails.
WIN32_EXPORT BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls);
WIN32_EXPORT BOOL WINAPI _TrackMouseEvent(LPTRACKMOUSEEVENT track);

// Notifications of several controls
#define NM_CLICK (0U - 2U)
#define NM_DBLCLK (0U - 3U)
#define NM_RETURN (0U - 4U)
#define NM_RCLICK (0U - 5U)
#define NM_RDBLCLK (0U - 6U)
#define NM_SETFOCUS (0U - 7U)
#define NM_KILLFOCUS (0U - 8U)
#define NM_CUSTOMDRAW (0U - 12U)
#define NM_SETCURSOR (0U - 17U)

// Custom drawing
struct NMCUSTOMDRAW {
    NMHDR hdr;
    DWORD dwDrawStage;
    HDC hdc;
    RECT rc;
    DWORD_PTR dwItemSpec;
    UINT uItemState;
    LPARAM lItemlParam;
};
using LPNMCUSTOMDRAW = NMCUSTOMDRAW*;

struct NMTVCUSTOMDRAW {
    NMCUSTOMDRAW nmcd;
    COLORREF clrText;
    COLORREF clrTextBk;
    int iLevel;
};
using LPNMTVCUSTOMDRAW = NMTVCUSTOMDRAW*;

#define CDRF_DODEFAULT 0x00000000
#define CDRF_NEWFONT 0x00000002
#define CDRF_SKIPDEFAULT 0x00000004
#define CDRF_NOTIFYPOSTPAINT 0x00000010
#define CDRF_NOTIFYITEMDRAW 0x00000020
#define CDDS_PREPAINT 0x00000001
#define CDDS_POSTPAINT 0x00000002
#define CDDS_ITEM 0x00010000
#define CDDS_ITEMPREPAINT (CDDS_ITEM | CDDS_PREPAINT)
#define CDDS_ITEMPOSTPAINT (CDDS_ITEM | CDDS_POSTPAINT)
#define CDIS_SELECTED 0x0001
#define CDIS_FOCUS 0x0010

// Up-down
#define UPDOWN_CLASS "msctls_updown32"
#define UPDOWN_CLASSA UPDOWN_CLASS
#define UDS_HORZ 0x0040
#define UDN_DELTAPOS (0U - 722U)

struct NMUPDOWN {
    NMHDR hdr;
    int iPos;
    int iDelta;
};
using LPNMUPDOWN = NMUPDOWN*;
using NM_UPDOWN = NMUPDOWN;

// Tab
#define WC_TABCONTROL "SysTabControl32"
#define WC_TABCONTROLA WC_TABCONTROL
#define TCM_GETITEMCOUNT 0x1304
#define TCM_GETITEMA 0x1305
#define TCM_SETITEMA 0x1306
#define TCM_INSERTITEMA 0x1307
#define TCM_DELETEITEM 0x1308
#define TCM_DELETEALLITEMS 0x1309
#define TCM_GETITEMRECT 0x130A
#define TCM_GETCURSEL 0x130B
#define TCM_SETCURSEL 0x130C
#define TCM_HITTEST 0x130D
#define TCM_GETCURFOCUS 0x132F
#define TCM_SETCURFOCUS 0x1330
#define TCM_GETITEM TCM_GETITEMA
#define TCM_SETITEM TCM_SETITEMA
#define TCM_INSERTITEM TCM_INSERTITEMA
#define TCN_KEYDOWN (0U - 550U)
#define TCN_SELCHANGE (0U - 551U)
#define TCN_SELCHANGING (0U - 552U)
#define TCIF_TEXT 0x0001
#define TCIF_PARAM 0x0008
#define TCHT_NOWHERE 0x0001
#define TCHT_ONITEMLABEL 0x0004

struct TCITEMA {
    UINT mask;
    DWORD dwState;
    DWORD dwStateMask;
    LPSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
};
using TCITEM = TCITEMA;

struct TCHITTESTINFO {
    POINT pt;
    UINT flags;
};

#pragma pack(push, 1)
struct NMTCKEYDOWN {
    NMHDR hdr;
    WORD wVKey;
    UINT flags;
};
#pragma pack(pop)

// Date picker
#define DATETIMEPICK_CLASS "SysDateTimePick32"
#define DATETIMEPICK_CLASSA DATETIMEPICK_CLASS
#define DTM_GETSYSTEMTIME 0x1001
#define DTM_SETSYSTEMTIME 0x1002
#define DTM_SETRANGE 0x1004
#define DTS_SHORTDATEFORMAT 0x0000
#define DTS_SHOWNONE 0x0002
#define GDTR_MIN 0x0001
#define GDTR_MAX 0x0002
#define GDT_ERROR (-1)
#define GDT_VALID 0
#define GDT_NONE 1
#define DTN_DATETIMECHANGE (0U - 759U)
#define DTN_DROPDOWN (0U - 754U)
#define DTN_CLOSEUP (0U - 753U)

struct NMDATETIMECHANGE {
    NMHDR nmhdr;
    DWORD dwFlags;
    SYSTEMTIME st;
};
using LPNMDATETIMECHANGE = NMDATETIMECHANGE*;
