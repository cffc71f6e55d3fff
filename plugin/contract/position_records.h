#pragma once

#include "plugin/contract/record_layout.h"

// Positions, the open lots that they consist of, and groups of lots.

struct PACKED_RECORD CZebPosition {
    char szExchange[12];
    char szContract[32];
    char cDirection;
    char cHedge;
    char cDateType;  ///< 1 yesterday's, 2 today's (numbers, not digits)
    char reserved47[1];
    std::int32_t nVolume;
    std::int32_t nFrozen;  ///< of the volume; the rest can be closed
    char reserved56[8];
    double dOpenPrice;
    double dHoldPrice;
    char reserved80[16];
    double dOpenProfit;  ///< 0: to be computed from the quote
    double dHoldProfit;  ///< 0: to be computed from the quote
    char reserved112[512];
    std::int32_t nSession;
    char reserved628[156];
};
ASSERT_FIELD(CZebPosition, szExchange, 0);
ASSERT_FIELD(CZebPosition, szContract, 12);
ASSERT_FIELD(CZebPosition, cDirection, 44);
ASSERT_FIELD(CZebPosition, cHedge, 45);
ASSERT_FIELD(CZebPosition, cDateType, 46);
ASSERT_FIELD(CZebPosition, nVolume, 48);
ASSERT_FIELD(CZebPosition, nFrozen, 52);
ASSERT_FIELD(CZebPosition, dOpenPrice, 64);
ASSERT_FIELD(CZebPosition, dHoldPrice, 72);
ASSERT_FIELD(CZebPosition, dOpenProfit, 96);
ASSERT_FIELD(CZebPosition, dHoldProfit, 104);
ASSERT_FIELD(CZebPosition, nSession, 624);
ASSERT_RECORD(CZebPosition, 784);

/// One open lot, and one leg of a group, with the stop strategy that stands on it.
struct PACKED_RECORD PositionGroup {
    std::int32_t nGroupID;
    std::uint8_t nOrderKind;  ///< 1 plain, 4 combination, 7 program, 8 arbitrage
    char reserved5[110];
    char szExchange[32];
    char szContract[32];
    char cDirection;
    char cHedge;
    char cDateType;  ///< 2: opened today
    std::int32_t nVolume;
    std::int32_t nFrozen;
    double dOpenPrice;
    std::uint8_t bPercent;  ///< the stop distances are percentages
    char reserved199[64];
    double dTakeProfit;
    double dPullback;
    double dStopLoss;
    double dFloat;
    double dLongTakeProfit;
    double dLongStopLoss;
    double dShortTakeProfit;
    double dShortStopLoss;
    char reserved327[81];
    double dFloatBase;
    char reserved416[54];
    std::uint8_t nSession;
    char reserved471[33];
    std::int32_t nPlannedVolume;  ///< what the leg should hold
    char reserved508[104];
};
ASSERT_FIELD(PositionGroup, nGroupID, 0);
ASSERT_FIELD(PositionGroup, nOrderKind, 4);
ASSERT_FIELD(PositionGroup, szExchange, 115);
ASSERT_FIELD(PositionGroup, szContract, 147);
ASSERT_FIELD(PositionGroup, cDirection, 179);
ASSERT_FIELD(PositionGroup, cHedge, 180);
ASSERT_FIELD(PositionGroup, cDateType, 181);
ASSERT_FIELD(PositionGroup, nVolume, 182);
ASSERT_FIELD(PositionGroup, nFrozen, 186);
ASSERT_FIELD(PositionGroup, dOpenPrice, 190);
ASSERT_FIELD(PositionGroup, bPercent, 198);
ASSERT_FIELD(PositionGroup, dTakeProfit, 263);
ASSERT_FIELD(PositionGroup, dPullback, 271);
ASSERT_FIELD(PositionGroup, dStopLoss, 279);
ASSERT_FIELD(PositionGroup, dFloat, 287);
ASSERT_FIELD(PositionGroup, dLongTakeProfit, 295);
ASSERT_FIELD(PositionGroup, dLongStopLoss, 303);
ASSERT_FIELD(PositionGroup, dShortTakeProfit, 311);
ASSERT_FIELD(PositionGroup, dShortStopLoss, 319);
ASSERT_FIELD(PositionGroup, dFloatBase, 408);
ASSERT_FIELD(PositionGroup, nSession, 470);
ASSERT_FIELD(PositionGroup, nPlannedVolume, 504);
ASSERT_RECORD(PositionGroup, 612);

/// A group of lots under one key.
struct PACKED_RECORD CGroupHead {
    char reserved0[4];
    char szGroupKey[145];
    double dProfitRatio;  ///< fraction, not percent
    char reserved157[8];
    double dStopRatio;  ///< fraction, not percent
    char reserved173[174];
    std::int32_t nLegCount;  ///< how many legs the group should have
};
ASSERT_FIELD(CGroupHead, szGroupKey, 4);
ASSERT_FIELD(CGroupHead, dProfitRatio, 149);
ASSERT_FIELD(CGroupHead, dStopRatio, 165);
ASSERT_FIELD(CGroupHead, nLegCount, 347);
ASSERT_RECORD(CGroupHead, 351);
