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
    Replace(hBodyDC, hBodyBmp, hOldBodyBmp, hTargetDC, ViewWidth(), rcView.bottom - rcView.top);
}

int CListGrid::PixelWidth(int column) const {
    const int width = widths.GetData()[column];
    return nWidthMode == kPercent ? static_cast<int>(width * ViewWidth() / 100.0 + 0.5) : width;
}

void CListGrid::SetPixelWidth(int column, int width) {
    const bool percent = nWidthMode == kPercent && ViewWidth() > 0;
    widths.GetData()[column] =
        percent ? static_cast<int>(width * 100.0 / ViewWidth() + 0.5) : width;
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
        if (*changed) SetPixelWidth(nResizeCol, std::min(width, kWidestColumn));
    }
    ::SetCursor(::LoadCursorA(nullptr, IDC_SIZEWE));
    return true;
}

void CListGrid::Paint() {
    if (ViewWidth() < kNarrowestView) return;
    const int header_end = PaintHeader();
    PaintBody(header_end);
    const int width = ViewWidth();
    ::BitBlt(hTargetDC, rcView.left, rcView.top, width, nRowHeight, hHeaderDC, 0, 0, SRCCOPY);
    ::BitBlt(hTargetDC, rcView.left, BodyTop(), width, rcView.bottom - BodyTop(), hBodyDC, 0, 0,
             SRCCOPY);
}

int CListGrid::PaintHeader() {
    hHeaderDC.FillSolidRect({0, 0, ViewWidth(), nRowHeight}, list_colors::kGround);
    if (pfnDrawHeader == nullptr) return static_cast<int>(rcView.right);
    const toolkit::ScopedSelect font(hHeaderDC, static_cast<HFONT>(hFont));
    int x = rcView.left - nScrollX;
    for (int column = 0; column < ColumnCount(); ++column) {
        RECT rect{x, rcView.top, x + PixelWidth(column), rcView.top + nRowHeight};
        x = rect.right;
        if (rect.right < 0 || rect.left >= ViewWidth()) continue;
        pfnDrawHeader(hHeaderDC, hSpareDC, column, &rect, pOwner);
    }
    return x;
}

void CListGrid::PaintBody(int header_end) {
    const int height = rcView.bottom - rcView.top;
    hBodyDC.FillSolidRect({0, 0, ViewWidth(), height}, list_colors::kGround);
    const toolkit::ScopedSelect font(hBodyDC, static_cast<HFONT>(hFont));
    const CBrush grid(list_colors::kGrid);
    const int first = nScrollY / nRowHeight;
    int y = -(nScrollY % nRowHeight);
    for (int row = first; row < nRowCount && y < height - nRowHeight + 1; ++row) {
        PaintRow(row, y, header_end, grid);
        y += nRowHeight;
    }
}

void CListGrid::PaintRow(int row, int y, int header_end, HBRUSH grid) {
    if (row == nSelected) {
        hBodyDC.FillSolidRect({rcView.left, y, header_end, y + nRowHeight},
                              list_colors::kSelection);
    }
    int x = rcView.left - nScrollX;
    for (int column = 0; column < ColumnCount() && x < ViewWidth(); ++column) {
        RECT rect{x, y - 1, x + PixelWidth(column), y + nRowHeight};
        x = rect.right;
        if (rect.right < 0) continue;
        if (pfnDrawItem != nullptr) pfnDrawItem(hBodyDC, column == 0, row, column, &rect, pOwner);
        rect.left -= 1;
        ::FrameRect(hBodyDC, &rect, grid);
    }
}
