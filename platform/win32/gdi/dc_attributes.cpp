#include <utility>

#include "platform/win32/gdi/dc.h"

using namespace winbase;

namespace {

// The size that a screen announces to those who ask a context without a surface.
constexpr int kScreenWidth = 1920;
constexpr int kScreenHeight = 1080;
constexpr int kDotsPerInch = 96;

template <class T>
T Attribute(HDC handle, T DcState::*member, T failure) {
    const Dc* dc = FindDc(handle);
    return dc ? dc->state.*member : failure;
}

/// Sets and answers the former value.
template <class T>
T Exchange(HDC handle, T DcState::*member, T value, T failure) {
    Dc* dc = FindDc(handle);
    return dc ? std::exchange(dc->state.*member, value) : failure;
}

BOOL Answer(const Dc* dc, POINT DcState::*member, LPPOINT point) {
    if (!dc || !point) return FALSE;
    *point = dc->state.*member;
    return TRUE;
}

/// `former` may be null.
BOOL ExchangePoint(Dc* dc, POINT DcState::*member, POINT value, LPPOINT former) {
    if (!dc) return FALSE;
    const POINT old = std::exchange(dc->state.*member, value);
    if (former) *former = old;
    return TRUE;
}

int Millimetres(int pixels) { return pixels * 254 / (10 * kDotsPerInch); }

}  // namespace

COLORREF WINAPI SetTextColor(HDC dc, COLORREF color) {
    return Exchange(dc, &DcState::text_color, color & 0xFFFFFFu, CLR_INVALID);
}

COLORREF WINAPI GetTextColor(HDC dc) { return Attribute(dc, &DcState::text_color, CLR_INVALID); }

COLORREF WINAPI SetBkColor(HDC dc, COLORREF color) {
    return Exchange(dc, &DcState::back_color, color & 0xFFFFFFu, CLR_INVALID);
}

COLORREF WINAPI GetBkColor(HDC dc) { return Attribute(dc, &DcState::back_color, CLR_INVALID); }

int WINAPI SetBkMode(HDC dc, int mode) {
    if (mode != TRANSPARENT && mode != OPAQUE) return 0;
    return Exchange(dc, &DcState::back_mode, mode, 0);
}

int WINAPI GetBkMode(HDC dc) { return Attribute(dc, &DcState::back_mode, 0); }

UINT WINAPI SetTextAlign(HDC dc, UINT align) {
    return Exchange(dc, &DcState::align, align, GDI_ERROR);
}

UINT WINAPI GetTextAlign(HDC dc) { return Attribute(dc, &DcState::align, GDI_ERROR); }

int WINAPI SetStretchBltMode(HDC dc, int mode) {
    if (mode < BLACKONWHITE || mode > HALFTONE) return 0;
    return Exchange(dc, &DcState::stretch_mode, mode, 0);
}

int WINAPI GetStretchBltMode(HDC dc) { return Attribute(dc, &DcState::stretch_mode, 0); }

BOOL WINAPI SetViewportOrgEx(HDC dc, int x, int y, LPPOINT former) {
    return ExchangePoint(FindDc(dc), &DcState::viewport, {Near(x), Near(y)}, former);
}

BOOL WINAPI GetViewportOrgEx(HDC dc, LPPOINT origin) {
    return Answer(FindDc(dc), &DcState::viewport, origin);
}

BOOL WINAPI OffsetViewportOrgEx(HDC handle, int x, int y, LPPOINT former) {
    Dc* dc = FindDc(handle);
    if (!dc) return FALSE;
    const POINT old = dc->state.viewport;
    return ExchangePoint(dc, &DcState::viewport, {Near(old.x + Near(x)), Near(old.y + Near(y))},
                         former);
}

BOOL WINAPI MoveToEx(HDC dc, int x, int y, LPPOINT former) {
    return ExchangePoint(FindDc(dc), &DcState::position, {x, y}, former);
}

BOOL WINAPI GetCurrentPositionEx(HDC dc, LPPOINT position) {
    return Answer(FindDc(dc), &DcState::position, position);
}

int WINAPI GetDeviceCaps(HDC handle, int index) {
    if (!FindDc(handle)) return 0;
    switch (index) {
        case TECHNOLOGY: return DT_RASDISPLAY;
        case HORZRES: return kScreenWidth;
        case VERTRES: return kScreenHeight;
        case HORZSIZE: return Millimetres(kScreenWidth);
        case VERTSIZE: return Millimetres(kScreenHeight);
        case BITSPIXEL: return 32;
        case PLANES: return 1;
        case NUMCOLORS: return -1;
        case LOGPIXELSX:
        case LOGPIXELSY: return kDotsPerInch;
        default: return 0;
    }
}
