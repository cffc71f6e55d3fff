#pragma once

#include "platform/toolkit/toolkit.h"
#include "plugin/contract/earray.h"

class COwerDrawListView;

/// What a list looks like and what lies where in it: geometry, hit tests and painting. It knows
/// neither texts nor scroll bars; the owner's painters fill header and cells.
///
/// The header is one row high and does not scroll up. The body begins below it; its coordinates,
/// which the painters of cells get, begin at its upper left corner.
class CListGrid {
public:
    enum WidthMode : int { kPercent = 1, kPixels = 2 };

    using DrawHeader = void (*)(HDC dc, HDC spare, int column, RECT* rect,
                                COwerDrawListView* owner);
    using DrawItem = void (*)(HDC dc, bool first_column, int row, int column, RECT* rect,
                              COwerDrawListView* owner);

    struct Cell {
        int column = -1;
        int row = -1;
    };

    /// `target` is the window's and must outlive the grid.
    CListGrid(const RECT& view, COwerDrawListView* owner, int width_mode, HDC target);
    ~CListGrid();
    CListGrid(const CListGrid&) = delete;
    CListGrid& operator=(const CListGrid&) = delete;

    void SetView(const RECT& view);
    /// Heights below 1 count as 1.
    void SetRowHeight(int height);
    /// False without memory.
    bool AddColumn(int width);

    int ColumnCount() const { return widths.GetCount(); }
    /// Pixels of a column as it is painted.
    int PixelWidth(int column) const;
    void SetPixelWidth(int column, int width);
    int TotalWidth() const;
    int ViewWidth() const { return rcView.right - rcView.left; }
    int BodyTop() const { return rcView.top + nRowHeight; }
    /// Rows that are in view as a whole, at least one.
    int RowsInView() const;
    /// Where a cell stands in the body; any row will do.
    RECT CellRect(int row, int column) const;

    /// The cell at a point of the window. Only the row is -1 to -1 when nothing is hit; the row
    /// behind the last counts as hit, and beside the columns a row is hit without a column.
    Cell GetHitCell(int x, int y);
    /// Selects the row at a point and answers it; the row behind the last counts. On a divider of
    /// the header its column begins to be dragged. Answers -1 when no row was hit.
    int SelectAt(int x, int y);
    /// The pointer moved: drags a divider or shows that one can be dragged. Answers whether a drag
    /// is going on; `*changed` tells of a new width.
    bool MoveAt(int x, int y, bool* changed);

    /// Paints all of the view into the window. Nothing when it is narrower than 20 pixels.
    void Paint();
    /// The same without the header, which scrolling up and down leaves as it is.
    void PaintBody();

    RECT rcView;
    EArray<int> widths{32};
    COwerDrawListView* pOwner;
    int nWidthMode;
    int nRowCount = 0;
    int nRowHeight = 22;
    int nSelected = -1;
    int nScrollY = 0;
    int nScrollX = 0;
    CFont hFont;
    bool bResizing = false;
    int nResizeCol = 0;
    int nHitX = 0;
    int nHitY = 0;
    HDC hTargetDC;
    CDC hHeaderDC;
    CDC hBodyDC;
    CDC hSpareDC;
    CBitmap hHeaderBmp;
    CBitmap hBodyBmp;
    HGDIOBJ hOldHeaderBmp = nullptr;
    HGDIOBJ hOldBodyBmp = nullptr;
    CFont hBoldFont;
    DrawHeader pfnDrawHeader = nullptr;
    DrawItem pfnDrawItem = nullptr;

private:
    /// The column whose right border is at most two pixels from `x`, or -1.
    int DividerAt(int x) const;
    int LeftOf(int column) const;
    void MakeHeaderBitmap();
    void MakeBodyBitmap();
    int RowLeft() const { return rcView.left - nScrollX; }
    int RowRight() const { return RowLeft() + TotalWidth(); }
    void PaintHeader();
    void PaintRow(int row, int y, HBRUSH grid);
    void FrameCells(int top, int bottom, HBRUSH grid) const;
    void CopyLines(int top, int bottom) const;
};
