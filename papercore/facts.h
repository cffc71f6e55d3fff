#pragma once

#include <string>
#include <variant>
#include <vector>

#include "papercore/state.h"

// What happened. A fact says all that is needed to repeat it, so that applying it asks nothing and
// refuses nothing that a working core wrote.

namespace papercore {

struct AccountCreated {
    Login login;
    Fen starting_funds = 0;
};
struct PasswordChanged {
    std::string salt;
    std::string hash;
};
struct SessionOpened {
    int session = 0;
    Instant time = 0;
};
struct MoneyMoved {
    Fen amount = 0;  ///< negative: withdrawn
    std::string note;
};
struct DayBegun {
    Day day = 0;
};
/// A new order, with what it freezes.
struct OrderAccepted {
    Order order;
};
struct OrderEnded {
    OrderId order = 0;
    OrderStatus status = OrderStatus::kCancelled;
    std::string remark;
    Instant time = 0;
};
/// The rest of an order goes on as a limit order: of a market order, or of a stop's order that
/// follows the market.
struct OrderBecameLimit {
    OrderId order = 0;
    Price limit = 0;
    Fen frozen_margin = 0;  ///< afterwards
    Fen frozen_fee = 0;     ///< afterwards
};
/// One fill: it closes slices of lots, opens at most one lot, or both (net position: two trades).
struct OrderFilled {
    struct Closed {
        LotId lot = 0;
        std::int64_t volume = 0;
        Fen realised = 0;  ///< against the hold price
        Fen margin_released = 0;
    };
    std::vector<Trade> trades;
    std::vector<Closed> closed;
    Lot opened;  ///< id 0: nothing was opened
    OrderId order = 0;
    std::int64_t volume = 0;
    Fen fee = 0;
    Fen frozen_margin = 0;  ///< of the order, afterwards
    Fen frozen_fee = 0;     ///< of the order, afterwards
};
struct PresetSet {
    std::string key;
    CPresetStop record{};
};
struct LotStopSet {
    LotId lot = 0;
    bool active = false;  ///< false: taken off
    LotStop stop;
};
struct StopTriggered {
    LotId lot = 0;
    StopRule rule = StopRule::kRelativeStop;
    Price watched = 0;
    Instant time = 0;
};
struct FloatBaseMoved {
    LotId lot = 0;
    Price base = 0;
};
struct StopsWoken {
    std::vector<LotId> lots;
};
struct TradeParamSet {
    std::array<char, sizeof(CTradeParam)> bytes{};
};
/// The day's end after its orders were cancelled: money of the lots, their new hold prices and
/// margins, strategies that ended or fell asleep.
struct DaySettled {
    struct Marked {
        LotId lot = 0;
        Price settlement = 0;
        Fen profit = 0;    ///< against the former hold price
        Fen deferred = 0;  ///< paid; negative: received
        Fen margin = 0;    ///< from now on
    };
    Day day = 0;
    Day next_day = 0;
    std::map<std::string, Price> settlements;
    std::vector<Marked> lots;
    std::vector<LotId> stops_ended;
    std::vector<LotId> stops_asleep;
};

using Fact =
    std::variant<AccountCreated, PasswordChanged, SessionOpened, MoneyMoved, DayBegun,
                 OrderAccepted, OrderEnded, OrderBecameLimit, OrderFilled, PresetSet, LotStopSet,
                 StopTriggered, FloatBaseMoved, StopsWoken, TradeParamSet, DaySettled>;

/// Repeats a fact. False, and the state as it was, for one that can't follow on this state (an
/// unknown order or lot, more volume than there is): the store is damaged then.
bool Apply(State& state, const Fact& fact);

}  // namespace papercore
