#pragma once

// Constants of drawing.

#include "windef.h"

#define RGB(red, green, blue)                                                    \
    (static_cast<COLORREF>(static_cast<BYTE>(red) |                              \
                           (static_cast<DWORD>(static_cast<BYTE>(green)) << 8) | \
                           (static_cast<DWORD>(static_cast<BYTE>(blue)) << 16)))
#define GetRValue(color) (static_cast<BYTE>((color)&0xff))
#define GetGValue(color) (static_cast<BYTE>(((color) >> 8) & 0xff))
#define GetBValue(color) (static_cast<BYTE>(((color) >> 16) & 0xff))

#define CLR_INVALID 0xFFFFFFFFu
#define GDI_ERROR 0xFFFFFFFFu
#define HGDI_ERROR (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))

// Kinds of objects, GetCurrentObject
#define OBJ_PEN 1
#define OBJ_BRUSH 2
#define OBJ_FONT 6
#define OBJ_BITMAP 7
#define OBJ_REGION 8

// Stock objects
#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define DKGRAY_BRUSH 3
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define HOLLOW_BRUSH NULL_BRUSH
#define WHITE_PEN 6
#define BLACK_PEN 7
#define NULL_PEN 8
#define OEM_FIXED_FONT 10
#define ANSI_FIXED_FONT 11
#define ANSI_VAR_FONT 12
#define SYSTEM_FONT 13
#define DEVICE_DEFAULT_FONT 14
#define DEFAULT_PALETTE 15
#define SYSTEM_FIXED_FONT 16
#define DEFAULT_GUI_FONT 17

// Brushes and pens
#define BS_SOLID 0
#define BS_NULL 1
#define BS_HOLLOW BS_NULL
#define PS_SOLID 0
#define PS_DASH 1
#define PS_DOT 2
#define PS_NULL 5

// Background, text alignment, mixing, stretching
#define TRANSPARENT 1
#define OPAQUE 2
#define TA_NOUPDATECP 0
#define TA_UPDATECP 1
#define TA_LEFT 0
#define TA_RIGHT 2
#define TA_CENTER 6
#define TA_TOP 0
#define TA_BOTTOM 8
#define TA_BASELINE 24
#define BLACKONWHITE 1
#define WHITEONBLACK 2
#define COLORONCOLOR 3
#define HALFTONE 4
#define ETO_OPAQUE 0x0002
#define ETO_CLIPPED 0x0004

// Raster operations
#define SRCCOPY 0x00CC0020u
#define SRCPAINT 0x00EE0086u
#define SRCAND 0x008800C6u
#define SRCINVERT 0x00660046u
#define PATCOPY 0x00F00021u
#define PATINVERT 0x005A0049u
#define DSTINVERT 0x00550009u
#define BLACKNESS 0x00000042u
#define WHITENESS 0x00FF0062u

// Regions
#define ERROR 0
#define NULLREGION 1
#define SIMPLEREGION 2
#define COMPLEXREGION 3
#define RGN_ERROR ERROR
#define RGN_AND 1
#define RGN_OR 2
#define RGN_XOR 3
#define RGN_DIFF 4
#define RGN_COPY 5

// Device capabilities
#define TECHNOLOGY 2
#define HORZSIZE 4
#define VERTSIZE 6
#define HORZRES 8
#define VERTRES 10
#define BITSPIXEL 12
#define PLANES 14
#define NUMCOLORS 24
#define RASTERCAPS 38
#define LOGPIXELSX 88
#define LOGPIXELSY 90
#define DT_RASDISPLAY 1

// Fonts
#define LF_FACESIZE 32
#define FW_DONTCARE 0
#define FW_LIGHT 300
#define FW_NORMAL 400
#define FW_MEDIUM 500
#define FW_SEMIBOLD 600
#define FW_BOLD 700
#define ANSI_CHARSET 0
#define DEFAULT_CHARSET 1
#define GB2312_CHARSET 134
#define OUT_DEFAULT_PRECIS 0
#define CLIP_DEFAULT_PRECIS 0
#define DEFAULT_QUALITY 0
#define NONANTIALIASED_QUALITY 3
#define ANTIALIASED_QUALITY 4
#define CLEARTYPE_QUALITY 5
#define DEFAULT_PITCH 0
#define FIXED_PITCH 1
#define VARIABLE_PITCH 2
#define FF_DONTCARE 0x00
#define FF_ROMAN 0x10
#define FF_SWISS 0x20
#define FF_MODERN 0x30
#define TMPF_FIXED_PITCH 1
#define TMPF_VECTOR 2
#define TMPF_TRUETYPE 4

// Bitmaps
#define BI_RGB 0
#define DIB_RGB_COLORS 0

// Gradients and blending
#define GRADIENT_FILL_RECT_H 0
#define GRADIENT_FILL_RECT_V 1
#define AC_SRC_OVER 0
#define AC_SRC_ALPHA 1
