#include "host/views/chart_view.h"

#include <algorithm>

#include "host/views/quote_rules.h"

namespace views {
namespace {

constexpr int kHeaderHeight = 26;
constexpr int kAxisWidth = 64;
constexpr int kTimesHeight = 20;
constexpr int kVolumeShare = 5;  // one part of so many is for the volumes
constexpr int kPadding = 8;
constexpr int kPeriodWidth = 40;
constexpr int kNameWidth = 88;
constexpr int kNarrowest = 3;
constexpr int kWidest = 24;
constexpr int kPriceDistance = 44;
constexpr int kTimeDistance = 64;
constexpr int kTagHeight = 16;

constexpr const char* kPeriodNames[] = {"分时", "1分", "5分", "15分", "60分"};

COLORREF MarkColor(const skin::Palette& colors, ChartMark::Kind kind) {
    switch (kind) {
        case ChartMark::Kind::kOrder: return colors.accent;
        case ChartMark::Kind::kOpenPrice: return colors.even;
        case ChartMark::Kind::kTakeProfit: return colors.buy;
        default: return colors.sell;
    }
}

}  // namespace

BEGIN_MESSAGE_MAP(ChartView, View)
    ON_WM_LBUTTONDOWN()
    ON_WM_MOUSEMOVE()
    ON_WM_MOUSEWHEEL()
    ON_WM_KEYDOWN()
    ON_WM_GETDLGCODE()
    ON_MESSAGE(WM_MOUSELEAVE, &ChartView::OnMouseLeave)
END_MESSAGE_MAP()

void ChartView::SetContract(const std::string& name, int digits, papercore::Price tick) {
    name_ = name;
    digits_ = digits;
    tick_ = std::max<papercore::Price>(tick, 1);
    candles_.clear();
    marks_.clear();
    skipped_ = 0;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void ChartView::SetPeriod(int minutes) {
    if (std::ranges::find(kPeriods, minutes) == std::end(kPeriods)) return;
    period_ = minutes;
    skipped_ = 0;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void ChartView::SetCandles(std::vector<Candle> candles) {
    // One who looks at the past stays there while new candles come.
    const auto grown = static_cast<int>(candles.size()) - static_cast<int>(candles_.size());
    if (skipped_ > 0 && grown > 0 && !candles_.empty()) skipped_ += grown;
    candles_ = std::move(candles);
    skipped_ = std::min(skipped_, std::max(static_cast<int>(candles_.size()) - 1, 0));
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void ChartView::SetReference(papercore::Price reference) {
    reference_ = reference;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void ChartView::SetMarks(std::vector<ChartMark> marks) {
    marks_ = std::move(marks);
    if (GetSafeHwnd()) Invalidate(FALSE);
}

RECT ChartView::PeriodRect(std::size_t period) {
    const int left = kNameWidth + static_cast<int>(period) * kPeriodWidth;
    return {left, 0, left + kPeriodWidth, kHeaderHeight - 1};
}

ChartView::Layout ChartView::LayOut(CSize size) const {
    Layout layout;
    const int right = std::max<int>(size.cx - kAxisWidth, 0);
    const int bottom = std::max<int>(size.cy - kTimesHeight, kHeaderHeight);
    const int split = bottom - (bottom - kHeaderHeight) / kVolumeShare;
    layout.header = {0, 0, size.cx, kHeaderHeight};
    layout.prices = {0, kHeaderHeight, right, split};
    layout.volumes = {0, split, right, bottom};
    layout.axis = {right, kHeaderHeight, size.cx, bottom};
    layout.times = {0, bottom, right, size.cy};
    const auto count = static_cast<int>(candles_.size());
    const int pitch = period_ == 0 ? std::max(right / std::max(count, 240), 1) : pitch_;
    layout.span = SpanOf(count, right - kPadding, pitch, skipped_);
    std::vector<papercore::Price> also;
    for (const ChartMark& mark : marks_) also.push_back(mark.price);
    if (period_ == 0) also.push_back(reference_);
    layout.scale = ScaleOf(candles_, layout.span, also, tick_, kHeaderHeight,
                           static_cast<int>(layout.prices.bottom) - kHeaderHeight);
    return layout;
}

void ChartView::Paint(const Painter& painter, CSize size) {
    painter.Fill({0, 0, size.cx, size.cy}, painter.colors.ground);
    const Layout layout = LayOut(size);
    PaintHeader(painter, layout);
    if (layout.span.count == 0) {
        painter.Text(layout.prices, "等待行情", painter.colors.secondary, DT_CENTER);
        return;
    }
    PaintGrid(painter, layout);
    PaintVolumes(painter, layout);
    if (period_ == 0) {
        PaintLine(painter, layout);
    } else {
        PaintCandles(painter, layout);
    }
    PaintMarks(painter, layout);
    const Candle& newest = candles_.back();
    PaintTag(painter, layout, layout.scale.YOf(newest.close), PriceText(newest.close, digits_),
             TendencyColor(painter.colors, Tendency(newest.close, reference_)));
    PaintCrosshair(painter, layout);
}

void ChartView::PaintHeader(const Painter& painter, const Layout& layout) const {
    const skin::Palette& colors = painter.colors;
    painter.Fill(layout.header, colors.raised);
    painter.Fill({0, kHeaderHeight - 1, layout.header.right, kHeaderHeight}, colors.line);
    painter.Text({kPadding, 0, kNameWidth, kHeaderHeight - 1}, name_, colors.accent, DT_LEFT,
                 Type::kDense, true);
    for (std::size_t period = 0; period < std::size(kPeriods); ++period) {
        const RECT rect = PeriodRect(period);
        const bool chosen = kPeriods[period] == period_;
        painter.Text(rect, kPeriodNames[period], chosen ? colors.text : colors.secondary, DT_CENTER,
                     Type::kDense, chosen);
        if (chosen) {
            painter.Fill({rect.left + 6, rect.bottom - 2, rect.right - 6, rect.bottom},
                         colors.accent);
        }
    }
}

void ChartView::PaintGrid(const Painter& painter, const Layout& layout) const {
    const skin::Palette& colors = painter.colors;
    const COLORREF faint = Mixed(colors.line, colors.ground, 150);
    for (const papercore::Price price : RoundPrices(layout.scale, kPriceDistance)) {
        const int y = layout.scale.YOf(price);
        if (y < layout.prices.top + 8 || y > layout.prices.bottom - 8) continue;
        painter.Fill({layout.prices.left, y, layout.prices.right, y + 1}, faint);
        // The tag of the last price would cover part of it.
        const int tag = layout.scale.YOf(candles_.back().close);
        if (std::abs(y - tag) < kTagHeight) continue;
        painter.Text({layout.axis.left + 6, y - 8, layout.axis.right - 4, y + 8},
                     PriceText(price, digits_), colors.secondary);
    }
    painter.Fill({layout.axis.left, layout.axis.top, layout.axis.left + 1, layout.axis.bottom},
                 colors.line);
    painter.Fill({0, layout.volumes.top, layout.axis.right, layout.volumes.top + 1}, colors.line);
    painter.Fill({0, layout.times.top, layout.axis.right, layout.times.top + 1}, colors.line);
    int written = -kTimeDistance;
    papercore::Instant before = 0;
    const CandleSpan& span = layout.span;
    for (int index = span.first; index < span.first + span.count; ++index) {
        const int x = span.CenterOf(index);
        if (x - written < kTimeDistance || x + 36 > layout.times.right) continue;
        const papercore::Instant time = candles_[static_cast<std::size_t>(index)].begin;
        const int text_left = std::max(x - 4, 2);
        painter.Text({text_left, layout.times.top, text_left + 44, layout.times.bottom},
                     AxisText(time, before), colors.secondary);
        painter.Fill({x, layout.prices.top, x + 1, layout.times.top + 4}, faint);
        written = x;
        before = time;
    }
}

int ChartView::ColorSign(const Candle& candle) const { return Tendency(candle.close, candle.open); }

void ChartView::PaintCandles(const Painter& painter, const Layout& layout) const {
    const CandleSpan& span = layout.span;
    const int half = std::max((span.pitch - 2) / 2, 0);
    for (int index = span.first; index < span.first + span.count; ++index) {
        const Candle& candle = candles_[static_cast<std::size_t>(index)];
        if (candle.low <= 0) continue;
        const COLORREF color = TendencyColor(painter.colors, ColorSign(candle));
        const int x = span.CenterOf(index);
        const int open = layout.scale.YOf(candle.open);
        const int close = layout.scale.YOf(candle.close);
        painter.Fill({x, layout.scale.YOf(candle.high), x + 1, layout.scale.YOf(candle.low) + 1},
                     color);
        const int top = std::min(open, close);
        const int bottom = std::max({open, close, top + 1});
        painter.Fill({x - half, top, x + half + 1, bottom}, color);
        // A rising candle is hollow, so that direction is not told by colour alone.
        if (close < open && half > 0 && bottom - top > 2) {
            painter.Fill({x - half + 1, top + 1, x + half, bottom - 1}, painter.colors.ground);
        }
    }
}

void ChartView::PaintLine(const Painter& painter, const Layout& layout) const {
    const CandleSpan& span = layout.span;
    if (reference_ > 0) {
        const int y = layout.scale.YOf(reference_);
        painter.Line(layout.prices.left, y, layout.prices.right, y, painter.colors.secondary,
                     PS_DOT);
    }
    std::vector<POINT> points;
    for (int index = span.first; index < span.first + span.count; ++index) {
        const Candle& candle = candles_[static_cast<std::size_t>(index)];
        if (candle.close > 0)
            points.push_back({span.CenterOf(index), layout.scale.YOf(candle.close)});
    }
    for (std::size_t at = 1; at < points.size(); ++at) {
        painter.Line(points[at - 1].x, points[at - 1].y, points[at].x, points[at].y,
                     painter.colors.text);
    }
}

void ChartView::PaintVolumes(const Painter& painter, const Layout& layout) const {
    const CandleSpan& span = layout.span;
    std::int64_t largest = 1;
    for (int index = span.first; index < span.first + span.count; ++index) {
        largest = std::max(largest, candles_[static_cast<std::size_t>(index)].volume);
    }
    const int half = std::max((span.pitch - 2) / 2, 0);
    const std::int64_t room =
        std::max<std::int64_t>(layout.volumes.bottom - layout.volumes.top - 6, 0);
    for (int index = span.first; index < span.first + span.count; ++index) {
        const Candle& candle = candles_[static_cast<std::size_t>(index)];
        const int height = static_cast<int>(room * candle.volume / largest);
        const int x = span.CenterOf(index);
        const COLORREF color = TendencyColor(painter.colors, ColorSign(candle));
        painter.Fill(
            {x - half, layout.volumes.bottom - height, x + half + 1, layout.volumes.bottom},
            Mixed(color, painter.colors.ground, 160));
    }
    painter.Text({layout.axis.left + 6, layout.volumes.top + 2, layout.axis.right - 4,
                  layout.volumes.top + 18},
                 CountText(largest), painter.colors.secondary);
}

void ChartView::PaintMarks(const Painter& painter, const Layout& layout) const {
    for (const ChartMark& mark : marks_) {
        const int y = layout.scale.YOf(mark.price);
        if (mark.price <= 0 || y <= layout.prices.top || y >= layout.prices.bottom) continue;
        const COLORREF color = MarkColor(painter.colors, mark.kind);
        painter.Line(layout.prices.left, y, layout.prices.right, y, color, PS_DASH);
        const int width = painter.TextWidth(mark.label) + 8;
        const RECT label{layout.prices.left + 4, y - kTagHeight / 2, layout.prices.left + 4 + width,
                         y + kTagHeight / 2};
        painter.Fill(label, painter.colors.raised);
        painter.Frame(label, color);
        painter.Text({label.left + 4, label.top, label.right, label.bottom}, mark.label, color);
    }
}

void ChartView::PaintTag(const Painter& painter, const Layout& layout, int y,
                         const std::string& text, COLORREF color) const {
    const int lowest = std::max<int>(layout.axis.bottom - kTagHeight / 2, layout.axis.top);
    y = std::clamp<int>(y, std::min<int>(layout.axis.top + kTagHeight / 2, lowest), lowest);
    const RECT tag{layout.axis.left + 1, y - kTagHeight / 2, layout.axis.right, y + kTagHeight / 2};
    painter.Fill(tag, color);
    painter.Text({tag.left + 5, tag.top, tag.right - 2, tag.bottom}, text, painter.colors.ground,
                 DT_LEFT, Type::kDense, true);
}

void ChartView::PaintCrosshair(const Painter& painter, const Layout& layout) const {
    const bool inside = pointer_.x < layout.prices.right && pointer_.y >= layout.prices.top &&
                        pointer_.y < layout.times.top;
    if (!pointed_ || !inside) return;
    const int index = layout.span.At(pointer_.x);
    if (index < 0) return;
    const skin::Palette& colors = painter.colors;
    const Candle& candle = candles_[static_cast<std::size_t>(index)];
    const int x = layout.span.CenterOf(index);
    painter.Line(x, layout.prices.top, x, layout.times.top, colors.secondary, PS_DOT);
    if (pointer_.y < layout.prices.bottom) {
        painter.Line(layout.prices.left, pointer_.y, layout.prices.right, pointer_.y,
                     colors.secondary, PS_DOT);
        PaintTag(painter, layout, pointer_.y, PriceText(layout.scale.PriceAt(pointer_.y), digits_),
                 colors.secondary);
    }
    const std::string text =
        TimeText(candle.begin).substr(0, 5) + "  开 " + PriceText(candle.open, digits_) + "  高 " +
        PriceText(candle.high, digits_) + "  低 " + PriceText(candle.low, digits_) + "  收 " +
        PriceText(candle.close, digits_) + "  量 " + CountText(candle.volume);
    const RECT last = PeriodRect(std::size(kPeriods) - 1);
    painter.Text({last.right + 12, 0, layout.header.right - kPadding, kHeaderHeight - 1}, text,
                 colors.text);
}

void ChartView::OnLButtonDown(UINT keys, CPoint point) {
    CWnd::OnLButtonDown(keys, point);
    SetFocus();
    for (std::size_t period = 0; period < std::size(kPeriods); ++period) {
        const RECT rect = PeriodRect(period);
        if (!PtInRect(&rect, point) || kPeriods[period] == period_) continue;
        SetPeriod(kPeriods[period]);
        if (on_period) on_period(period_);
        return;
    }
}

void ChartView::OnMouseMove(UINT keys, CPoint point) {
    CWnd::OnMouseMove(keys, point);
    if (!pointed_) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, GetSafeHwnd(), 0};
        TrackMouseEvent(&track);
    }
    pointed_ = true;
    pointer_ = point;
    Invalidate(FALSE);
}

LRESULT ChartView::OnMouseLeave(WPARAM, LPARAM) {
    pointed_ = false;
    Invalidate(FALSE);
    return 0;
}

BOOL ChartView::OnMouseWheel(UINT, short delta, CPoint) {
    pitch_ = std::clamp(pitch_ + (delta > 0 ? 2 : -2), kNarrowest, kWidest);
    Invalidate(FALSE);
    return TRUE;
}

void ChartView::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    CWnd::OnKeyDown(key, repeat, flags);
    if (key == VK_LEFT) Scroll(5);
    if (key == VK_RIGHT) Scroll(-5);
    if (key == VK_END) Scroll(-skipped_);
}

void ChartView::Scroll(int candles) {
    const int most = std::max(static_cast<int>(candles_.size()) - 10, 0);
    skipped_ = std::clamp(skipped_ + candles, 0, most);
    Invalidate(FALSE);
}

}  // namespace views
