#pragma once

#include "plugin/contract/record_layout.h"

// Contracts, the host's symbols, and quotes.

struct PACKED_RECORD CZebContract {
    char szExchange[12];
    char szContract[32];
    char reserved44[32];
    std::int32_t nUnit;  ///< units in one lot
    char reserved80[16];
    std::int32_t nPriceDigits;
    char reserved100[4];
    double dPriceTick;
    char reserved112[8];
    char szMarket[8];  ///< "GT-S": spot, which knows neither opening nor closing
    char reserved128[28];
    char reserved156[196];  ///< the core's own, passed along byte for byte
    char reserved352[64];
};
ASSERT_FIELD(CZebContract, szExchange, 0);
ASSERT_FIELD(CZebContract, szContract, 12);
ASSERT_FIELD(CZebContract, nUnit, 76);
ASSERT_FIELD(CZebContract, nPriceDigits, 96);
ASSERT_FIELD(CZebContract, dPriceTick, 104);
ASSERT_FIELD(CZebContract, szMarket, 120);
ASSERT_FIELD(CZebContract, reserved156, 156);
ASSERT_RECORD(CZebContract, 416);

/// A contract as the host knows it. Its packed key is wMarket | wCode << 16.
struct PACKED_RECORD CHostSymbol {
    std::uint16_t wMarket;
    char szCode[34];  ///< empty: the host does not know the contract
    std::uint16_t wCode;
    char reserved38[72];
    std::int32_t nDigits;  ///< filled when a symbol is asked for by its key
    char reserved114[32];
};
ASSERT_FIELD(CHostSymbol, wMarket, 0);
ASSERT_FIELD(CHostSymbol, szCode, 2);
ASSERT_FIELD(CHostSymbol, wCode, 36);
ASSERT_FIELD(CHostSymbol, nDigits, 110);
ASSERT_RECORD(CHostSymbol, 146);

/// A quote with five levels on each side, the best first.
struct PACKED_RECORD JSDyn1 {
    char reserved0[24];
    double dPreClose;
    double dLast;
    char reserved40[12];
    float fUpperLimit;
    float fLowerLimit;
    double dBid[5];
    char reserved100[40];
    std::uint32_t nBidVolume[5];
    char reserved160[20];
    double dAsk[5];
    char reserved220[40];
    std::uint32_t nAskVolume[5];
    char reserved280[20];
    double dRefPrice;  ///< against which panel buttons are coloured
};
ASSERT_FIELD(JSDyn1, dPreClose, 24);
ASSERT_FIELD(JSDyn1, dLast, 32);
ASSERT_FIELD(JSDyn1, fUpperLimit, 52);
ASSERT_FIELD(JSDyn1, fLowerLimit, 56);
ASSERT_FIELD(JSDyn1, dBid, 60);
ASSERT_FIELD(JSDyn1, nBidVolume, 140);
ASSERT_FIELD(JSDyn1, dAsk, 180);
ASSERT_FIELD(JSDyn1, nAskVolume, 260);
ASSERT_FIELD(JSDyn1, dRefPrice, 300);
ASSERT_RECORD(JSDyn1, 308);
