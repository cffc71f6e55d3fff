#pragma once

#include "plugin/contract/record_layout.h"

// Stops set before a position exists, and the account's trading parameters.

/// A stop strategy of a contract or a lot. A value of 0 switches its rule off; distances are whole
/// ticks, the absolute values prices.
struct PACKED_RECORD CPresetStop {
    char cReserved;
    char szExchange[32];
    char szContract[32];
    double dProfitTicks;
    double dProfitPullback;
    double dStopTicks;
    double dStopFloat;
    double dLongProfit;
    double dLongStop;
    double dShortProfit;
    double dShortStop;
    char reserved129[80];
};
ASSERT_FIELD(CPresetStop, cReserved, 0);
ASSERT_FIELD(CPresetStop, szExchange, 1);
ASSERT_FIELD(CPresetStop, szContract, 33);
ASSERT_FIELD(CPresetStop, dProfitTicks, 65);
ASSERT_FIELD(CPresetStop, dProfitPullback, 73);
ASSERT_FIELD(CPresetStop, dStopTicks, 81);
ASSERT_FIELD(CPresetStop, dStopFloat, 89);
ASSERT_FIELD(CPresetStop, dLongProfit, 97);
ASSERT_FIELD(CPresetStop, dLongStop, 105);
ASSERT_FIELD(CPresetStop, dShortProfit, 113);
ASSERT_FIELD(CPresetStop, dShortStop, 121);
ASSERT_RECORD(CPresetStop, 209);

/// What the user set up for trading. The core keeps it; the front end reads it and writes it back
/// whole.
struct PACKED_RECORD CTradeParam {
    std::int32_t bNoOrderConfirm;
    std::int32_t bNoCancelConfirm;
    char reserved8[4];
    std::int32_t bOverPrice;  ///< go over the price by nOverTicks
    std::int32_t nOverTicks;
    std::int32_t bResetPrice;  ///< after an order the default price type comes back
    char reserved24[25];
    std::uint8_t nDefaultPrice;    ///< row of the eight default prices
    std::uint8_t bResetDirection;  ///< after an order direction and offset go back to 0
    char reserved51[3];
    std::uint8_t nClosePriceType;  ///< of quick close orders
    std::int32_t nCloseOverTicks;
    char reserved59[4];
    std::uint8_t nPanelBuy[2];   ///< buy buttons of the panel, 0 to 9
    std::uint8_t nPanelSell[2];  ///< sell buttons of the panel, 0 to 9
    char reserved67[22];
    std::int32_t nStopTicks;  ///< quotes in a row until a stop fires
    std::uint8_t nStopTriggerPrice;
    std::int32_t nProfitTicks;  ///< quotes in a row until a profit is taken
    std::uint8_t nProfitTriggerPrice;
    std::uint8_t nStopOrderPrice;
    std::uint8_t nProfitOrderPrice;
    std::int32_t nProfitAdjust;  ///< ticks
    std::int32_t nStopAdjust;    ///< ticks
    std::int32_t bAutoChase;
    std::int32_t nValidity;  ///< 0 for the day, 1 for good
    char reserved117[187];
    std::int32_t bNoCloseConfirm;
    char reserved308[716];
};
ASSERT_FIELD(CTradeParam, bNoOrderConfirm, 0);
ASSERT_FIELD(CTradeParam, bNoCancelConfirm, 4);
ASSERT_FIELD(CTradeParam, bOverPrice, 12);
ASSERT_FIELD(CTradeParam, nOverTicks, 16);
ASSERT_FIELD(CTradeParam, bResetPrice, 20);
ASSERT_FIELD(CTradeParam, nDefaultPrice, 49);
ASSERT_FIELD(CTradeParam, bResetDirection, 50);
ASSERT_FIELD(CTradeParam, nClosePriceType, 54);
ASSERT_FIELD(CTradeParam, nCloseOverTicks, 55);
ASSERT_FIELD(CTradeParam, nPanelBuy, 63);
ASSERT_FIELD(CTradeParam, nPanelSell, 65);
ASSERT_FIELD(CTradeParam, nStopTicks, 89);
ASSERT_FIELD(CTradeParam, nStopTriggerPrice, 93);
ASSERT_FIELD(CTradeParam, nProfitTicks, 94);
ASSERT_FIELD(CTradeParam, nProfitTriggerPrice, 98);
ASSERT_FIELD(CTradeParam, nStopOrderPrice, 99);
ASSERT_FIELD(CTradeParam, nProfitOrderPrice, 100);
ASSERT_FIELD(CTradeParam, nProfitAdjust, 101);
ASSERT_FIELD(CTradeParam, nStopAdjust, 105);
ASSERT_FIELD(CTradeParam, bAutoChase, 109);
ASSERT_FIELD(CTradeParam, nValidity, 113);
ASSERT_FIELD(CTradeParam, bNoCloseConfirm, 304);
ASSERT_RECORD(CTradeParam, 1024);
