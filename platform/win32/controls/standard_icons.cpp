#include "platform/win32/controls/standard_icons.h"

#include "platform/win32/controls/control.h"

namespace winbase {

namespace {

constexpr int kSide = 32;
constexpr COLORREF kError = RGB(0xC8, 0x2F, 0x33);
constexpr COLORREF kWarning = RGB(0xB9, 0x7A, 0x0C);

/// Fills shapes of one colour without an outline of another.
class UseColor {
public:
    UseColor(HDC dc, COLORREF color)
        : dc_(dc),
          brush_(CreateSolidBrush(color)),
          pen_(CreatePen(PS_SOLID, 1, color)),
          old_brush_(SelectObject(dc, brush_)),
          old_pen_(SelectObject(dc, pen_)) {}
    ~UseColor() {
        SelectObject(dc_, old_pen_);
        SelectObject(dc_, old_brush_);
        DeleteObject(pen_);
        DeleteObject(brush_);
    }
    UseColor(const UseColor&) = delete;
    UseColor& operator=(const UseColor&) = delete;

private:
    HDC dc_;
    HBRUSH brush_;
    HPEN pen_;
    HGDIOBJ old_brush_;
    HGDIOBJ old_pen_;
};

void Disc(HDC dc, POINT at, COLORREF color) {
    const UseColor use(dc, color);
    Ellipse(dc, at.x + 1, at.y + 1, at.x + kSide - 1, at.y + kSide - 1);
}

void Bar(HDC dc, POINT at, int x, int y, int width, int height) {
    FillColor(dc, {at.x + x, at.y + y, at.x + x + width, at.y + y + height}, look::kPaper);
}

void Cross(HDC dc, POINT at) {
    for (int step = 0; step < 12; ++step) {
        Bar(dc, at, 10 + step - 1, 10 + step, 3, 1);
        Bar(dc, at, 21 - step - 1, 10 + step, 3, 1);
    }
}

void QuestionMark(HDC dc, POINT at) {
    Bar(dc, at, 12, 8, 8, 3);
    Bar(dc, at, 10, 10, 3, 3);
    Bar(dc, at, 19, 10, 3, 5);
    Bar(dc, at, 17, 14, 3, 3);
    Bar(dc, at, 15, 16, 3, 4);
    Bar(dc, at, 15, 22, 3, 3);
}

void Triangle(HDC dc, POINT at, COLORREF color) {
    const UseColor use(dc, color);
    const POINT corners[] = {{at.x + 16, at.y + 2}, {at.x + 30, at.y + 28}, {at.x + 1, at.y + 28}};
    Polygon(dc, corners, 3);
}

}  // namespace

void DrawStandardIcon(HDC dc, const RECT& area, HICON icon) {
    const POINT at{(area.left + area.right - kSide) / 2, (area.top + area.bottom - kSide) / 2};
    if (icon == LoadIconA(nullptr, IDI_ERROR)) {
        Disc(dc, at, kError);
        Cross(dc, at);
    } else if (icon == LoadIconA(nullptr, IDI_QUESTION)) {
        Disc(dc, at, look::kAccent);
        QuestionMark(dc, at);
    } else if (icon == LoadIconA(nullptr, IDI_WARNING)) {
        Triangle(dc, at, kWarning);
        Bar(dc, at, 15, 11, 3, 9);
        Bar(dc, at, 15, 22, 3, 3);
    } else if (icon == LoadIconA(nullptr, IDI_INFORMATION)) {
        Disc(dc, at, look::kAccent);
        Bar(dc, at, 15, 9, 3, 3);
        Bar(dc, at, 15, 14, 3, 10);
    }
}

}  // namespace winbase
