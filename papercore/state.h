#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "papercore/units.h"
#include "plugin/contract/parameter_records.h"

// Everything that is kept. It changes by facts only (facts.h), so the same facts give the same
// state. Texts are GBK, as the front end gives them.

namespace papercore {

/// Session of the orders that the core sends by itself (stops); their source says which rule.
inline constexpr int kCoreSession = -1;
inline constexpr int kSourceStopLoss = 101;
inline constexpr int kSourceTakeProfit = 102;

enum class OrderStatus : std::uint8_t { kWorking, kFilled, kCancelled, kRejected };

/// Part of a lot that a closing order holds frozen, the first to be closed first.
struct FrozenSlice {
    LotId lot = 0;
    std::int64_t volume = 0;
};

enum class OrderKind : std::uint8_t {
    kLimit,
    kMarket,             ///< takes what the opposite side shows, the rest is cancelled
    kBestFiveOrCancel,   ///< 'a'
    kBestFiveThenLimit,  ///< 'b'
    kFillAndKill,        ///< 'c'
    kFillOrKill,         ///< 'd'
    kOpponentBest,       ///< 'e': limit at the other side's best price
    kOwnBest,            ///< 'f': limit at the own side's best price
};

struct Order {
    OrderId id = 0;
    int session = 0;
    Day day = 0;
    Instant time = 0;
    std::string exchange;
    std::string contract;
    Side side = Side::kBuy;
    char offset = '0';  ///< as the request has it; a net order closes first, then opens
    char hedge = '1';
    OrderKind kind = OrderKind::kLimit;
    Price limit = 0;  ///< 0 while a market order has none
    std::int64_t volume = 0;
    std::int64_t filled = 0;
    OrderStatus status = OrderStatus::kWorking;
    std::string remark;  ///< reason of a rejection or a cancellation
    std::string note;    ///< where the order comes from
    int source = 0;
    int price_code = 6;
    LotId tied_lot = 0;                ///< closes this lot only
    std::int64_t opening = 0;          ///< what is left to open, of the remaining volume
    std::vector<FrozenSlice> closing;  ///< what is left to close
    Fen frozen_margin = 0;             ///< for what is left to open
    Fen frozen_fee = 0;                ///< for all that is left
    std::string request;               ///< all bytes of the request

    std::int64_t Remaining() const { return volume - filled; }
    bool IsWorking() const { return status == OrderStatus::kWorking; }
};

struct Trade {
    TradeId id = 0;
    OrderId order = 0;
    Day day = 0;
    Instant time = 0;
    std::string contract;
    Side side = Side::kBuy;
    char offset = '0';  ///< of this trade: opened or closed
    char hedge = '1';
    Price price = 0;
    std::int64_t volume = 0;
    Fen fee = 0;
    Fen realised = 0;  ///< against the open price
};

enum class StopRule : std::uint8_t {
    kRelativeProfit,
    kRelativeStop,
    kAbsoluteProfit,
    kAbsoluteStop,
};

/// The strategy that stands on a lot.
struct LotStop {
    CPresetStop record{};
    bool for_good = false;  ///< sleeps over the day's end until it is started again
    bool asleep = false;
    Price float_base = 0;    ///< best price so far
    bool triggered = false;  ///< sent its order; never again
};

/// What one fill opened.
struct Lot {
    LotId id = 0;
    std::string exchange;
    std::string contract;
    Side side = Side::kBuy;  ///< buy: long
    char hedge = '1';
    Day day = 0;  ///< opened on
    int session = 0;
    int unit = 0;             ///< price units in a lot, for as long as the lot lives
    std::int64_t volume = 0;  ///< still held
    std::int64_t frozen = 0;  ///< of it, by working closes
    Price open_price = 0;
    Price hold_price = 0;  ///< open price on the first day, then the last settlement
    Fen margin = 0;        ///< charged for what is still held
    bool has_stop = false;
    LotStop stop;
};

/// An account's money. Equity = deposits - withdrawals + realised + settled - fees - deferred
/// + holding profit of the open lots at the present prices.
struct Ledger {
    Fen deposits = 0;
    Fen withdrawals = 0;
    Fen realised = 0;  ///< of closes, against the hold price
    Fen settled = 0;   ///< marked to market at day ends, of lots still open then
    Fen fees = 0;
    Fen deferred = 0;  ///< paid; negative: received
    Fen fees_today = 0;

    Fen Cash() const { return deposits - withdrawals + realised + settled - fees - deferred; }
};

struct Login {
    std::string account;
    std::string salt;  ///< bytes
    std::string hash;  ///< scrypt of the password, bytes
};

struct State {
    Login login;  ///< empty account: nobody has logged in yet
    Ledger ledger;
    Day day = 0;  ///< current trading day
    int sessions = 0;
    OrderId last_order = 0;
    LotId last_lot = 0;
    TradeId last_trade = 0;
    std::map<OrderId, Order> orders;  ///< today's, and working ones
    std::vector<Trade> trades;        ///< today's
    std::vector<Trade> history;       ///< of earlier days
    std::map<LotId, Lot> lots;
    std::map<std::string, CPresetStop> presets;  ///< by exchange '|' contract
    std::map<std::string, Price> settlements;    ///< last one of each contract
    std::array<char, sizeof(CTradeParam)> trade_param{};
    bool trade_param_set = false;
};

}  // namespace papercore
