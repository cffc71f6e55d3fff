#pragma once

// The rich edit control, as far as plain text needs it.

#include "winuser_types.h"

#define RICHEDIT_CLASSA "RichEdit20A"
#define RICHEDIT_CLASS RICHEDIT_CLASSA

#define EM_EXGETSEL (WM_USER + 52)
#define EM_EXLIMITTEXT (WM_USER + 53)
#define EM_EXLINEFROMCHAR (WM_USER + 54)
#define EM_EXSETSEL (WM_USER + 55)
#define EM_GETEVENTMASK (WM_USER + 59)
#define EM_GETSELTEXT (WM_USER + 62)
#define EM_SETBKGNDCOLOR (WM_USER + 67)
#define EM_SETEVENTMASK (WM_USER + 69)

// What the control tells its parent; nothing of it without being asked.
#define ENM_NONE 0x00000000
#define ENM_CHANGE 0x00000001
#define ENM_UPDATE 0x00000002
#define ENM_SELCHANGE 0x00080000

#define EN_SELCHANGE 0x0702
#define SEL_EMPTY 0x0000
#define SEL_TEXT 0x0001
#define SEL_MULTICHAR 0x0004

struct CHARRANGE {
    LONG cpMin;
    LONG cpMax;
};

// The control's records are packed to 4 bytes.
#pragma pack(push, 4)
struct SELCHANGE {
    NMHDR nmhdr;
    CHARRANGE chrg;
    WORD seltyp;
};
#pragma pack(pop)
