#pragma once

#include "plugin/contract/account_records.h"
#include "plugin/contract/record_layout.h"

// Orders, trades and the questions around them. The characters of direction, offset, hedge and
// order type stand in codes.h.

struct PACKED_RECORD CZebOrder {
    char reserved0[12];
    char szContract[32];
    char reserved44[24];
    char szRemark[64];
    char cDirection;
    char reserved133[20];
    char cOffset;
    char reserved154[20];
    char cHedge;
    char cStatus;
    char reserved176[4];
    char szTime[24];
    char szOrderNo[120];  ///< the number that is shown
    std::int32_t nSession;
    char szOrderRef[64];   ///< digits; with the session the key for cancelling
    std::int32_t nVolume;  ///< 0: filled and remaining make up the volume
    std::int32_t nFilled;
    std::int32_t nRemaining;
    char reserved404[20];
    double dPrice;  ///< below 0.001: a market order
    char reserved432[600];
};
ASSERT_FIELD(CZebOrder, szContract, 12);
ASSERT_FIELD(CZebOrder, szRemark, 68);
ASSERT_FIELD(CZebOrder, cDirection, 132);
ASSERT_FIELD(CZebOrder, cOffset, 153);
ASSERT_FIELD(CZebOrder, cHedge, 174);
ASSERT_FIELD(CZebOrder, cStatus, 175);
ASSERT_FIELD(CZebOrder, szTime, 180);
ASSERT_FIELD(CZebOrder, szOrderNo, 204);
ASSERT_FIELD(CZebOrder, nSession, 324);
ASSERT_FIELD(CZebOrder, szOrderRef, 328);
ASSERT_FIELD(CZebOrder, nVolume, 392);
ASSERT_FIELD(CZebOrder, nFilled, 396);
ASSERT_FIELD(CZebOrder, nRemaining, 400);
ASSERT_FIELD(CZebOrder, dPrice, 424);
ASSERT_RECORD(CZebOrder, 1032);

struct PACKED_RECORD CZebTrade {
    char reserved0[12];
    char szContract[32];
    char cDirection;
    char reserved45[20];
    char cOffset;
    char reserved66[20];
    char cHedge;
    char szTime[12];
    char szTradeId[64];  ///< the number in the status line
    char szTradeNo[69];  ///< the number in the list
    char szOrderNo[64];
    std::int32_t nVolume;
    char reserved300[4];
    std::int32_t nTradeDate;  ///< YYYYMMDD
    char reserved308[4];
    double dPrice;
    char reserved320[504];
};
ASSERT_FIELD(CZebTrade, szContract, 12);
ASSERT_FIELD(CZebTrade, cDirection, 44);
ASSERT_FIELD(CZebTrade, cOffset, 65);
ASSERT_FIELD(CZebTrade, cHedge, 86);
ASSERT_FIELD(CZebTrade, szTime, 87);
ASSERT_FIELD(CZebTrade, szTradeId, 99);
ASSERT_FIELD(CZebTrade, szTradeNo, 163);
ASSERT_FIELD(CZebTrade, szOrderNo, 232);
ASSERT_FIELD(CZebTrade, nVolume, 296);
ASSERT_FIELD(CZebTrade, nTradeDate, 304);
ASSERT_FIELD(CZebTrade, dPrice, 312);
ASSERT_RECORD(CZebTrade, 824);

struct PACKED_RECORD CInsertOrderRequest {
    char szExchange[12];
    char szContract[32];
    char reserved44[40];
    char szPrice[16];  ///< printed with the contract's decimal places
    char szNote[24];   ///< where the order comes from
    char cDirection;
    char cOffset;  ///< byte 0: the net position decides
    char cHedge;
    char cOrderType;
    char reserved128[4];
    std::int32_t nVolume;
    std::int32_t nSession;  ///< of the position that is closed
    char reserved140[940];
    CAccountInfo stAccount;
    std::int32_t nGroupID;  ///< the lot that is closed, else 0
    std::uint16_t wMarket;
    std::uint16_t wCode;
    char reserved1124[132];
};
ASSERT_FIELD(CInsertOrderRequest, szExchange, 0);
ASSERT_FIELD(CInsertOrderRequest, szContract, 12);
ASSERT_FIELD(CInsertOrderRequest, szPrice, 84);
ASSERT_FIELD(CInsertOrderRequest, szNote, 100);
ASSERT_FIELD(CInsertOrderRequest, cDirection, 124);
ASSERT_FIELD(CInsertOrderRequest, cOffset, 125);
ASSERT_FIELD(CInsertOrderRequest, cHedge, 126);
ASSERT_FIELD(CInsertOrderRequest, cOrderType, 127);
ASSERT_FIELD(CInsertOrderRequest, nVolume, 132);
ASSERT_FIELD(CInsertOrderRequest, nSession, 136);
ASSERT_FIELD(CInsertOrderRequest, stAccount, 1080);
ASSERT_FIELD(CInsertOrderRequest, nGroupID, 1116);
ASSERT_FIELD(CInsertOrderRequest, wMarket, 1120);
ASSERT_FIELD(CInsertOrderRequest, wCode, 1122);
ASSERT_RECORD(CInsertOrderRequest, 1256);

/// How many lots can be traded at a price?
struct PACKED_RECORD CQueryMaxVolume {
    char szExchange[12];
    char szContract[32];
    char reserved44[40];
    char cDirection;
    char cOffset;
    char cFlag1;  ///< always '1'
    char cFlag2;  ///< always '0'
    double dPrice;
    char reserved96[88];
};
ASSERT_FIELD(CQueryMaxVolume, szExchange, 0);
ASSERT_FIELD(CQueryMaxVolume, szContract, 12);
ASSERT_FIELD(CQueryMaxVolume, cDirection, 84);
ASSERT_FIELD(CQueryMaxVolume, cOffset, 85);
ASSERT_FIELD(CQueryMaxVolume, cFlag1, 86);
ASSERT_FIELD(CQueryMaxVolume, cFlag2, 87);
ASSERT_FIELD(CQueryMaxVolume, dPrice, 88);
ASSERT_RECORD(CQueryMaxVolume, 184);

struct PACKED_RECORD CQueryMaxVolumeResult {
    char szExchange[12];
    char szContract[32];
    char reserved44[40];
    char cDirection;
    char cOffset;
    char reserved86[98];
    std::int32_t nMaxVolume;  ///< negative: none
    char reserved188[20];
};
ASSERT_FIELD(CQueryMaxVolumeResult, szExchange, 0);
ASSERT_FIELD(CQueryMaxVolumeResult, szContract, 12);
ASSERT_FIELD(CQueryMaxVolumeResult, cDirection, 84);
ASSERT_FIELD(CQueryMaxVolumeResult, cOffset, 85);
ASSERT_FIELD(CQueryMaxVolumeResult, nMaxVolume, 184);
ASSERT_RECORD(CQueryMaxVolumeResult, 208);
