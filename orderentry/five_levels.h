#pragma once

#include "platform/types.h"
#include "plugin/contract/market_records.h"

/// What the five-level view shows of a quote, and where. No window.
namespace orderentry {

inline constexpr int kLevels = 5;
inline constexpr int kLevelTextSize = 32;

/// Colours of prices against the close of the day before, and of volumes.
inline constexpr COLORREF kLevelUp = 0x2020E8;
inline constexpr COLORREF kLevelDown = 0x209820;
inline constexpr COLORREF kLevelSame = 0x848484;
inline constexpr COLORREF kLevelBidVolume = 0x1717E9;
inline constexpr COLORREF kLevelAskVolume = 0xE91717;

struct LevelText {
    char price[kLevelTextSize] = "-";
    char volume[kLevelTextSize] = "-";
    COLORREF color = kLevelSame;
};

/// The first level is the best.
struct FiveLevels {
    LevelText asks[kLevels];
    LevelText bids[kLevels];
    char last[kLevelTextSize] = "";
    COLORREF last_color = kLevelSame;
    char change[kLevelTextSize] = "";  ///< percent against the close of the day before
    char upper_limit[kLevelTextSize] = "";
    char lower_limit[kLevelTextSize] = "";
};

/// Texts and colours of a quote. `digits` are the price's decimal places; values outside 0 to 8
/// count as 3. A change against a close of 0 prints as it comes.
FiveLevels LevelsOf(const JSDyn1& quote, int digits);

/// Numbers of the places that can be pointed at.
inline constexpr int kNoPlace = -1;
inline constexpr int kLastPlace = 0;
inline constexpr int kFirstBidPlace = 1;
inline constexpr int kFirstAskPlace = 6;
inline constexpr int kPlaces = 11;

/// The price that a place shows; null where there is none to take over.
const char* PriceAt(const FiveLevels& levels, int place);

/// Top edges of the lines, from above.
struct LevelRows {
    int asks[kLevels];
    int bids[kLevels];
    int last;
    int change;
};
inline constexpr int kLevelLineHeight = 16;
LevelRows RowsOfLevels();

}  // namespace orderentry
