#pragma once

#include "plugin/contract/record_layout.h"

// Errors, accounts, funds and login.

/// Outcome of a request. A code of 0 is success, whatever the text holds.
struct PACKED_RECORD CZebError {
    std::int32_t nCode;
    char szText[1024];
};
ASSERT_FIELD(CZebError, nCode, 0);
ASSERT_FIELD(CZebError, szText, 4);
ASSERT_RECORD(CZebError, 1028);

struct PACKED_RECORD CAccountInfo {
    char reserved0[4];
    char szAccount[32];
};
ASSERT_FIELD(CAccountInfo, szAccount, 4);
ASSERT_RECORD(CAccountInfo, 36);

/// Funds of an account. All figures are texts, to be read with `atof`.
struct PACKED_RECORD CZebAccountSummary {
    char Balance[160];
    char Commission[64];
    char CurrMargin[96];
    char FrozenMargin[32];
    char Available[396];
    char Margin1[32];
    char Margin3[32];
    char Margin2[544];
    char szExtra[65540];  ///< when not empty, passed on as a reply of function 6012
};
ASSERT_FIELD(CZebAccountSummary, Balance, 0);
ASSERT_FIELD(CZebAccountSummary, Commission, 160);
ASSERT_FIELD(CZebAccountSummary, CurrMargin, 224);
ASSERT_FIELD(CZebAccountSummary, FrozenMargin, 320);
ASSERT_FIELD(CZebAccountSummary, Available, 352);
ASSERT_FIELD(CZebAccountSummary, Margin1, 748);
ASSERT_FIELD(CZebAccountSummary, Margin3, 780);
ASSERT_FIELD(CZebAccountSummary, Margin2, 812);
ASSERT_FIELD(CZebAccountSummary, szExtra, 1356);
ASSERT_RECORD(CZebAccountSummary, 66896);

struct PACKED_RECORD CLoginResult {
    char szCustomerName[128];  ///< empty: the account stands for it
    char szAccountStatus[32];
    char szLastLoginAddress[256];
    char szLastLoginMode[16];
    char szServerVersion[128];
    char szBrokerName[64];
    std::int32_t nLastLoginDate;  ///< YYYYMMDD
    std::int32_t nLastLoginTime;  ///< HHMMSS
    char reserved632[956];
    char szExtraFields[65540];  ///< separated by '|'; field 34 '1' asks for a message verification
};
ASSERT_FIELD(CLoginResult, szCustomerName, 0);
ASSERT_FIELD(CLoginResult, szAccountStatus, 128);
ASSERT_FIELD(CLoginResult, szLastLoginAddress, 160);
ASSERT_FIELD(CLoginResult, szLastLoginMode, 416);
ASSERT_FIELD(CLoginResult, szServerVersion, 432);
ASSERT_FIELD(CLoginResult, szBrokerName, 560);
ASSERT_FIELD(CLoginResult, nLastLoginDate, 624);
ASSERT_FIELD(CLoginResult, nLastLoginTime, 628);
ASSERT_FIELD(CLoginResult, szExtraFields, 1588);
ASSERT_RECORD(CLoginResult, 67128);

/// What ChangePassword takes.
struct PACKED_RECORD CChangePasswordRequest {
    std::int32_t nKind;  ///< always 0
    char szOldPassword[32];
    char szNewPassword[32];
};
ASSERT_FIELD(CChangePasswordRequest, nKind, 0);
ASSERT_FIELD(CChangePasswordRequest, szOldPassword, 4);
ASSERT_FIELD(CChangePasswordRequest, szNewPassword, 36);
ASSERT_RECORD(CChangePasswordRequest, 68);
