#include "host/views/depth_view.h"

#include <algorithm>
#include <cstdint>

#include "host/views/quote_rules.h"

namespace views {
namespace {

constexpr int kHeaderHeight = 26;
constexpr int kLevelHeight = 20;
constexpr int kLastHeight = 30;
constexpr int kTradeHeight = 18;
constexpr int kPadding = 8;
constexpr int kLabelWidth = 40;

constexpr const char* kAskLabels[] = {"卖一", "卖二", "卖三", "卖四", "卖五"};
constexpr const char* kBidLabels[] = {"买一", "买二", "买三", "买四", "买五"};

std::int64_t LargestSize(const papercore::Quote& quote) {
    std::int64_t largest = 1;
    for (const papercore::Level& level : quote.bid) largest = std::max(largest, level.volume);
    for (const papercore::Level& level : quote.ask) largest = std::max(largest, level.volume);
    return largest;
}

int AskTop(std::size_t level) {
    return kHeaderHeight + static_cast<int>(papercore::kLevels - 1 - level) * kLevelHeight;
}

constexpr int kLastTop = kHeaderHeight + papercore::kLevels * kLevelHeight;

int BidTop(std::size_t level) {
    return kLastTop + kLastHeight + static_cast<int>(level) * kLevelHeight;
}

constexpr int kTapeTop = kLastTop + kLastHeight + papercore::kLevels * kLevelHeight + 4;

}  // namespace

BEGIN_MESSAGE_MAP(DepthView, View)
    ON_WM_LBUTTONDOWN()
END_MESSAGE_MAP()

void DepthView::SetContract(const std::string& name, int digits) {
    name_ = name;
    digits_ = digits;
    quote_ = {};
    trades_.clear();
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void DepthView::SetQuote(const papercore::Quote& quote) {
    quote_ = quote;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void DepthView::SetTrades(std::vector<TapeTrade> trades) {
    trades_ = std::move(trades);
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void DepthView::Paint(const Painter& painter, CSize size) {
    const skin::Palette& colors = painter.colors;
    painter.Fill({0, 0, size.cx, size.cy}, colors.ground);
    painter.Fill({0, 0, size.cx, kHeaderHeight}, colors.raised);
    painter.Fill({0, kHeaderHeight - 1, size.cx, kHeaderHeight}, colors.line);
    painter.Text({kPadding, 0, size.cx - kPadding, kHeaderHeight - 1}, name_, colors.accent,
                 DT_LEFT, Type::kDense, true);
    const std::int64_t largest = LargestSize(quote_);
    for (std::size_t level = 0; level < papercore::kLevels; ++level) {
        const int ask = AskTop(level);
        const int bid = BidTop(level);
        PaintLevel(painter, {0, ask, size.cx, ask + kLevelHeight}, kAskLabels[level],
                   quote_.ask[level], false, largest);
        PaintLevel(painter, {0, bid, size.cx, bid + kLevelHeight}, kBidLabels[level],
                   quote_.bid[level], true, largest);
    }
    const RECT last{0, kLastTop, size.cx, kLastTop + kLastHeight};
    painter.Fill(last, colors.raised);
    const int tendency = Tendency(quote_.last, Reference(quote_));
    const COLORREF color = TendencyColor(colors, tendency);
    painter.Text({kPadding, last.top, size.cx / 2 + kPadding, last.bottom},
                 PriceText(quote_.last, digits_), color, DT_LEFT, Type::kTitle, true);
    painter.Text({size.cx / 2, last.top, size.cx - kPadding, last.bottom},
                 ChangeText(quote_, digits_), color, DT_RIGHT);
    PaintTrades(painter, {0, kTapeTop, size.cx, size.cy});
}

void DepthView::PaintLevel(const Painter& painter, const RECT& row, const char* label,
                           const papercore::Level& level, bool bid, std::int64_t largest) const {
    const skin::Palette& colors = painter.colors;
    painter.Text({row.left + kPadding, row.top, row.left + kLabelWidth, row.bottom}, label,
                 colors.secondary);
    if (level.price <= 0) {
        painter.Text({row.left + kLabelWidth, row.top, row.right / 2 + 16, row.bottom}, "--",
                     colors.secondary, DT_RIGHT);
        return;
    }
    const int room = row.right - kPadding - (row.right / 2 + 24);
    const int length = static_cast<int>(static_cast<std::int64_t>(room) * level.volume / largest);
    painter.Fill({row.right - kPadding - length, row.top + 3, row.right - kPadding, row.bottom - 3},
                 Mixed(bid ? colors.buy : colors.sell, colors.ground, 60));
    painter.Text({row.left + kLabelWidth, row.top, row.right / 2 + 16, row.bottom},
                 PriceText(level.price, digits_),
                 TendencyColor(colors, Tendency(level.price, Reference(quote_))), DT_RIGHT);
    painter.Text({row.right / 2 + 16, row.top, row.right - kPadding, row.bottom},
                 CountText(level.volume), colors.text, DT_RIGHT);
}

void DepthView::PaintTrades(const Painter& painter, const RECT& room) const {
    const skin::Palette& colors = painter.colors;
    painter.Fill({room.left, room.top, room.right, room.top + 1}, colors.line);
    int top = room.top + 4;
    if (trades_.empty()) {
        painter.Text({room.left, top, room.right, top + kTradeHeight}, "暂无成交", colors.secondary,
                     DT_CENTER);
    }
    for (const TapeTrade& trade : trades_) {
        if (top + kTradeHeight > room.bottom) break;
        const RECT row{room.left + kPadding, top, room.right - kPadding, top + kTradeHeight};
        const COLORREF color = TendencyColor(colors, trade.side);
        painter.Text({row.left, row.top, row.left + 56, row.bottom}, TimeText(trade.time),
                     colors.secondary);
        painter.Text({row.left + 56, row.top, room.right / 2 + 32, row.bottom},
                     PriceText(trade.price, digits_), color, DT_RIGHT);
        painter.Text({room.right / 2 + 32, row.top, row.right, row.bottom}, CountText(trade.volume),
                     colors.text, DT_RIGHT);
        top += kTradeHeight;
    }
}

void DepthView::OnLButtonDown(UINT keys, CPoint point) {
    CWnd::OnLButtonDown(keys, point);
    const auto hit = [point](int top) { return point.y >= top && point.y < top + kLevelHeight; };
    papercore::Price price = 0;
    for (std::size_t level = 0; level < papercore::kLevels; ++level) {
        if (hit(AskTop(level))) price = quote_.ask[level].price;
        if (hit(BidTop(level))) price = quote_.bid[level].price;
    }
    if (price > 0 && on_price) on_price(price);
}

}  // namespace views
