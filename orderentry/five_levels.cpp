#include "orderentry/five_levels.h"

#include <cstdio>
#include <cstring>

namespace orderentry {

namespace {

constexpr double kNoPrice = 1e-5;

COLORREF ColorOf(double price, double base) {
    if (price > base) return kLevelUp;
    return price < base ? kLevelDown : kLevelSame;
}

void FormatPrice(char (&text)[kLevelTextSize], double price, int digits) {
    std::snprintf(text, sizeof text, "%.*lf", digits, price);
}

LevelText LevelOf(double price, std::uint32_t volume, double base, int digits) {
    LevelText level;
    if (price > kNoPrice) FormatPrice(level.price, price, digits);
    if (volume != 0) std::snprintf(level.volume, sizeof level.volume, "%u", volume);
    level.color = ColorOf(price, base);
    return level;
}

}  // namespace

FiveLevels LevelsOf(const JSDyn1& quote, int digits) {
    constexpr int kUsualDigits = 3;
    constexpr int kMostDigits = 8;
    if (digits < 0 || digits > kMostDigits) digits = kUsualDigits;
    const double base = quote.dPreClose;
    FiveLevels levels;
    for (int i = 0; i < kLevels; ++i) {
        levels.asks[i] = LevelOf(quote.dAsk[i], quote.nAskVolume[i], base, digits);
        levels.bids[i] = LevelOf(quote.dBid[i], quote.nBidVolume[i], base, digits);
    }
    FormatPrice(levels.upper_limit, static_cast<double>(quote.fUpperLimit), digits);
    FormatPrice(levels.lower_limit, static_cast<double>(quote.fLowerLimit), digits);
    std::snprintf(levels.change, sizeof levels.change, "%.02lf%%",
                  (quote.dLast - base) / base * 100);
    FormatPrice(levels.last, quote.dLast, digits);
    levels.last_color = ColorOf(quote.dLast, base);
    return levels;
}

const char* PriceAt(const FiveLevels& levels, int place) {
    if (place < 0 || place >= kPlaces) return nullptr;
    const char* const text = place >= kFirstAskPlace   ? levels.asks[place - kFirstAskPlace].price
                             : place >= kFirstBidPlace ? levels.bids[place - kFirstBidPlace].price
                                                       : levels.last;
    return *text == '\0' || std::strcmp(text, "-") == 0 ? nullptr : text;
}

LevelRows RowsOfLevels() {
    constexpr int kFirst = 6;
    constexpr int kGap = 5;
    constexpr int kSummaryGap = 4;
    constexpr int kSummaryPitch = 17;
    LevelRows rows{};
    int y = kFirst;
    for (int i = kLevels - 1; i >= 0; --i, y += kLevelLineHeight) rows.asks[i] = y;
    y += kGap;
    for (int i = 0; i < kLevels; ++i, y += kLevelLineHeight) rows.bids[i] = y;
    rows.last = y + kSummaryGap;
    rows.change = rows.last + kSummaryPitch;
    return rows;
}

}  // namespace orderentry
