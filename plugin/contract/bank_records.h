#pragma once

#include "plugin/contract/record_layout.h"

// Banks and transfers between them and the gold account.

struct PACKED_RECORD CZebBank {
    char szBankId[16];
    char szBankAccount[32];
    char szBankName[48];
    char szBankField[64];
    char reserved160[560];
};
ASSERT_FIELD(CZebBank, szBankId, 0);
ASSERT_FIELD(CZebBank, szBankAccount, 16);
ASSERT_FIELD(CZebBank, szBankName, 48);
ASSERT_FIELD(CZebBank, szBankField, 96);
ASSERT_RECORD(CZebBank, 720);

/// A question for a bank balance, or a transfer. The three bank fields come from a CZebBank.
struct PACKED_RECORD CBankRequest {
    std::int32_t nType;  ///< 0 balance, 1 bank to gold, 2 gold to bank
    char szBankId[16];
    char szBankAccount[32];
    char szBankField[64];
    char szFundPassword[32];
    char szBankPassword[32];
    char szAmount[32];
    char reserved212[32];
};
ASSERT_FIELD(CBankRequest, nType, 0);
ASSERT_FIELD(CBankRequest, szBankId, 4);
ASSERT_FIELD(CBankRequest, szBankAccount, 20);
ASSERT_FIELD(CBankRequest, szBankField, 52);
ASSERT_FIELD(CBankRequest, szFundPassword, 116);
ASSERT_FIELD(CBankRequest, szBankPassword, 148);
ASSERT_FIELD(CBankRequest, szAmount, 180);
ASSERT_RECORD(CBankRequest, 244);

/// Answer to a balance question or a transfer.
struct PACKED_RECORD CBankResult {
    std::int32_t nKind;  ///< 1 or 2: the direction that was done
    char reserved4[124];
    double dBalance;
    char reserved136[32];
};
ASSERT_FIELD(CBankResult, nKind, 0);
ASSERT_FIELD(CBankResult, dBalance, 128);
ASSERT_RECORD(CBankResult, 168);

/// One past transfer, all texts.
struct PACKED_RECORD CBankTransfer {
    char szSerialNo[32];
    char szDate[12];
    char szTime[12];
    char szAmount[16];
    char szBankName[64];
    char szSummary[24];
    char szStatus[160];
};
ASSERT_FIELD(CBankTransfer, szSerialNo, 0);
ASSERT_FIELD(CBankTransfer, szDate, 32);
ASSERT_FIELD(CBankTransfer, szTime, 44);
ASSERT_FIELD(CBankTransfer, szAmount, 56);
ASSERT_FIELD(CBankTransfer, szBankName, 72);
ASSERT_FIELD(CBankTransfer, szSummary, 136);
ASSERT_FIELD(CBankTransfer, szStatus, 160);
ASSERT_RECORD(CBankTransfer, 320);
