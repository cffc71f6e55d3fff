#include "platform/win32/user/nonclient.h"
#include "platform/win32/user/scroll_bar.h"

namespace winbase {

namespace {

constexpr int kTitleHeight = 13;  // of its text
constexpr int kTitleMargin = 10;
constexpr int kGlyph = 10;  // side of the signs in the boxes
constexpr COLORREF kBoxPressed = RGB(0xE3, 0xE8, 0xED);

HFONT TitleFont() {
    static const HFONT font =
        CreateFontA(kTitleHeight, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "宋体");
    return font;
}

// Draws a ring of one pixel and moves the rectangle inside it.
void DrawRing(HDC dc, RECT& rect, HBRUSH brush) {
    FrameRect(dc, &rect, brush);
    InflateRect(&rect, -1, -1);
}

void PaintBorder(const Window* window, int border, HDC dc, RECT& rect) {
    if (border == 0) return;
    const int line = window->frame_active ? COLOR_ACTIVEBORDER : COLOR_INACTIVEBORDER;
    // A single line is the frame of a control and looks the same with and without the focus.
    DrawRing(dc, rect, GetSysColorBrush(border == 1 ? COLOR_3DDKSHADOW : line));
    for (int ring = 1; ring < border; ++ring) DrawRing(dc, rect, GetSysColorBrush(COLOR_3DFACE));
}

void PaintEdge(const Window* window, HDC dc, RECT rect) {
    if ((window->ex_style & WS_EX_CLIENTEDGE) == 0) return;
    DrawRing(dc, rect, GetSysColorBrush(COLOR_3DDKSHADOW));
    DrawRing(dc, rect, GetSysColorBrush(COLOR_WINDOW));
}

void DrawLine(HDC dc, int from_x, int from_y, int to_x, int to_y) {
    MoveToEx(dc, from_x, from_y, nullptr);
    LineTo(dc, to_x, to_y);
}

void DrawSign(HDC dc, const RECT& box, int hit, bool zoomed) {
    const int left = (box.left + box.right - kGlyph) / 2;
    const int top = (box.top + box.bottom - kGlyph) / 2;
    const int right = left + kGlyph;
    const int bottom = top + kGlyph;
    RECT square{left, top, right, bottom};
    if (hit == HTCLOSE) {
        DrawLine(dc, left, top, right, bottom);
        DrawLine(dc, left, bottom - 1, right, top - 1);
        return;
    }
    if (zoomed) {
        // Two windows, one before the other.
        square.right -= 2;
        square.top += 2;
        DrawLine(dc, left + 2, top, right, top);
        DrawLine(dc, right - 1, top, right - 1, bottom - 2);
    }
    FrameRect(dc, &square, GetSysColorBrush(COLOR_CAPTIONTEXT));
}

RECT BoxOf(const FrameLayout& frame, int hit) { return hit == HTCLOSE ? frame.close : frame.zoom; }

void DrawBox(const Window* window, int hit, BoxState state, HDC dc) {
    RECT box = BoxOf(LayOutFrame(window), hit);
    if (IsRectEmpty(&box)) return;
    // The line under the title goes on below the boxes.
    --box.bottom;
    const HBRUSH ground = CreateSolidBrush(
        state == BoxState::kPressed ? kBoxPressed : GetSysColor(COLOR_ACTIVECAPTION));
    FillRect(dc, &box, ground);
    DeleteObject(ground);
    const HPEN pen = CreatePen(PS_SOLID, 1, GetSysColor(COLOR_CAPTIONTEXT));
    const HGDIOBJ former = SelectObject(dc, pen);
    DrawSign(dc, box, hit, (window->style & WS_MAXIMIZE) != 0);
    SelectObject(dc, former);
    DeleteObject(pen);
}

void PaintTitle(const Window* window, const FrameLayout& frame, HDC dc) {
    if (IsRectEmpty(&frame.title)) return;
    FillRect(dc, &frame.title, GetSysColorBrush(COLOR_ACTIVECAPTION));
    RECT line = frame.title;
    line.top = line.bottom - 1;
    FillRect(dc, &line, GetSysColorBrush(COLOR_3DSHADOW));
    RECT text = frame.title;
    text.left += kTitleMargin;
    for (const RECT& box : {frame.close, frame.zoom}) {
        if (!IsRectEmpty(&box)) text.right = box.left;
    }
    const HGDIOBJ former = SelectObject(dc, TitleFont());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc,
                 GetSysColor(window->frame_active ? COLOR_CAPTIONTEXT : COLOR_INACTIVECAPTIONTEXT));
    DrawTextA(dc, window->text.c_str(), -1, &text,
              DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    SelectObject(dc, former);
    for (const int hit : {HTCLOSE, HTMAXBUTTON}) {
        DrawBox(window, hit, BoxState::kNormal, dc);
    }
}

}  // namespace

void PaintFrame(Window* window) {
    if (!IsShown(window) || (window->style & WS_MINIMIZE) != 0) return;
    RECT rect{0, 0, window->rect.right - window->rect.left, window->rect.bottom - window->rect.top};
    const RECT& client = window->client;
    if (EqualRect(&rect, &client)) return;
    const HDC dc = GetWindowDC(window->handle);
    if (dc == nullptr) return;
    ExcludeClipRect(dc, client.left, client.top, client.right, client.bottom);
    const FrameLayout frame = LayOutFrame(window);
    PaintBorder(window, frame.border, dc, rect);
    PaintTitle(window, frame, dc);
    rect.top = IsRectEmpty(&frame.title) ? rect.top : frame.title.bottom;
    PaintEdge(window, dc, rect);
    PaintScrollBar(window, SB_HORZ, dc);
    PaintScrollBar(window, SB_VERT, dc);
    if (!IsRectEmpty(&frame.corner)) FillRect(dc, &frame.corner, GetSysColorBrush(COLOR_3DFACE));
    ReleaseDC(window->handle, dc);
}

void PaintBox(Window* window, int hit, BoxState state) {
    if (!IsShown(window)) return;
    const HDC dc = GetWindowDC(window->handle);
    DrawBox(window, hit, state, dc);
    ReleaseDC(window->handle, dc);
}

}  // namespace winbase
