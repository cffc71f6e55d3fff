#include <algorithm>
#include <iterator>

#include "host/skin/menu_icons.h"
#include "host/skin/pictures.h"

namespace skin {

Canvas DrawMenuStrip(int scale) {
    constexpr int kCount = static_cast<int>(MenuIcon::kCount);
    Canvas canvas(kCount * kMenuIconSize, kMenuIconSize, scale, kLight.raised);
    for (int i = 0; i < kCount; ++i) {
        canvas.SetOrigin(i * kMenuIconSize, 0);
        DrawMenuIcon(canvas, static_cast<MenuIcon>(i), kLight.secondary, kLight.accent);
    }
    return canvas;
}

// Taller than any tab, and open at the bottom: a tab shows the upper part and grows into the page
// below it. Plain tabs begin lower, as their texts stand lower.
Canvas DrawTabs(int scale) {
    constexpr int kWidth = 24;
    constexpr int kHeight = 40;
    const struct {
        int top;
        COLORREF fill;
    } states[] = {{2, RGB(0xE6, 0xEB, 0xF0)}, {2, RGB(0xEE, 0xF2, 0xF6)}, {0, kLight.raised}};
    Canvas canvas(3 * kWidth, kHeight, scale, kLight.ground);
    for (int state = 0; state < 3; ++state) {
        const auto [top, fill] = states[state];
        canvas.SetOrigin(state * kWidth, 0);
        canvas.Bar(0, top, kWidth, kHeight - top, kLight.line);
        canvas.Bar(1, top + 1, kWidth - 2, kHeight - top - 1, fill);
        if (state == 2) canvas.Bar(0, 0, kWidth, 2, kLight.accent);
    }
    return canvas;
}

// Whole pixels only: what is smoothed against white would not be white and stay behind.
Canvas DrawExpander(int scale) {
    Canvas canvas(14, 9, scale, RGB(0xFF, 0xFF, 0xFF));
    for (int step = 0; step < 4; ++step) {
        canvas.Bar(2 + step, 1 + step, 1, 7 - 2 * step, kLight.secondary);
        canvas.Bar(7 + step, 3 + step, 7 - 2 * step, 1, kLight.secondary);
    }
    return canvas;
}

// Two keys with chevrons, on the ground of the panels.
Canvas DrawArrows(int scale) {
    constexpr int kWidth = 14;
    constexpr int kHalf = 15;
    const Face& face = kDark.plain.normal;
    Canvas canvas(kWidth, 2 * kHalf, scale, kPanelGround);
    for (int half = 0; half < 2; ++half) {
        canvas.SetOrigin(0, half * kHalf);
        canvas.RoundBar(0, half, kWidth, kHalf - 1, 2, face.border);
        canvas.RoundBar(1, half + 1, kWidth - 2, kHalf - 3, 1, face.fill);
        const double base = half == 0 ? 9 : 6;
        const double tip = half == 0 ? 5.5 : 9.5;
        canvas.Lines({{3.5, base}, {7, tip}, {10.5, base}}, 1.5, kDark.text);
    }
    return canvas;
}

namespace {

struct Candle {
    int high;
    int low;
    int open;
    int close;
};

// A market that falls, turns and rises; heights above the lower edge.
constexpr Candle kCandles[] = {
    {46, 30, 43, 34}, {40, 22, 35, 27}, {33, 18, 28, 22}, {30, 14, 21, 26}, {32, 20, 25, 22},
    {29, 16, 23, 19}, {34, 17, 19, 31}, {41, 28, 31, 37}, {45, 33, 38, 35}, {44, 30, 34, 41},
    {54, 38, 41, 51}, {57, 46, 52, 48}, {62, 45, 48, 58}, {68, 55, 58, 64}, {70, 57, 65, 60},
    {78, 59, 61, 74}, {80, 68, 74, 77}, {84, 70, 78, 72}, {90, 71, 73, 86},
};

void DrawCandles(Canvas& canvas, int left, int bottom) {
    int x = left;
    for (const Candle& candle : kCandles) {
        const COLORREF color = candle.close > candle.open ? kDark.buy : kDark.sell;
        const int top = std::max(candle.open, candle.close);
        const int body = top - std::min(candle.open, candle.close);
        canvas.Bar(x + 3, bottom - candle.high, 1, candle.high - candle.low, color);
        canvas.Bar(x, bottom - top, 7, std::max(body, 1), color);
        x += 12;
    }
}

}  // namespace

Canvas DrawLoginTop(int scale) {
    constexpr int kWidth = 518;
    constexpr int kHeight = 104;
    constexpr int kChartLeft = 266;
    Canvas canvas(kWidth, kHeight, scale, kDark.ground);
    for (int y = 16; y < kHeight - 8; y += 20)
        canvas.Bar(kChartLeft - 12, y, kWidth - kChartLeft, 1, kDark.line);
    DrawCandles(canvas, kChartLeft, kHeight - 4);
    // A bar of gold, seen from the front and a little from above.
    canvas.Polygon({{42, 62}, {50, 38}, {86, 38}, {94, 62}}, kDark.accent);
    canvas.Polygon({{54, 42}, {82, 42}, {83.25, 46}, {52.75, 46}}, RGB(0xF2, 0xCB, 0x74));
    canvas.Bar(42, 62, 52, 4, RGB(0xA8, 0x79, 0x1F));
    canvas.Bar(0, kHeight - 2, kWidth, 2, kDark.accent);
    return canvas;
}

Canvas DrawLoginBottom(int scale) {
    constexpr int kHeight = 36;
    Canvas canvas(16, kHeight, scale, RGB(0xE9, 0xED, 0xF2));
    canvas.Bar(0, 0, 16, 1, kLight.line);
    return canvas;
}

Canvas DrawFrameTop(int scale) {
    Canvas canvas(8, 2, scale, RGB(0x3A, 0x44, 0x4F));
    canvas.Bar(0, 1, 8, 1, RGB(0x30, 0x36, 0x3D));
    return canvas;
}

}  // namespace skin
