// What a list looks like.

#include "controls/list_colors.h"
#include "platform/text/gbk.h"
#include "plugin/contract/core_access.h"
#include "tests/controls/list_frame.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/gbk_text.h"

namespace tests {

namespace {

using platform::testing::SeenText;

constexpr COLORREF kWhite = 0xFFFFFF;

class ListPaintTest : public ListTest {
protected:
    /// A text as it is seen; empty when it is not.
    SeenText Find(const char* gbk) const {
        for (const SeenText& seen : platform::testing::SeenTexts(list_)) {
            if (seen.utf8 == text::Utf8FromGbk(gbk)) return seen;
        }
        return {};
    }
    void SetWidth(int column, int width) {
        list_.m_pGrid->widths.GetData()[column] = width;
        PaintNow();
    }
};

TEST_F(ListPaintTest, TheGridIsQuiet) {
    MakeVirtual(3);
    platform::testing::Click(list_, 50, 22 + 22 + 5);
    PaintNow();
    const struct {
        const char* what;
        int x;
        int y;
        COLORREF color;
    } kPixels[] = {
        {"header ground", 95, 5, list_colors::kHeader},
        {"its upper line", 50, 0, list_colors::kGrid},
        {"its lower line", 50, 21, list_colors::kGrid},
        {"its divider", 99, 10, list_colors::kGrid},
        {"beside the divider", 100, 10, list_colors::kHeader},
        {"beside the header", 305, 10, kWhite},
        {"ground of a row", 95, 22 + 5, kWhite},
        {"line below the row", 50, 22 + 21, list_colors::kGrid},
        {"line beside the cell", 99, 22 + 5, list_colors::kGrid},
        {"first line of the next row", 95, 22 + 22, list_colors::kSelection},
        {"selected row", 95, 22 + 30, list_colors::kSelection},
        {"its last cell", 295, 22 + 30, list_colors::kSelection},
        {"line below it", 95, 22 + 43, list_colors::kGrid},
        {"right border", 299, 22 + 30, list_colors::kGrid},
        {"beside the columns", 300, 22 + 30, kWhite},
        {"below the last line", 50, 22 + 66, kWhite},
        {"the end of the window", 389, 229, kWhite},
    };
    for (const auto& each : kPixels) EXPECT_EQ(Pixel(each.x, each.y), each.color) << each.what;
}

TEST_F(ListPaintTest, TheOwnersPainterGetsRectanglesWithoutTheirLeftTwoPixels) {
    MakeVirtual(2);
    ASSERT_EQ(painted_.size(), 6u);
    const RECT kExpected[] = {{2, -1, 100, 22}, {102, -1, 160, 22}, {162, -1, 300, 22},
                              {2, 21, 100, 44}, {102, 21, 160, 44}, {162, 21, 300, 44}};
    for (std::size_t i = 0; i < painted_.size(); ++i) {
        EXPECT_EQ(painted_[i].row, static_cast<int>(i / 3));
        EXPECT_EQ(painted_[i].column, static_cast<int>(i % 3));
        EXPECT_EQ(CRect(painted_[i].rect), CRect(kExpected[i])) << i;
    }
    EXPECT_GBK_EQ("合约 手数 备注 0.0 0.1 0.2 1.0 1.1 1.2", Seen());
    EXPECT_EQ(Find("1.2").rect.left, 162);
    EXPECT_EQ(Find("1.2").color, COLORREF{0x555555});
}

TEST_F(ListPaintTest, ThePainterGetsABoldFontAndTheContext) {
    static LOGFONTA font;
    static CWnd* parent;
    MakeVirtual(1);
    list_.m_pfnDrawCell = [](HDC, int, int, RECT*, HFONT bold, CWnd* of, void*) {
        ::GetObjectA(bold, sizeof font, &font);
        parent = of;
    };
    PaintNow();
    EXPECT_EQ(font.lfWeight, 700);
    EXPECT_EQ(font.lfHeight, 12);
    EXPECT_EQ(parent, &parent_);
    list_.m_pfnDrawCell = nullptr;
    PaintNow();
    EXPECT_GBK_EQ("合约 手数 备注", Seen());
}

TEST_F(ListPaintTest, OnlyWhatIsInViewIsAskedFor) {
    MakeVirtual(100'000);
    NeedBothBars();
    list_.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 30'000));
    list_.SendMessage(WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 101));
    PaintNow();
    EXPECT_EQ(painted_.size(), 9u * 3u);
    EXPECT_EQ(painted_.front().row, 30'000);
    EXPECT_EQ(painted_.front().column, 1);
    EXPECT_EQ(painted_.back().row, 30'008);
    EXPECT_EQ(painted_.back().column, 3);
}

TEST_F(ListPaintTest, AnEmptyListShowsItsHeader) {
    MakeVirtual(4);
    platform::testing::Click(list_, 50, 50);
    list_.SetRowCount(0, TRUE);
    PaintNow();
    EXPECT_GBK_EQ("合约 手数 备注", Seen());
    EXPECT_EQ(Pixel(50, 50), kWhite);
}

TEST_F(ListPaintTest, AViewNarrowerThanTwentyPixelsPaintsNothing) {
    MakeVirtual(2);
    list_.MoveWindow(0, 0, 19, 100);
    PaintNow();
    EXPECT_TRUE(painted_.empty());
    EXPECT_NE(Pixel(5, 90), kWhite);
    list_.MoveWindow(0, 0, 32, 100);
    PaintNow();
    EXPECT_FALSE(painted_.empty());
    EXPECT_EQ(Pixel(5, 80), kWhite);
}

TEST_F(ListPaintTest, WithoutRedrawTheRowsWaitForTheNextPaint) {
    MakeVirtual(2);
    list_.SetRowCount(4, FALSE);
    EXPECT_EQ(Find("3.0").utf8, "");
    list_.SetRowCount(4, TRUE);
    platform::testing::Pump();
    EXPECT_EQ(Find("3.0").utf8, "3.0");
}

TEST_F(ListPaintTest, PercentsFillTheView) {
    const CClientDC dc(&parent_);
    CListGrid grid({0, 0, 333, 100}, &list_, CListGrid::kPercent, dc);
    for (const int percent : {33, 50, 17}) grid.AddColumn(percent);
    EXPECT_EQ(grid.PixelWidth(0), 110);
    EXPECT_EQ(grid.PixelWidth(1), 167) << "rounded";
    EXPECT_EQ(grid.CellRect(0, 2).left, 277);
    grid.nRowCount = 1;
    EXPECT_EQ(grid.GetHitCell(276, 30).column, 1);
    bool changed = false;
    grid.SelectAt(110, 5);
    EXPECT_TRUE(grid.MoveAt(200, 5, &changed));
    EXPECT_EQ(grid.widths.GetData()[0], 60);
}

TEST_F(ListPaintTest, StoredCellsShowTheirColours) {
    MakeStored(2);
    list_.SetItemBkColor(1, 1, RGB(255, 230, 200));
    list_.SetItemTextColor(1, 1, RGB(200, 0, 0));
    list_.SetItemBkColor(0, 0, 0x1000000);
    PaintNow();
    EXPECT_EQ(Find("1.1").color, RGB(200, 0, 0));
    EXPECT_EQ(Find("1.2").color, RGB(0, 0, 0)) << "the next cell has its own";
    const int top = 22 + 22 - 1;
    EXPECT_EQ(Pixel(105, top + 5), RGB(255, 230, 200));
    EXPECT_EQ(Pixel(101, top + 1), RGB(255, 230, 200));
    EXPECT_EQ(Pixel(100, top + 5), kWhite) << "the ground keeps a pixel to its frame";
    EXPECT_EQ(Pixel(159, top + 5), list_colors::kGrid);
    EXPECT_EQ(Pixel(90, 22 + 5), kWhite);
    EXPECT_EQ(CRect(list_.GetItem(1, 1)->rcCell), CRect(100, 21, 160, 44));
}

TEST_F(ListPaintTest, StoredTextsThatDoNotFitEndInDots) {
    const struct {
        const char* text;
        int width;
        const char* seen;
    } kCases[] = {
        {"黄金延期", 54, "黄金延期"},     // exactly what is left of the cell
        {"黄金延期", 53, "..."},          // three glyphs' room goes to the dots
        {"黄金延期交收", 66, "黄金..."},  //
        {"Au(T+D)", 47, "..."},           //
        {"Au(T+D)", 48, "Au(T+D)"},       //
        {"1234567890123", 80, "123..."},  //
    };
    MakeStored(1);
    for (const auto& each : kCases) {
        list_.SetItemText(0, 0, each.text);
        SetWidth(0, each.width);
        EXPECT_GBK_EQ(std::string("合约 手数 备注 ") + each.seen + " 0.1 0.2", Seen());
    }
}

TEST_F(ListPaintTest, AColumnWithIconsKeepsTheirRoom) {
    list_.InsertColumn("图标", 70, 37, 36, FALSE, TRUE);
    MakeStored(1);
    list_.SetItemText(0, 3, "黄金延期");
    PaintNow();
    EXPECT_EQ(Find("黄金延期").rect.left, 300 + 3 + 16);
    SetWidth(3, 69);
    EXPECT_EQ(Find("黄金延期").utf8, "");
    EXPECT_EQ(Find("...").rect.left, 300 + 3 + 16);
}

TEST_F(ListPaintTest, TheLongestTextsFitTheirFields) {
    std::string longest;
    while (longest.size() < 300) longest += "\xBB\xC6";
    MakeStored(1);
    list_.InsertColumn(longest.c_str(), 100, 37, 36, TRUE, FALSE);
    EXPECT_EQ(std::string(list_.m_columns[3].szTitle).size(), 254u);
    list_.SetItemText(0, 1, ("x" + longest).c_str());
    list_.SetItemTip(0, 1, longest.c_str());
    EXPECT_EQ(std::string(list_.GetItem(0, 1)->szText).size(), 255u);
    EXPECT_EQ(std::string(list_.GetItem(0, 1)->szTip).size(), 254u);
    for (const int width : {11, 100, 700, 1400, 1535, 1536, 1600}) SetWidth(1, width);
    EXPECT_EQ(list_.GetItem(0, 1)->szText[255], '\0');
}

TEST_F(ListPaintTest, TheCornerBetweenTheBarsIsWhite) {
    MakeVirtual(100);
    NeedBothBars();
    list_.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW);
    const CWindowDC dc(&list_);
    EXPECT_EQ(dc.GetPixel(kClientWidth + 2, kClientHeight + 2), kWhite);
    EXPECT_EQ(dc.GetPixel(kClientWidth + 8, kClientHeight + 8), kWhite);
}

TEST_F(ListPaintTest, TheBorderIsTheThemeDarkened) {
    const CClientDC dc(&parent_);
    CRect place;
    list_.GetWindowRect(&place);
    parent_.ScreenToClient(&place);
    const COLORREF before = dc.GetPixel(place.left - 1, place.top - 1);
    g_pUICallBack = nullptr;
    list_.DrawBorder();
    EXPECT_EQ(dc.GetPixel(place.left - 1, place.top - 1), before) << "without a core";
    RecordingCore core;
    core.skin_color = RGB(255, 101, 10);
    const FrontEndDoors doors(core);
    list_.DrawBorder();
    const COLORREF frame = RGB(178, 70, 7);
    EXPECT_EQ(dc.GetPixel(place.left - 1, place.top - 1), frame);
    EXPECT_EQ(dc.GetPixel(place.right, place.bottom), frame);
    EXPECT_EQ(dc.GetPixel(place.right, place.top + 40), frame);
    EXPECT_EQ(dc.GetPixel(place.left - 2, place.top), before);
    EXPECT_EQ(dc.GetPixel(place.right + 1, place.bottom), before);
}

TEST_F(ListPaintTest, RowsAreKeptUntilTheyAreDeleted) {
    MakeStored(3);
    list_.DeleteRow(1);
    list_.DeleteRow(7);
    list_.DeleteRow(-1);
    PaintNow();
    EXPECT_GBK_EQ("合约 手数 备注 0.0 0.1 0.2 2.0 2.1 2.2", Seen());
    EXPECT_EQ(list_.GetRowCount(), 2);
    list_.ClearRows();
    EXPECT_EQ(list_.GetRowCount(), 2);
    PaintNow();
    EXPECT_GBK_EQ("合约 手数 备注", Seen());
    EXPECT_EQ(list_.GetItem(0, 0), nullptr);
    EXPECT_EQ(list_.InsertRow("新"), 0);
    EXPECT_EQ(list_.GetRowCount(), 1);
    list_.DeleteAllRows();
    EXPECT_EQ(list_.GetRowCount(), 0);
}

TEST_F(ListPaintTest, OperationsOnCellsIgnoreWhatIsNotThere) {
    MakeStored(1);
    for (const auto& [row, column] : {std::pair{-1, 0}, {0, -1}, {1, 0}, {0, 3}}) {
        list_.SetItemText(row, column, "x");
        list_.SetItemTip(row, column, "x");
        list_.SetItemBkColor(row, column, 0);
        list_.SetItemTextColor(row, column, 0);
        list_.SetItemEditable(row, column, TRUE);
        list_.SetItemCheck(row, column, TRUE);
        EXPECT_FALSE(list_.GetItemCheck(row, column));
        EXPECT_EQ(list_.GetItem(row, column), nullptr);
    }
    list_.InsertColumn("后加", 50, 37, 36, FALSE, FALSE);
    EXPECT_EQ(list_.GetItem(0, 3), nullptr) << "the row is older than the column";
    list_.SetItemText(0, 3, "x");
    ASSERT_NE(list_.GetItem(0, 3), nullptr);
    EXPECT_EQ(list_.GetItem(0, 3)->crText, COLORREF{0x1000000});
    list_.SetItemCheck(0, 3, 7);
    EXPECT_EQ(list_.GetItemCheck(0, 3), TRUE);
    list_.SetItemEditable(0, 3, 7);
    EXPECT_EQ(list_.GetItem(0, 3)->bEditable, 1);
    list_.SetVirtual();
    EXPECT_EQ(list_.InsertRow("x"), -1);
    list_.DeleteAllRows();
    list_.ClearRows();
    EXPECT_EQ(list_.m_rows.size(), 1u);
    EXPECT_EQ(list_.GetRowCount(), 1);
    EXPECT_EQ(list_.GetItem(0, 0), nullptr);
    EXPECT_FALSE(list_.GetItemCheck(0, 3));
}

}  // namespace

}  // namespace tests
