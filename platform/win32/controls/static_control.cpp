#include "platform/win32/controls/static_control.h"

#include <cassert>
#include <string>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/control_host.h"
#include "platform/win32/controls/standard_icons.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

UINT TextFormat(DWORD style) {
    UINT format = DT_EXPANDTABS;
    switch (style & SS_TYPEMASK) {
        case SS_CENTER: format |= DT_CENTER | DT_WORDBREAK; break;
        case SS_RIGHT: format |= DT_RIGHT | DT_WORDBREAK; break;
        case SS_SIMPLE: format |= DT_SINGLELINE; break;
        case SS_LEFTNOWORDWRAP: break;
        default: format |= DT_WORDBREAK; break;
    }
    constexpr UINT kLines = DT_WORDBREAK;
    if ((style & SS_NOPREFIX) != 0) format |= DT_NOPREFIX;
    if ((style & SS_CENTERIMAGE) != 0) format = (format & ~kLines) | DT_SINGLELINE | DT_VCENTER;
    if ((style & SS_ENDELLIPSIS) != 0)
        format = (format & ~kLines) | DT_SINGLELINE | DT_END_ELLIPSIS;
    return format;
}

}  // namespace

LRESULT CALLBACK StaticControl::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return HostControl<StaticControl>(window, message, wParam, lParam);
}

LRESULT StaticControl::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE: assert(Type() != SS_BITMAP && "statics show no bitmaps"); return 0;
        case WM_GETDLGCODE: return DLGC_STATIC;
        case WM_NCHITTEST: return Notifies() ? HTCLIENT : HTTRANSPARENT;
        case WM_ERASEBKGND: return 1;  // painted with the rest
        case WM_PAINT: PaintUpdate(); return 0;
        case WM_PRINTCLIENT: Paint(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_ENABLE: Enable(wParam != 0); return 0;
        case WM_SETTEXT: return SetText(wParam, lParam);
        case WM_GETFONT: return reinterpret_cast<LRESULT>(font_);
        case WM_SETFONT:
            font_ = reinterpret_cast<HFONT>(wParam);
            if (LOWORD(lParam) != 0) InvalidateRect(window_, nullptr, TRUE);
            return 0;
        case WM_LBUTTONDOWN:
            if (Notifies()) TellParent(window_, STN_CLICKED);
            return 0;
        case WM_LBUTTONDBLCLK:
            if (Notifies()) TellParent(window_, STN_DBLCLK);
            return 0;
        case STM_SETICON: return SetIcon(reinterpret_cast<HICON>(wParam));
        case STM_GETICON: return reinterpret_cast<LRESULT>(icon_);
        default: return DefWindowProcA(window_, message, wParam, lParam);
    }
}

LRESULT StaticControl::SetIcon(HICON icon) {
    const HICON former = icon_;
    icon_ = icon;
    if (Type() == SS_ICON && icon != nullptr && (Style() & SS_CENTERIMAGE) == 0) {
        SetWindowPos(window_, nullptr, 0, 0, GetSystemMetrics(SM_CXICON),
                     GetSystemMetrics(SM_CYICON), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    InvalidateRect(window_, nullptr, TRUE);
    return reinterpret_cast<LRESULT>(former);
}

LRESULT StaticControl::SetText(WPARAM wParam, LPARAM lParam) {
    const LRESULT answer = DefWindowProcA(window_, WM_SETTEXT, wParam, lParam);
    PaintNow();
    return answer;
}

void StaticControl::Enable(bool enabled) {
    PaintNow();
    if (Notifies()) TellParent(window_, enabled ? STN_ENABLE : STN_DISABLE);
}

void StaticControl::PaintUpdate() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    if (dc == nullptr) return;
    Paint(dc);
    EndPaint(window_, &paint);
}

void StaticControl::PaintNow() {
    if (!IsWindowVisible(window_)) return;
    const HDC dc = GetDC(window_);
    if (dc == nullptr) return;
    Paint(dc);
    ReleaseDC(window_, dc);
}

void StaticControl::Paint(HDC dc) {
    const UseFont font(dc, font_);
    RECT client{};
    GetClientRect(window_, &client);
    const HBRUSH ground = AskColors(window_, dc, WM_CTLCOLORSTATIC);
    switch (Type()) {
        case SS_OWNERDRAW: AskOwner(dc, client); return;
        case SS_BLACKRECT: FillColor(dc, client, look::kText); return;
        case SS_GRAYRECT: FillColor(dc, client, look::kLine); return;
        case SS_WHITERECT: FillColor(dc, client, look::kPaper); return;
        default: break;
    }
    FillRect(dc, &client, ground);
    switch (Type()) {
        case SS_ETCHEDHORZ:
            FillColor(dc, {client.left, client.top, client.right, client.top + 1}, look::kLine);
            return;
        case SS_ICON:
            if (icon_ != nullptr) DrawStandardIcon(dc, client, icon_);
            return;
        default: PaintText(dc, client); return;
    }
}

void StaticControl::AskOwner(HDC dc, const RECT& client) {
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_STATIC;
    item.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = IsWindowEnabled(window_) ? 0u : ODS_DISABLED;
    item.hwndItem = window_;
    item.hDC = dc;
    item.rcItem = client;
    const int saved = SaveDC(dc);
    SendMessageA(GetParent(window_), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    RestoreDC(dc, saved);
}

void StaticControl::PaintText(HDC dc, const RECT& client) {
    const Window* const self = LookUp(window_);
    if (self == nullptr || self->text.empty()) return;
    if (!IsWindowEnabled(window_)) SetTextColor(dc, look::kDisabled);
    const std::string text = self->text;
    RECT area = client;
    DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &area, TextFormat(Style()));
}

}  // namespace winbase
