#pragma once

// Character codes of the records, and the enumerations that the core passes.

inline constexpr char kDirectionBuy = '0';   ///< of a position: long
inline constexpr char kDirectionSell = '1';  ///< of a position: short

inline constexpr char kOffsetOpen = '0';
inline constexpr char kOffsetClose = '1';
inline constexpr char kOffsetCloseToday = '2';
inline constexpr char kOffsetNet = '\0';  ///< in a request: the core opens or closes by position

inline constexpr char kHedgeSpeculation = '1';
inline constexpr char kHedgeArbitrage = '2';
inline constexpr char kHedgeHedge = '3';

inline constexpr char kOrderTypeLimit = '0';
inline constexpr char kOrderTypeMarket = '1';

// CZebPosition::cDateType and PositionGroup::cDateType: numbers, not digits.
inline constexpr char kDateYesterday = 1;
inline constexpr char kDateToday = 2;

/// Which connection a status is about; the front end heeds the trading connection only.
enum ZEB_CONNECTION : int { ZEB_CONNECTION_TRADE = 0 };

/// Negative: a loss. Anything else is of no interest.
enum ZEB_CONNECTION_STATUS : int {
    ZEB_CONNECTION_DROPPED = -2,  ///< the server dropped the client
    ZEB_CONNECTION_BROKEN = -1,
};

/// Passed to operations that the front end leaves empty.
enum ZEB_EXCHANGE_STATUS : int {};
enum ChasePrice_STATUS : int {};

/// How far a login has come; each value has a text (LoginPromptText).
enum ZEB_LOGIN_PROMPT : int {
    ZEB_LOGIN_PROMPT_NONE = 0,
    ZEB_LOGIN_PROMPT_ERROR = 1,
    ZEB_LOGIN_PROMPT_CONNECTING = 2,
    ZEB_LOGIN_PROMPT_LOGGING_IN = 3,
    ZEB_LOGIN_PROMPT_NOTICE = 4,
    ZEB_LOGIN_PROMPT_SETTLEMENT = 5,
    ZEB_LOGIN_PROMPT_CONFIRM_SETTLEMENT = 6,
    ZEB_LOGIN_PROMPT_CONTRACTS = 7,
    ZEB_LOGIN_PROMPT_TRADING_CODES = 8,
    ZEB_LOGIN_PROMPT_ORDERS = 9,
    ZEB_LOGIN_PROMPT_TRADES = 10,
    ZEB_LOGIN_PROMPT_POSITIONS = 11,
    ZEB_LOGIN_PROMPT_POSITION_DETAILS = 12,
    ZEB_LOGIN_PROMPT_FUNDS = 13,
    ZEB_LOGIN_PROMPT_TRADE_PARAMETERS = 14,
    ZEB_LOGIN_PROMPT_MARGIN_RATES = 15,
    ZEB_LOGIN_PROMPT_FEES_AND_BANKS = 16,
    ZEB_LOGIN_PROMPT_BANK_ACCOUNTS = 17,
    ZEB_LOGIN_PROMPT_MARGIN_MONITORING = 18,
    ZEB_LOGIN_PROMPT_SESSION = 21,  ///< the session starts here
    ZEB_LOGIN_PROMPT_DONE = 22,     ///< the initial load is finished
};

/// Bytes of a buffer that holds any prompt's text.
inline constexpr int kLoginPromptTextSize = 32;

/// The text that goes with a prompt, GBK; empty for values without one.
const char* LoginPromptText(ZEB_LOGIN_PROMPT prompt);
