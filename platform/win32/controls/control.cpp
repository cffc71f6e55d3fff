#include "platform/win32/controls/control.h"

#include <algorithm>

namespace winbase {

HBRUSH AskColors(HWND control, HDC dc, UINT message) {
    const HWND parent = GetParent(control);
    const auto wParam = reinterpret_cast<WPARAM>(dc);
    const auto lParam = reinterpret_cast<LPARAM>(control);
    LRESULT brush = parent != nullptr ? SendMessageA(parent, message, wParam, lParam) : 0;
    if (brush == 0) brush = DefWindowProcA(control, message, wParam, lParam);
    return reinterpret_cast<HBRUSH>(brush);
}

LRESULT TellParent(HWND control, int code) {
    const HWND parent = GetParent(control);
    if (parent == nullptr) return 0;
    return SendMessageA(parent, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                        reinterpret_cast<LPARAM>(control));
}

LRESULT TellParent(HWND control, NMHDR& header, UINT code) {
    header.hwndFrom = control;
    header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(control));
    header.code = code;
    const HWND parent = GetParent(control);
    if (parent == nullptr) return 0;
    return SendMessageA(parent, WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

void FillColor(HDC dc, const RECT& rect, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &rect, brush);
    DeleteObject(brush);
}

void DrawBox(HDC dc, const RECT& box, COLORREF border, COLORREF fill, COLORREF outside) {
    FillColor(dc, box, fill);
    const HBRUSH brush = CreateSolidBrush(border);
    FrameRect(dc, &box, brush);
    DeleteObject(brush);
    // Two pixels of radius: the corner goes, its neighbour inside carries the line.
    const LONG xs[] = {box.left, box.right - 1};
    const LONG ys[] = {box.top, box.bottom - 1};
    for (const LONG x : xs) {
        for (const LONG y : ys) {
            SetPixel(dc, x, y, outside);
            SetPixel(dc, x + (x == box.left ? 1 : -1), y + (y == box.top ? 1 : -1), border);
        }
    }
}

bool HasFrame(HWND control) {
    const auto style = static_cast<DWORD>(GetWindowLongA(control, GWL_STYLE));
    const auto extended = static_cast<DWORD>(GetWindowLongA(control, GWL_EXSTYLE));
    return (style & WS_BORDER) != 0 || (extended & WS_EX_CLIENTEDGE) != 0;
}

void PaintInputFrame(HWND control, bool focused, HBRUSH inside) {
    const HDC dc = GetWindowDC(control);
    if (dc == nullptr) return;
    RECT frame{};
    RECT client{};
    GetWindowRect(control, &frame);
    GetClientRect(control, &client);
    MapWindowPoints(control, nullptr, reinterpret_cast<POINT*>(&client), 2);
    const int rings = client.left - frame.left;
    OffsetRect(&frame, -frame.left, -frame.top);
    const HBRUSH line = CreateSolidBrush(focused ? look::kAccent : look::kLine);
    const HBRUSH paper = inside != nullptr ? inside : GetSysColorBrush(COLOR_WINDOW);
    for (int ring = 0; ring < rings; ++ring) {
        FrameRect(dc, &frame, ring == 0 ? line : paper);
        InflateRect(&frame, -1, -1);
    }
    DeleteObject(line);
    ReleaseDC(control, dc);
}

void DrawFocusRing(HDC dc, const RECT& box) {
    const HBRUSH brush = CreateSolidBrush(look::kAccent);
    FrameRect(dc, &box, brush);
    DeleteObject(brush);
}

void DrawChevron(HDC dc, const RECT& box, Direction direction, COLORREF color) {
    const int x = (box.left + box.right) / 2;
    const int y = (box.top + box.bottom) / 2;
    constexpr int kReach = 3;
    const bool vertical = direction == Direction::kUp || direction == Direction::kDown;
    const int sign = direction == Direction::kUp || direction == Direction::kLeft ? 1 : -1;
    for (int step = -kReach; step <= kReach; ++step) {
        const int depth = sign * (std::abs(step) - kReach / 2);
        const RECT dot = vertical ? RECT{x + step, y + depth, x + step + 1, y + depth + 2}
                                  : RECT{x + depth, y + step, x + depth + 2, y + step + 1};
        FillColor(dc, dot, color);
    }
}

int LineHeight(HFONT font) {
    const HDC dc = CreateCompatibleDC(nullptr);
    TEXTMETRICA metrics{};
    {
        const UseFont use(dc, font);
        GetTextMetricsA(dc, &metrics);
    }
    DeleteDC(dc);
    return std::max<int>(metrics.tmHeight, 1);
}

}  // namespace winbase
