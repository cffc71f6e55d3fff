#include "host/views/quote_list.h"

#include <algorithm>

#include "host/views/quote_rules.h"

namespace views {
namespace {

constexpr int kHeaderHeight = 26;
constexpr int kRowHeight = 26;
constexpr int kPadding = 6;
constexpr int kLeastWidth = 24;
constexpr int kMostWidth = 400;
constexpr int kGrip = 3;

enum Column { kName, kLast, kChange, kPercent, kBid, kBidSize, kAsk, kAskSize, kVolume };

struct ColumnKind {
    const char* title;
    int width;
};
constexpr ColumnKind kColumns[] = {{"合约", 68}, {"最新", 60}, {"涨跌", 56},
                                   {"涨幅", 60}, {"买价", 60}, {"买量", 40},
                                   {"卖价", 60}, {"卖量", 40}, {"成交量", 64}};

struct Cell {
    std::string text;
    COLORREF color;
};

Cell CellOf(const skin::Palette& colors, const papercore::Quote& quote, int digits, int column) {
    const papercore::Price reference = Reference(quote);
    const auto price = [&](papercore::Price value) {
        const bool none = value <= 0;
        return Cell{PriceText(value, digits),
                    none ? colors.secondary : TendencyColor(colors, Tendency(value, reference))};
    };
    const auto size = [&](const papercore::Level& level) {
        return Cell{level.price > 0 ? CountText(level.volume) : "--",
                    level.price > 0 ? colors.text : colors.secondary};
    };
    const COLORREF day =
        quote.last > 0 ? TendencyColor(colors, Tendency(quote.last, reference)) : colors.secondary;
    switch (column) {
        case kLast: return price(quote.last);
        case kChange: return {ChangeText(quote, digits), day};
        case kPercent: return {ChangePercentText(quote), day};
        case kBid: return price(quote.bid[0].price);
        case kBidSize: return size(quote.bid[0]);
        case kAsk: return price(quote.ask[0].price);
        case kAskSize: return size(quote.ask[0]);
        default: return {CountText(quote.volume), colors.text};
    }
}

}  // namespace

BEGIN_MESSAGE_MAP(QuoteList, View)
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_MOUSEMOVE()
    ON_WM_MOUSEWHEEL()
    ON_WM_SETCURSOR()
    ON_WM_KEYDOWN()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_WM_GETDLGCODE()
    ON_MESSAGE(WM_CAPTURECHANGED, &QuoteList::OnCaptureChanged)
END_MESSAGE_MAP()

QuoteList::QuoteList() {
    for (const ColumnKind& column : kColumns) widths_.push_back(column.width);
}

void QuoteList::SetContracts(std::vector<Contract> contracts) {
    rows_.clear();
    for (Contract& contract : contracts) rows_.push_back({std::move(contract), {}});
    selected_ = -1;
    first_ = 0;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

int QuoteList::WholeHeight() const {
    return kHeaderHeight + static_cast<int>(rows_.size()) * kRowHeight;
}

void QuoteList::SetQuote(int index, const papercore::Quote& quote) {
    if (index < 0 || static_cast<std::size_t>(index) >= rows_.size()) return;
    rows_[static_cast<std::size_t>(index)].quote = quote;
    if (!GetSafeHwnd()) return;
    const CRect row = RowRect(index);
    InvalidateRect(&row, FALSE);
}

void QuoteList::Select(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= rows_.size()) return;
    selected_ = index;
    if (!GetSafeHwnd()) return;
    if (index < first_) ScrollTo(index);
    if (index >= first_ + RowsInView()) ScrollTo(index - RowsInView() + 1);
    Invalidate(FALSE);
}

void QuoteList::SetColumnWidths(const std::vector<int>& widths) {
    if (widths.size() != widths_.size()) return;
    for (std::size_t column = 0; column < widths.size(); ++column) {
        widths_[column] = std::clamp(widths[column], kLeastWidth, kMostWidth);
    }
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void QuoteList::Paint(const Painter& painter, CSize size) {
    painter.Fill({0, 0, size.cx, size.cy}, painter.colors.ground);
    PaintHeader(painter, size.cx);
    for (std::size_t row = static_cast<std::size_t>(first_); row < rows_.size(); ++row) {
        const int top = RowRect(static_cast<int>(row)).top;
        if (top >= size.cy) break;
        PaintRow(painter, row, top, size.cx);
    }
}

void QuoteList::PaintHeader(const Painter& painter, int width) const {
    painter.Fill({0, 0, width, kHeaderHeight}, painter.colors.raised);
    painter.Fill({0, kHeaderHeight - 1, width, kHeaderHeight}, painter.colors.line);
    int left = 0;
    for (std::size_t column = 0; column < widths_.size(); ++column) {
        const RECT cell{left + kPadding, 0, left + widths_[column] - kPadding, kHeaderHeight - 1};
        painter.Text(cell, kColumns[column].title, painter.colors.secondary,
                     column == kName ? DT_LEFT : DT_RIGHT);
        left += widths_[column];
        painter.Fill({left - 1, 6, left, kHeaderHeight - 7}, painter.colors.line);
    }
}

void QuoteList::PaintRow(const Painter& painter, std::size_t row, int top, int width) const {
    const skin::Palette& colors = painter.colors;
    const bool current = static_cast<int>(row) == selected_;
    if (current) {
        painter.Fill({0, top, width, top + kRowHeight}, Mixed(colors.accent, colors.ground, 40));
        painter.Fill({0, top, 3, top + kRowHeight}, colors.accent);
        if (GetFocus() == this) painter.Frame({0, top, width, top + kRowHeight}, colors.accent);
    }
    const Row& shown = rows_[row];
    int left = 0;
    for (std::size_t column = 0; column < widths_.size(); ++column) {
        const RECT cell{left + kPadding, top, left + widths_[column] - kPadding, top + kRowHeight};
        left += widths_[column];
        if (column == kName) {
            painter.Text(cell, shown.contract.name, current ? colors.accent : colors.text, DT_LEFT,
                         Type::kDense, current);
            continue;
        }
        const Cell content =
            CellOf(colors, shown.quote, shown.contract.digits, static_cast<int>(column));
        painter.Text(cell, content.text, content.color, DT_RIGHT, Type::kDense, column == kLast);
    }
}

RECT QuoteList::RowRect(int row) const {
    const int top = kHeaderHeight + (row - first_) * kRowHeight;
    return {0, top, ClientSize().cx, top + kRowHeight};
}

int QuoteList::RowsInView() const {
    return std::max<int>((ClientSize().cy - kHeaderHeight) / kRowHeight, 1);
}

void QuoteList::ScrollTo(int first) {
    const int last = std::max(static_cast<int>(rows_.size()) - RowsInView(), 0);
    first_ = std::clamp(first, 0, last);
    Invalidate(FALSE);
}

void QuoteList::Choose(int index) {
    index = std::clamp(index, 0, static_cast<int>(rows_.size()) - 1);
    if (rows_.empty() || index == selected_) return;
    Select(index);
    if (on_select) on_select(index);
}

int QuoteList::DividerAt(CPoint point) const {
    if (point.y < 0 || point.y >= kHeaderHeight) return -1;
    int right = 0;
    for (std::size_t column = 0; column < widths_.size(); ++column) {
        right += widths_[column];
        if (std::abs(point.x - right) <= kGrip) return static_cast<int>(column);
    }
    return -1;
}

void QuoteList::OnLButtonDown(UINT keys, CPoint point) {
    CWnd::OnLButtonDown(keys, point);
    SetFocus();
    dragged_ = DividerAt(point);
    if (dragged_ >= 0) {
        int right = 0;
        for (int column = 0; column <= dragged_; ++column) {
            right += widths_[static_cast<std::size_t>(column)];
        }
        drag_offset_ = point.x - right;
        SetCapture();
        return;
    }
    if (point.y < kHeaderHeight) return;
    const int row = first_ + (point.y - kHeaderHeight) / kRowHeight;
    if (row < static_cast<int>(rows_.size())) Choose(row);
}

void QuoteList::OnMouseMove(UINT keys, CPoint point) {
    CWnd::OnMouseMove(keys, point);
    if (dragged_ < 0) return;
    int left = 0;
    for (int column = 0; column < dragged_; ++column) {
        left += widths_[static_cast<std::size_t>(column)];
    }
    const int width = static_cast<int>(point.x) - drag_offset_ - left;
    widths_[static_cast<std::size_t>(dragged_)] = std::clamp(width, kLeastWidth, kMostWidth);
    Invalidate(FALSE);
}

void QuoteList::OnLButtonUp(UINT keys, CPoint point) {
    CWnd::OnLButtonUp(keys, point);
    if (dragged_ >= 0) ReleaseCapture();
}

LRESULT QuoteList::OnCaptureChanged(WPARAM, LPARAM) {
    dragged_ = -1;
    return 0;
}

BOOL QuoteList::OnMouseWheel(UINT, short delta, CPoint) {
    ScrollTo(first_ - delta / WHEEL_DELTA);
    return TRUE;
}

BOOL QuoteList::OnSetCursor(CWnd*, UINT, UINT) {
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(&point);
    const bool divides = dragged_ >= 0 || DividerAt(point) >= 0;
    SetCursor(LoadCursorA(nullptr, divides ? IDC_SIZEWE : IDC_ARROW));
    return TRUE;
}

void QuoteList::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    CWnd::OnKeyDown(key, repeat, flags);
    switch (key) {
        case VK_UP: Choose(selected_ - 1); break;
        case VK_DOWN: Choose(selected_ + 1); break;
        case VK_PRIOR: Choose(selected_ - RowsInView()); break;
        case VK_NEXT: Choose(selected_ + RowsInView()); break;
        case VK_HOME: Choose(0); break;
        case VK_END: Choose(static_cast<int>(rows_.size()) - 1); break;
        default: break;
    }
}

void QuoteList::OnSetFocus(CWnd* former) {
    CWnd::OnSetFocus(former);
    Invalidate(FALSE);
}

void QuoteList::OnKillFocus(CWnd* next) {
    CWnd::OnKillFocus(next);
    Invalidate(FALSE);
}

}  // namespace views
