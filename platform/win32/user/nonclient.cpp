#include "platform/win32/user/nonclient.h"

#include <algorithm>

#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/scroll_bar.h"

namespace winbase {

namespace {

constexpr int kBoxWidth = 30;
constexpr int kCornerReach = 16;  // a border sizes both ways this near to a corner

bool HasTitle(DWORD style) { return (style & WS_CAPTION) == WS_CAPTION; }

int OuterBorder(DWORD style, DWORD ex_style) {
    if ((style & WS_THICKFRAME) != 0) return GetSystemMetrics(SM_CXSIZEFRAME);
    if ((style & WS_DLGFRAME) != 0 || (ex_style & WS_EX_DLGMODALFRAME) != 0) {
        return GetSystemMetrics(SM_CXFIXEDFRAME);
    }
    const bool line = (style & WS_BORDER) != 0 || (ex_style & WS_EX_STATICEDGE) != 0;
    return line ? GetSystemMetrics(SM_CXBORDER) : 0;
}

int ClientEdge(DWORD ex_style) {
    return (ex_style & WS_EX_CLIENTEDGE) != 0 ? GetSystemMetrics(SM_CXEDGE) : 0;
}

void TakeBars(const Window* window, RECT& client) {
    const int width = GetSystemMetrics(SM_CXVSCROLL);
    const int height = GetSystemMetrics(SM_CYHSCROLL);
    // A bar that finds no room isn't there.
    if ((window->style & WS_HSCROLL) != 0 && client.bottom - client.top > height) {
        client.bottom -= height;
    }
    if ((window->style & WS_VSCROLL) != 0 && client.right - client.left > width) {
        client.right -= width;
    }
}

RECT WindowArea(const Window* window) {
    return {0, 0, window->rect.right - window->rect.left, window->rect.bottom - window->rect.top};
}

RECT TakeBox(RECT& title) {
    if (title.right - title.left < kBoxWidth) return {};
    const RECT box{title.right - kBoxWidth, title.top, title.right, title.bottom};
    title.right -= kBoxWidth;
    return box;
}

bool IsIn(const RECT& rect, POINT point) { return PtInRect(&rect, point) != FALSE; }

int HitBorder(const RECT& area, int border, POINT at) {
    const int side = std::max(kCornerReach, border);
    const bool left = at.x < side;
    const bool right = at.x >= area.right - side;
    if (at.y < border || (at.y < side && (at.x < border || at.x >= area.right - border))) {
        return left ? HTTOPLEFT : right ? HTTOPRIGHT : HTTOP;
    }
    if (at.y >= area.bottom - border ||
        (at.y >= area.bottom - side && (at.x < border || at.x >= area.right - border))) {
        return left ? HTBOTTOMLEFT : right ? HTBOTTOMRIGHT : HTBOTTOM;
    }
    return left ? HTLEFT : HTRIGHT;
}

int HitTitle(const FrameLayout& frame, POINT at) {
    if (IsIn(frame.close, at)) return HTCLOSE;
    if (IsIn(frame.zoom, at)) return HTMAXBUTTON;
    return HTCAPTION;
}

bool CanSize(const Window* window) {
    return (window->style & WS_THICKFRAME) != 0 &&
           (window->style & (WS_MAXIMIZE | WS_MINIMIZE)) == 0;
}

}  // namespace

FrameLayout LayOutFrame(const Window* window) {
    FrameLayout frame;
    frame.border = OuterBorder(window->style, window->ex_style);
    const RECT& client = window->client;
    if ((window->style & WS_HSCROLL) != 0 && (window->style & WS_VSCROLL) != 0) {
        frame.corner = {client.right, client.bottom, client.right + GetSystemMetrics(SM_CXVSCROLL),
                        client.bottom + GetSystemMetrics(SM_CYHSCROLL)};
    }
    if (!HasTitle(window->style)) return frame;
    const RECT area = WindowArea(window);
    frame.title = {frame.border, frame.border, area.right - frame.border,
                   frame.border + GetSystemMetrics(SM_CYCAPTION)};
    if ((window->style & WS_SYSMENU) == 0) return frame;
    RECT left = frame.title;
    frame.close = TakeBox(left);
    if ((window->style & WS_MAXIMIZEBOX) != 0) frame.zoom = TakeBox(left);
    return frame;
}

RECT ClientFromWindow(const Window* window, const RECT& rect) {
    if ((window->style & WS_MINIMIZE) != 0) return {rect.left, rect.top, rect.left, rect.top};
    const int border = OuterBorder(window->style, window->ex_style);
    const int edge = ClientEdge(window->ex_style);
    RECT client = rect;
    InflateRect(&client, -border, -border);
    if (HasTitle(window->style)) client.top += GetSystemMetrics(SM_CYCAPTION);
    InflateRect(&client, -edge, -edge);
    client.right = std::max(client.right, client.left);
    client.bottom = std::max(client.bottom, client.top);
    TakeBars(window, client);
    return client;
}

int HitTestFrame(const Window* window, POINT screen) {
    const RECT whole = ScreenRect(window);
    if (!IsIn(whole, screen)) return HTNOWHERE;
    const POINT at{screen.x - whole.left, screen.y - whole.top};
    if (IsIn(window->client, at)) return HTCLIENT;
    const RECT area = WindowArea(window);
    const FrameLayout frame = LayOutFrame(window);
    RECT inner = area;
    InflateRect(&inner, -frame.border, -frame.border);
    if (!IsIn(inner, at)) return CanSize(window) ? HitBorder(area, frame.border, at) : HTBORDER;
    if (IsIn(frame.title, at)) return HitTitle(frame, at);
    if (IsIn(ScrollBarRect(window, SB_VERT), at)) return HTVSCROLL;
    if (IsIn(ScrollBarRect(window, SB_HORZ), at)) return HTHSCROLL;
    if (IsIn(frame.corner, at)) return HTGROWBOX;
    return HTBORDER;
}

MINMAXINFO AskLimits(Window* window) {
    const SIZE screen = DesktopSize();
    const int border = OuterBorder(window->style, window->ex_style);
    MINMAXINFO limits{};
    limits.ptMaxPosition = {-border, -border};
    limits.ptMaxSize = {screen.cx + 2 * border, screen.cy + 2 * border};
    limits.ptMaxTrackSize = limits.ptMaxSize;
    if (HasTitle(window->style)) {
        limits.ptMinTrackSize = {GetSystemMetrics(SM_CXMIN), GetSystemMetrics(SM_CYMIN)};
    } else {
        limits.ptMinTrackSize = {2 * border, 2 * border};
    }
    MINMAXINFO asked = limits;
    CallProcedure(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&asked));
    asked.ptMaxTrackSize.x = std::max(asked.ptMaxTrackSize.x, asked.ptMinTrackSize.x);
    asked.ptMaxTrackSize.y = std::max(asked.ptMaxTrackSize.y, asked.ptMinTrackSize.y);
    return asked;
}

}  // namespace winbase

using namespace winbase;

BOOL AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD ex_style) {
    if (rect == nullptr || menu) return Fail(ERROR_INVALID_PARAMETER);
    const int around = OuterBorder(style, ex_style) + ClientEdge(ex_style);
    InflateRect(rect, around, around);
    if (HasTitle(style)) rect->top -= GetSystemMetrics(SM_CYCAPTION);
    return TRUE;
}

BOOL AdjustWindowRect(LPRECT rect, DWORD style, BOOL menu) {
    return AdjustWindowRectEx(rect, style, menu, 0);
}
