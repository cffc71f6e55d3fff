#include "host/views/chart_rules.h"

#include <algorithm>
#include <chrono>
#include <cstdint>

#include "platform/text/bounded_text.h"

namespace views {
namespace {

using papercore::Price;

std::chrono::sys_days DayOf(papercore::Instant time) {
    return std::chrono::floor<std::chrono::days>(
        std::chrono::sys_time<std::chrono::milliseconds>(std::chrono::milliseconds(time)));
}

// 1, 2 or 5 times a power of ten, at least `least`.
Price RoundStep(Price least) {
    Price power = 1;
    while (power < least / 10) power *= 10;
    for (;; power *= 10) {
        for (const Price factor : {1, 2, 5}) {
            if (power * factor >= least) return power * factor;
        }
    }
}

}  // namespace

int CandleSpan::At(int x) const {
    if (count <= 0) return -1;
    const int index = pitch > 0 ? (x - left) / pitch : 0;
    return first + std::clamp(x < left ? 0 : index, 0, count - 1);
}

CandleSpan SpanOf(int candles, int width, int pitch, int skipped) {
    CandleSpan span;
    span.pitch = std::max(pitch, 1);
    const int room = std::max(width, 0) / span.pitch;
    const int end = std::clamp(candles - skipped, std::min(1, candles), std::max(candles, 0));
    span.count = std::min(room, end);
    span.first = end - span.count;
    span.left = span.count < room ? 0 : width - span.count * span.pitch;
    return span;
}

int PriceScale::YOf(Price price) const {
    const double share = static_cast<double>(high - price) / static_cast<double>(high - low);
    const double y = top + share * height;
    return static_cast<int>(std::clamp(y, -30000.0, 30000.0));
}

Price PriceScale::PriceAt(int y) const {
    const double share = static_cast<double>(y - top) / static_cast<double>(height);
    return high - static_cast<Price>(share * static_cast<double>(high - low));
}

PriceScale ScaleOf(const std::vector<Candle>& candles, const CandleSpan& span,
                   const std::vector<Price>& also, Price tick, int top, int height) {
    PriceScale scale;
    scale.top = top;
    scale.height = std::max(height, 1);
    Price low = 0;
    Price high = 0;
    for (int index = span.first; index < span.first + span.count; ++index) {
        const Candle& candle = candles[static_cast<std::size_t>(index)];
        if (candle.low <= 0) continue;
        low = low == 0 ? candle.low : std::min(low, candle.low);
        high = std::max(high, candle.high);
    }
    const Price reach = std::max((high - low) / 2, 20 * tick);
    const Price lowest = low - reach;
    const Price highest = high + reach;
    for (const Price price : also) {
        if (price <= 0 || low <= 0 || price < lowest || price > highest) continue;
        low = std::min(low, price);
        high = std::max(high, price);
    }
    const Price margin = std::max((high - low) / 12, 4 * std::max<Price>(tick, 1));
    scale.low = low - margin;
    scale.high = high + margin;
    return scale;
}

std::vector<Price> RoundPrices(const PriceScale& scale, int distance) {
    std::vector<Price> prices;
    const Price range = scale.high - scale.low;
    if (range <= 0 || distance <= 0) return prices;
    const Price step = RoundStep(std::max<Price>(range * distance / scale.height, 1));
    Price price = (scale.low + step - 1) / step * step;
    for (; price <= scale.high; price += step) prices.push_back(price);
    return prices;
}

std::string AxisText(papercore::Instant time, papercore::Instant before) {
    const std::chrono::sys_days day = DayOf(time);
    char text[32];
    if (before != 0 && DayOf(before) != day) {
        const std::chrono::year_month_day date(day);
        text::FormatText(text, sizeof text, "%02u-%02u", static_cast<unsigned>(date.month()),
                         static_cast<unsigned>(date.day()));
        return text;
    }
    const auto minutes = std::chrono::duration_cast<std::chrono::minutes>(
                             std::chrono::milliseconds(time) - day.time_since_epoch())
                             .count();
    text::FormatText(text, sizeof text, "%02d:%02d", static_cast<int>(minutes / 60),
                     static_cast<int>(minutes % 60));
    return text;
}

}  // namespace views
