#include <gtest/gtest.h>

#include <iterator>
#include <vector>

#include "tests/platform/win32/gdi/canvas.h"

namespace {

struct ShapeCase {
    const char* what;
    void (*draw)(HDC dc);
    const char* rows;
};

void Line(HDC dc, int x, int y, int to_x, int to_y) {
    MoveToEx(dc, x, y, nullptr);
    LineTo(dc, to_x, to_y);
}

void FillBlack(HDC dc, const RECT& rect) {
    FillRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

void FrameBlack(HDC dc, const RECT& rect) {
    FrameRect(dc, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

void FocusRect(HDC dc) {
    const RECT rect{0, 0, 8, 6};
    DrawFocusRect(dc, &rect);
}

const ShapeCase kLines[] = {
    {"the last pixel is left out", [](HDC dc) { Line(dc, 1, 1, 5, 1); },
     "........ .####... ........ ........ ........ ........"},
    {"to the left", [](HDC dc) { Line(dc, 5, 1, 1, 1); },
     "........ ..####.. ........ ........ ........ ........"},
    {"down, then right",
     [](HDC dc) {
         Line(dc, 1, 1, 1, 5);
         LineTo(dc, 5, 5);
     },
     "........ .#...... .#...... .#...... .#...... .####..."},
    {"no length", [](HDC dc) { Line(dc, 1, 1, 1, 1); },
     "........ ........ ........ ........ ........ ........"},
    {"sloped", [](HDC dc) { Line(dc, 0, 0, 6, 3); },
     "##...... ..##.... ....##.. ........ ........ ........"},
    {"sloped, from outside to outside", [](HDC dc) { Line(dc, -200000, -100000, 200000, 100000); },
     "##...... ..##.... ....##.. ......## ........ ........"},
    {"a closed polyline",
     [](HDC dc) {
         const POINT points[] = {{1, 1}, {6, 1}, {6, 4}, {1, 4}, {1, 1}};
         Polyline(dc, points, 5);
     },
     "........ .######. .#....#. .#....#. .######. ........"},
    {"dotted, gaps in the background colour",
     [](HDC dc) {
         SetBkColor(dc, RGB(255, 0, 0));
         const Selected pen(dc, CreatePen(PS_DOT, 1, RGB(0, 0, 0)));
         Line(dc, 0, 2, 8, 2);
     },
     "........ ........ ###RRR## ........ ........ ........"},
    {"dotted and transparent",
     [](HDC dc) {
         SetBkMode(dc, TRANSPARENT);
         const Selected pen(dc, CreatePen(PS_DOT, 1, RGB(0, 0, 0)));
         Line(dc, 0, 2, 8, 2);
     },
     "........ ........ ###...## ........ ........ ........"},
    {"without a pen",
     [](HDC dc) {
         SelectObject(dc, GetStockObject(NULL_PEN));
         Line(dc, 0, 0, 6, 3);
     },
     "........ ........ ........ ........ ........ ........"},
};

const ShapeCase kAreas[] = {
    {"FillRect",
     [](HDC dc) {
         FillBlack(dc, {1, 1, 5, 4});
     },
     "........ .####... .####... .####... ........ ........"},
    {"FillRect, empty",
     [](HDC dc) {
         FillBlack(dc, {2, 2, 2, 5});
     },
     "........ ........ ........ ........ ........ ........"},
    {"FillRect, far beyond",
     [](HDC dc) {
         FillBlack(dc, {-2000000000, 4, 2000000000, 2000000000});
     },
     "........ ........ ........ ........ ######## ########"},
    {"FrameRect",
     [](HDC dc) {
         FrameBlack(dc, {1, 1, 6, 5});
     },
     "........ .#####.. .#...#.. .#...#.. .#####.. ........"},
    {"FrameRect of two pixels",
     [](HDC dc) {
         FrameBlack(dc, {1, 1, 3, 3});
     },
     "........ .##..... .##..... ........ ........ ........"},
    {"FrameRect, one wide",
     [](HDC dc) {
         FrameBlack(dc, {1, 1, 2, 4});
     },
     "........ .#...... .#...... .#...... ........ ........"},
    {"FrameRect, turned",
     [](HDC dc) {
         FrameBlack(dc, {3, 3, 1, 1});
     },
     "........ ........ ........ ........ ........ ........"},
    {"Rectangle with pen and brush",
     [](HDC dc) {
         const Selected brush(dc, CreateSolidBrush(RGB(255, 0, 0)));
         Rectangle(dc, 1, 1, 6, 5);
     },
     "........ .#####.. .#RRR#.. .#RRR#.. .#####.. ........"},
    {"Rectangle without a pen is smaller",
     [](HDC dc) {
         const Selected brush(dc, CreateSolidBrush(RGB(255, 0, 0)));
         SelectObject(dc, GetStockObject(NULL_PEN));
         Rectangle(dc, 1, 1, 6, 5);
     },
     "........ .RRRR... .RRRR... .RRRR... ........ ........"},
    {"Rectangle without a brush",
     [](HDC dc) {
         SelectObject(dc, GetStockObject(NULL_BRUSH));
         Rectangle(dc, 1, 1, 6, 5);
     },
     "........ .#####.. .#...#.. .#...#.. .#####.. ........"},
    {"Polygon",
     [](HDC dc) {
         const POINT points[] = {{1, 1}, {6, 1}, {1, 5}};
         SelectObject(dc, GetStockObject(BLACK_BRUSH));
         Polygon(dc, points, 3);
     },
     "........ .######. .#####.. .####... .##..... .#......"},
    {"Ellipse",
     [](HDC dc) {
         SelectObject(dc, GetStockObject(NULL_BRUSH));
         Ellipse(dc, 1, 1, 7, 5);
     },
     "........ ..####.. .#....#. .#....#. ..####.. ........"},
    {"RoundRect",
     [](HDC dc) {
         SelectObject(dc, GetStockObject(NULL_BRUSH));
         RoundRect(dc, 0, 0, 8, 6, 4, 4);
     },
     ".######. #......# #......# #......# #......# .######."},
    {"PatBlt black, then inverted",
     [](HDC dc) {
         PatBlt(dc, 1, 1, 4, 2, BLACKNESS);
         PatBlt(dc, 2, 2, 3, 3, DSTINVERT);
     },
     "........ .####... .#...... ..###... ..###... ........"},
    {"InvertRect",
     [](HDC dc) {
         const RECT rect{1, 1, 4, 3};
         InvertRect(dc, &rect);
     },
     "........ .###.... .###.... ........ ........ ........"},
    {"DrawFocusRect", FocusRect, ".#.#.#.# #....... .......# #....... .......# #.#.#.#."},
    {"DrawFocusRect twice",
     [](HDC dc) {
         FocusRect(dc);
         FocusRect(dc);
     },
     "........ ........ ........ ........ ........ ........"},
    {"moved origin",
     [](HDC dc) {
         SetViewportOrgEx(dc, 2, 1, nullptr);
         FillBlack(dc, {0, 0, 3, 2});
     },
     "........ ..###... ..###... ........ ........ ........"},
};

const ShapeCase kClipped[] = {
    {"within a rectangle",
     [](HDC dc) {
         EXPECT_EQ(SIMPLEREGION, IntersectClipRect(dc, 2, 2, 5, 4));
         FillBlack(dc, {0, 0, 8, 6});
     },
     "........ ........ ..###... ..###... ........ ........"},
    {"around a rectangle",
     [](HDC dc) {
         EXPECT_EQ(COMPLEXREGION, ExcludeClipRect(dc, 2, 2, 5, 4));
         FillBlack(dc, {0, 0, 8, 6});
     },
     "######## ######## ##...### ##...### ######## ########"},
    {"a line around a rectangle",
     [](HDC dc) {
         ExcludeClipRect(dc, 2, 0, 5, 6);
         Line(dc, 0, 0, 8, 4);
     },
     "##...... ........ .....#.. ......## ........ ........"},
    {"by a region, and no more",
     [](HDC dc) {
         const HRGN region = CreateRectRgn(1, 1, 4, 4);
         EXPECT_EQ(SIMPLEREGION, SelectClipRgn(dc, region));
         DeleteObject(region);
         FillBlack(dc, {0, 0, 2, 2});
         EXPECT_EQ(SIMPLEREGION, SelectClipRgn(dc, nullptr));
         FillBlack(dc, {6, 4, 8, 6});
     },
     "........ .#...... ........ ........ ......## ......##"},
};

void ExpectShapes(const ShapeCase* cases, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const Canvas canvas(8, 6);
        const int saved = SaveDC(canvas.dc());
        cases[i].draw(canvas.dc());
        RestoreDC(canvas.dc(), saved);
        EXPECT_EQ(cases[i].rows, canvas.Rows()) << cases[i].what;
    }
}

TEST(Shapes, LinesCoverTheirPixels) { ExpectShapes(kLines, std::size(kLines)); }
TEST(Shapes, AreasCoverTheirPixels) { ExpectShapes(kAreas, std::size(kAreas)); }
TEST(Shapes, NothingLeavesTheClip) { ExpectShapes(kClipped, std::size(kClipped)); }

TEST(Shapes, CallsAnswerWhatTheyDid) {
    const Canvas canvas(8, 6);
    const RECT empty{2, 2, 2, 5};
    const RECT turned{3, 3, 1, 1};
    const auto black = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
    EXPECT_NE(0, FillRect(canvas.dc(), &empty, black));
    EXPECT_EQ(0, FrameRect(canvas.dc(), &turned, black));
    EXPECT_EQ(0, FillRect(canvas.dc(), &empty, nullptr));
    EXPECT_FALSE(PatBlt(canvas.dc(), 0, 0, 1, 1, 0x12345678));
    POINT former{-1, -1};
    EXPECT_TRUE(MoveToEx(canvas.dc(), 4, 3, &former));
    EXPECT_TRUE(former.x == 0 && former.y == 0);
    EXPECT_TRUE(LineTo(canvas.dc(), 6, 5));
    MoveToEx(canvas.dc(), 0, 0, &former);
    EXPECT_TRUE(former.x == 6 && former.y == 5);
}

TEST(Shapes, PixelsAreReadAsTheyWereSet) {
    const Canvas canvas(8, 6);
    EXPECT_EQ(RGB(0xFF, 0x02, 0x01), SetPixel(canvas.dc(), 2, 3, 0x0102FF));
    EXPECT_EQ(0x0102FFu, GetPixel(canvas.dc(), 2, 3));
    EXPECT_EQ(0xFF0201u, canvas.At(2, 3));
    EXPECT_EQ(CLR_INVALID, GetPixel(canvas.dc(), 99, 0));
    EXPECT_EQ(CLR_INVALID, GetPixel(canvas.dc(), 0, -1));
}

TEST(Shapes, SystemColorsAreBrushesPlusOne) {
    const Canvas canvas(8, 6);
    const RECT rect{0, 0, 8, 6};
    FillRect(canvas.dc(), &rect,
             reinterpret_cast<HBRUSH>(static_cast<UINT_PTR>(COLOR_HIGHLIGHT + 1)));
    EXPECT_EQ(GetSysColor(COLOR_HIGHLIGHT), GetPixel(canvas.dc(), 1, 1));
    FillRect(canvas.dc(), &rect, GetSysColorBrush(COLOR_WINDOW));
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), GetPixel(canvas.dc(), 1, 1));
}

struct GradientCase {
    const char* what;
    TRIVERTEX first;
    TRIVERTEX last;
    ULONG mode;
    std::vector<int> reds;  ///< of the row or column through 0,0; -1 where nothing is painted
};

TRIVERTEX Vertex(LONG x, LONG y, COLOR16 red) { return {x, y, red, 0, 0, 0}; }

TEST(Shapes, GradientsRunFromOneColorTowardsTheOther) {
    const GradientCase cases[] = {
        {"across",
         Vertex(0, 0, 0),
         Vertex(8, 8, 0xFF00),
         GRADIENT_FILL_RECT_H,
         {0, 31, 63, 95, 127, 159, 191, 223}},
        {"across a part",
         Vertex(2, 0, 0),
         Vertex(6, 8, 0xFF00),
         GRADIENT_FILL_RECT_H,
         {-1, -1, 0, 63, 127, 191, -1, -1}},
        {"down",
         Vertex(0, 0, 0xFF00),
         Vertex(8, 8, 0),
         GRADIENT_FILL_RECT_V,
         {255, 223, 191, 159, 127, 95, 63, 31}},
        {"down, five rows",
         Vertex(0, 0, 0x1000),
         Vertex(8, 5, 0x2000),
         GRADIENT_FILL_RECT_V,
         {16, 19, 22, 25, 28, -1, -1, -1}},
        {"bottom first",
         Vertex(8, 8, 0),
         Vertex(0, 0, 0xFF00),
         GRADIENT_FILL_RECT_V,
         {255, 223, 191, 159, 127, 95, 63, 31}},
        {"partly outside",
         Vertex(-4, 0, 0),
         Vertex(4, 8, 0xFF00),
         GRADIENT_FILL_RECT_H,
         {127, 159, 191, 223, -1, -1, -1, -1}},
        {"empty",
         Vertex(2, 2, 0),
         Vertex(2, 6, 0xFF00),
         GRADIENT_FILL_RECT_H,
         {-1, -1, -1, -1, -1, -1, -1, -1}},
    };
    for (const GradientCase& one : cases) {
        const Canvas canvas(8, 8);
        TRIVERTEX vertices[] = {one.first, one.last};
        GRADIENT_RECT rect{0, 1};
        EXPECT_TRUE(GradientFill(canvas.dc(), vertices, 2, &rect, 1, one.mode)) << one.what;
        std::vector<int> reds;
        for (int i = 0; i < 8; ++i) {
            const DWORD pixel =
                one.mode == GRADIENT_FILL_RECT_V ? canvas.At(0, i) : canvas.At(i, 0);
            reds.push_back(pixel == 0xFFFFFF ? -1 : static_cast<int>(pixel >> 16));
        }
        EXPECT_EQ(one.reds, reds) << one.what;
    }
}

}  // namespace
