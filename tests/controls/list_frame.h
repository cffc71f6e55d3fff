#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/ower_draw_list_view.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"

namespace tests {

constexpr UINT kListId = 10024;
/// Header and row.
constexpr int kRowHeight = 22;
/// The list's client area once it needs both bars.
constexpr int kClientWidth = 380;
constexpr int kClientHeight = 220;

/// The parent of a list. It writes down what the list tells it: "row", "cell 1,2", "edit 1,2" (with
/// the editor's text), "double click", "right release", in order.
class ListParent : public CWnd {
public:
    ListParent();
    ~ListParent() override;

    COwerDrawListView list;
    std::vector<std::string> events;

protected:
    LRESULT OnListEvent(WPARAM wParam, LPARAM lParam);
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    DECLARE_MESSAGE_MAP()
};

/// What a page's painter was asked for.
struct PaintedCell {
    int row;
    int column;
    RECT rect;
};

/// A visible list in a frame, with three columns of 100, 60 and 140 pixels.
class ListTest : public ::testing::Test {
protected:
    ListTest();

    /// Makes it a list that PaintCell paints: "2.1" in row 2, column 1.
    void MakeVirtual(int rows);
    /// Fills it with rows of its own, "2.1" likewise.
    void MakeStored(int rows);
    /// Widens the columns so that both bars are needed.
    void NeedBothBars();

    /// The middle of a cell in the window, whatever is scrolled.
    POINT Middle(int row, int column) const;
    /// A point in the list for input.
    POINT At(int x, int y) const { return platform::testing::ScreenPoint(list_, x, y); }
    /// Clicks beside the list, so that the next click is the first of a double click at most.
    void ClickElsewhere() { platform::testing::Click(parent_, 590, 390); }
    /// What the parent heard since the last call, joined by "; ".
    std::string Heard();
    /// The texts that are seen, in GBK and joined by blanks, header included.
    std::string Seen() const;
    COLORREF Pixel(int x, int y) const { return ::GetPixel(list_.m_hDC, x, y); }
    SCROLLINFO Bar(int bar) const;
    void PaintNow();

    ListParent parent_;
    COwerDrawListView& list_ = parent_.list;
    std::vector<PaintedCell> painted_;

private:
    static void PaintCell(HDC dc, int row, int column, RECT* rect, HFONT bold, CWnd* parent,
                          void* context);
};

}  // namespace tests
