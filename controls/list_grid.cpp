#include "controls/list_grid.h"

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>

#include "controls/list_colors.h"
#include "controls/list_scroll.h"

namespace {

constexpr int kNarrowestView = 20;
constexpr int kNarrowestColumn = 10;
/// A divider reaches this far to either side, the end not included.
constexpr int kDividerReach = 3;
/// Wide enough for any text; keeps sums of widths small.
constexpr int kWidestColumn = 0x7FFF;

void MakeFont(CFont& font, int weight) {
    font.CreateFont(12, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0, "宋体");
}

void MakeContext(CDC& dc, HDC like) {
    dc.Attach(::CreateCompatibleDC(like));
    dc.SetBkMode(TRANSPARENT);
}

HBRUSH WhiteBrush() { return static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)); }

/// Puts a fresh bitmap into a memory context; `former` keeps what the context had at first.
void Replace(CDC& dc, CBitmap& bitmap, HGDIOBJ& former, HDC like, int width, int height) {
    if (former != nullptr) dc.SelectObject(former);
    bitmap.CreateCompatibleBitmap(like, std::max(width, 1), std::max(height, 1));
    const HGDIOBJ replaced = dc.SelectObject(&bitmap);
    if (former == nullptr) former = replaced;
}

void PutBack(CDC& dc, HGDIOBJ former) {
    if (former != nullptr) dc.SelectObject(former);
}

}  // namespace

CListGrid::CListGrid(const RECT& view, COwerDrawListView* owner, int width_mode, HDC target)
    : rcView(view), pOwner(owner), nWidthMode(width_mode), hTargetDC(target) {
    MakeFont(hFont, FW_NORMAL);
    MakeFont(hBoldFont, FW_BOLD);
    MakeContext(hHeaderDC, target);
    MakeContext(hBodyDC, target);
    hSpareDC.Attach(::CreateCompatibleDC(target));
    MakeHeaderBitmap();
    MakeBodyBitmap();
}

CListGrid::~CListGrid() {
    PutBack(hHeaderDC, hOldHeaderBmp);
    PutBack(hBodyDC, hOldBodyBmp);
}

void CListGrid::SetView(const RECT& view) {
    const int width = ViewWidth();
    const int height = rcView.bottom - rcView.top;
    rcView = view;
    if (width == ViewWidth() && height == rcView.bottom - rcView.top) return;
    MakeHeaderBitmap();
    MakeBodyBitmap();
}

void CListGrid::SetRowHeight(int height) {
    nRowHeight = std::max(height, 1);
    MakeHeaderBitmap();
    MakeBodyBitmap();
}

bool CListGrid::AddColumn(int width) {
    const int column = ColumnCount();
    if (widths.SetSize(column + 1) != column + 1) return false;
    widths.GetData()[column] = std::clamp(width, 0, kWidestColumn);
    return true;
}

void CListGrid::MakeHeaderBitmap() {
    Replace(hHeaderDC, hHeaderBmp, hOldHeaderBmp, hTargetDC, ViewWidth(), nRowHeight);
}

void CListGrid::MakeBodyBitmap() {
    Replace(hBodyDC, hBodyBmp, hOldBodyBmp, hTargetDC, ViewWidth(), nRowHeight);
}

int CListGrid::PixelWidth(int column) const {
    const int width = widths.GetData()[column];
    return nWidthMode == kPercent ? (width * ViewWidth() + 50) / 100 : width;
}

void CListGrid::SetPixelWidth(int column, int width) {
    width = std::clamp(width, 0, kWidestColumn);
    const bool percent = nWidthMode == kPercent && ViewWidth() > 0;
    widths.GetData()[column] = percent ? (width * 100 + ViewWidth() / 2) / ViewWidth() : width;
}

int CListGrid::LeftOf(int column) const {
    std::int64_t left = 0;
    for (int i = 0; i < column; ++i) left += PixelWidth(i);
    return static_cast<int>(std::min<std::int64_t>(left, INT_MAX / 2));
}

int CListGrid::TotalWidth() const { return LeftOf(ColumnCount()); }

int CListGrid::RowsInView() const {
    return std::max((static_cast<int>(rcView.bottom) - BodyTop()) / nRowHeight, 1);
}

RECT CListGrid::CellRect(int row, int column) const {
    const int left = rcView.left - nScrollX + LeftOf(column);
    const int top = static_cast<int>(std::clamp<std::int64_t>(
        std::int64_t{row} * nRowHeight - nScrollY, INT_MIN / 2, INT_MAX / 2));
    return {left, top - 1, left + PixelWidth(column), top + nRowHeight};
}

CListGrid::Cell CListGrid::GetHitCell(int x, int y) {
    const std::int64_t below = std::int64_t{y} - BodyTop() + nScrollY;
    if (below < 1 || below / nRowHeight > nRowCount) return {};
    Cell cell;
    cell.row = static_cast<int>(below / nRowHeight);
    nHitY = static_cast<int>(below % nRowHeight);
    int left = rcView.left - nScrollX;
    for (int column = 0; column < ColumnCount(); ++column) {
        const int right = left + PixelWidth(column);
        if (right > x) {
            cell.column = column;
            nHitX = x - left;
            break;
        }
        left = right;
    }
    return cell;
}

int CListGrid::DividerAt(int x) const {
    std::int64_t divider = 0;
    for (int column = 0; column < ColumnCount(); ++column) {
        divider += PixelWidth(column);
        if (std::abs(x - divider) < kDividerReach) return column;
    }
    return -1;
}

int CListGrid::SelectAt(int x, int y) {
    if (y >= BodyTop()) {
        const std::int64_t below = std::int64_t{y} - BodyTop() + nScrollY;
        if (below < 1 || below / nRowHeight > nRowCount) return -1;
        nSelected = static_cast<int>(below / nRowHeight);
        return nSelected;
    }
    const int divider = DividerAt(x - rcView.left + nScrollX);
    if (divider >= 0) {
        bResizing = true;
        nResizeCol = divider;
        ::SetCursor(::LoadCursorA(nullptr, IDC_SIZEWE));
    }
    return -1;
}

bool CListGrid::MoveAt(int x, int y, bool* changed) {
    *changed = false;
    const int at = x - rcView.left + nScrollX;
    if (!bResizing) {
        const bool in_header = y >= rcView.top && y < BodyTop();
        if (in_header && DividerAt(at) >= 0) ::SetCursor(::LoadCursorA(nullptr, IDC_SIZEWE));
        return false;
    }
    // The columns may have been replaced meanwhile.
    if (nResizeCol < ColumnCount()) {
        const int width = at - LeftOf(nResizeCol);
        *changed = width > kNarrowestColumn;
        if (*changed) SetPixelWidth(nResizeCol, width);
    }
    ::SetCursor(::LoadCursorA(nullptr, IDC_SIZEWE));
    return true;
}

void CListGrid::Paint() {
    if (ViewWidth() < kNarrowestView) return;
    PaintHeader();
    ::BitBlt(hTargetDC, rcView.left, rcView.top, ViewWidth(), nRowHeight, hHeaderDC, 0, 0, SRCCOPY);
    PaintBody();
}

void CListGrid::PaintHeader() {
    hHeaderDC.FillSolidRect({0, 0, ViewWidth(), nRowHeight}, list_colors::kGround);
    if (pfnDrawHeader == nullptr) return;
    const toolkit::ScopedSelect font(hHeaderDC, static_cast<HFONT>(hFont));
    int x = rcView.left - nScrollX;
    for (int column = 0; column < ColumnCount() && x < ViewWidth(); ++column) {
        RECT rect{x, rcView.top, x + PixelWidth(column), rcView.top + nRowHeight};
        x = rect.right;
        if (rect.right >= 0) pfnDrawHeader(hHeaderDC, hSpareDC, column, &rect, pOwner);
    }
}

// Row by row through one strip: it stays in the processor's cache from its filling to its copying,
// which a bitmap of the whole body would not.
void CListGrid::PaintBody() {
    if (ViewWidth() < kNarrowestView) return;
    const int height = rcView.bottom - BodyTop();
    const CBrush grid(list_colors::kGrid);
    int y = -(nScrollY % nRowHeight);
    {
        const toolkit::ScopedSelect font(hBodyDC, static_cast<HFONT>(hFont));
        for (int row = nScrollY / nRowHeight; row < nRowCount && y < height; ++row) {
            PaintRow(row, y, grid);
            CopyLines(std::max(y, 0), std::min(y + nRowHeight, height));
            y += nRowHeight;
        }
    }
    const RECT rest{rcView.left, BodyTop() + std::max(y, 0), rcView.right, rcView.bottom};
    if (rest.top < rest.bottom) ::FillRect(hTargetDC, &rest, WhiteBrush());
}

// The line above the row belongs to its cells as well, but the row before has drawn it.
void CListGrid::PaintRow(int row, int y, HBRUSH grid) {
    const RECT strip{rcView.left, y, rcView.right, y + nRowHeight};
    ::SetViewportOrgEx(hBodyDC, -rcView.left, -strip.top, nullptr);
    ::FillRect(hBodyDC, &strip, WhiteBrush());
    const int right = pfnDrawHeader != nullptr ? RowRight() : static_cast<int>(rcView.right);
    if (row == nSelected && right > rcView.left) {
        hBodyDC.FillSolidRect({rcView.left, y, right, strip.bottom}, list_colors::kSelection);
    }
    int x = RowLeft();
    for (int column = 0; column < ColumnCount() && x < ViewWidth(); ++column) {
        RECT rect{x, y - 1, x + PixelWidth(column), strip.bottom};
        x = rect.right;
        if (rect.right < 0 || pfnDrawItem == nullptr) continue;
        pfnDrawItem(hBodyDC, column == 0, row, column, &rect, pOwner);
    }
    FrameCells(strip.top, strip.bottom, grid);
}

// The lines of the frames around all cells of a row; neighbours share theirs, so a frame begins a
// pixel left of its cell.
void CListGrid::FrameCells(int top, int bottom, HBRUSH grid) const {
    if (ColumnCount() == 0) return;
    const auto fill = [this, grid](const RECT& line) { ::FillRect(hBodyDC, &line, grid); };
    int x = RowLeft();
    fill({x - 1, top, x, bottom});
    for (int column = 0; column < ColumnCount() && x < ViewWidth(); ++column) {
        x += PixelWidth(column);
        fill({x - 1, top, x, bottom});
    }
    fill({RowLeft() - 1, bottom - 1, x, bottom});
}

void CListGrid::CopyLines(int top, int bottom) const {
    if (top >= bottom) return;
    ::BitBlt(hTargetDC, rcView.left, BodyTop() + top, ViewWidth(), bottom - top, hBodyDC,
             rcView.left, top, SRCCOPY);
}
