#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <string>

#include "tests/platform/win32/gdi/canvas.h"

namespace {

/// Calls with arguments near the canvas, far away, and at the ends of the range.
class RandomCalls {
public:
    explicit RandomCalls(unsigned seed) : random_(seed), canvas_(40, 30), source_(20, 20) {}

    void Step() {
        switch (Below(16)) {
            case 0: FillRect(dc(), &Rect(), GetSysColorBrush(Below(30))); break;
            case 1: FrameRect(dc(), &Rect(), GetSysColorBrush(Below(30))); break;
            case 2: LineTo(dc(), Any(), Any()); break;
            case 3: Rectangle(dc(), Any(), Any(), Any(), Any()); break;
            case 4: Ellipse(dc(), Any(), Any(), Any(), Any()); break;
            case 5: RoundRect(dc(), Any(), Any(), Any(), Any(), Any(), Any()); break;
            case 6: DrawPolygon(); break;
            case 7: BitBlt(dc(), Any(), Any(), Any(), Any(), From(), Any(), Any(), SRCCOPY); break;
            case 8: Stretch(); break;
            case 9: DrawFocusRect(dc(), &Rect()); break;
            case 10: DrawSomeText(); break;
            case 11: Gradient(); break;
            case 12: ChangeClip(); break;
            case 13: SetViewportOrgEx(dc(), Below(3) == 0 ? Any() : 0, Below(20), nullptr); break;
            case 14: ChangePen(); break;
            default: SetPixel(dc(), Any(), Any(), static_cast<COLORREF>(random_())); break;
        }
    }

    /// True when the context still does as it is told.
    bool Fills() {
        SelectClipRgn(dc(), nullptr);
        SetViewportOrgEx(dc(), 0, 0, nullptr);
        canvas_.Clear();
        const RECT rect{1, 2, 39, 28};
        FillRect(dc(), &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
        return Text(canvas_.Ink()) == Text(rect);
    }

private:
    HDC dc() const { return canvas_.dc(); }
    HDC From() { return Below(4) == 0 ? dc() : source_.dc(); }
    int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
    int Any() {
        constexpr int kFar[] = {INT_MIN, INT_MAX, INT_MIN + 1, 1 << 20, -(1 << 28), 0};
        return Below(8) == 0 ? kFar[Below(6)] : Below(60) - 10;
    }
    const RECT& Rect() {
        rect_ = {Any(), Any(), Any(), Any()};
        return rect_;
    }
    void DrawPolygon() {
        const POINT points[] = {{Any(), Any()}, {Any(), Any()}, {Any(), Any()}, {Any(), Any()}};
        Polygon(dc(), points, 4);
    }
    void Stretch() {
        if (Below(2) == 0) {
            StretchBlt(dc(), Any(), Any(), Any(), Any(), From(), Any(), Any(), Any(), Any(),
                       SRCAND);
        } else {
            TransparentBlt(dc(), Any(), Any(), Any(), Any(), From(), Any(), Any(), Any(), Any(), 0);
        }
    }
    void DrawSomeText() {
        std::string text;
        for (int i = Below(12); i >= 0; --i) text += static_cast<char>(random_());
        constexpr UINT kFormats[] = {0,
                                     5,
                                     6,
                                     36,
                                     37,
                                     38,
                                     DT_WORDBREAK | DT_CENTER,
                                     DT_EXPANDTABS | 36,
                                     DT_END_ELLIPSIS | 36};
        RECT rect = Rect();
        DrawTextA(dc(), text.data(), static_cast<int>(text.size()), &rect, kFormats[Below(9)]);
        TextOutA(dc(), Any(), Any(), text.data(), static_cast<int>(text.size()));
    }
    void Gradient() {
        TRIVERTEX vertices[] = {{Any(), Any(), 0xFFFF, 0, 0x8000, 0},
                                {Any(), Any(), 0, 0xFFFF, 0, 0}};
        GRADIENT_RECT rect{0, static_cast<ULONG>(Below(3))};
        GradientFill(dc(), vertices, 2, &rect, 1, static_cast<ULONG>(Below(2)));
    }
    void ChangeClip() {
        switch (Below(4)) {
            case 0: SelectClipRgn(dc(), nullptr); break;
            case 1: IntersectClipRect(dc(), -5, -5, 40 + Below(9), Any()); break;
            default: ExcludeClipRect(dc(), Any(), Any(), Any(), Any()); break;
        }
    }
    void ChangePen() {
        constexpr int kStyles[] = {PS_SOLID, PS_DOT, PS_NULL};
        DeleteObject(SelectObject(dc(), CreatePen(kStyles[Below(3)], Below(6), RGB(200, 0, 0))));
        MoveToEx(dc(), Any(), Any(), nullptr);
    }

    std::mt19937 random_;
    Canvas canvas_;
    Canvas source_;
    RECT rect_{};
};

TEST(RandomDrawing, AnyArgumentsAreSafe) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
        RandomCalls calls(seed);
        for (int step = 0; step < 3000; ++step) calls.Step();
        EXPECT_TRUE(calls.Fills()) << "seed " << seed;
    }
}

}  // namespace
