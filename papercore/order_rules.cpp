#include "papercore/order_rules.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "papercore/funds.h"
#include "papercore/texts.h"

namespace papercore {
namespace {

std::string Count(std::int64_t volume) { return std::to_string(volume); }

std::optional<OrderKind> KindOf(char type) {
    switch (type) {
        case '\0':
        case '0':
        case '1': return OrderKind::kLimit;
        case 'a': return OrderKind::kBestFiveOrCancel;
        case 'b': return OrderKind::kBestFiveThenLimit;
        case 'c': return OrderKind::kFillAndKill;
        case 'd': return OrderKind::kFillOrKill;
        case 'e': return OrderKind::kOpponentBest;
        case 'f': return OrderKind::kOwnBest;
        default: return std::nullopt;
    }
}

/// Price of one of the words; none for a text that isn't one. "市价" has the price 0.
std::optional<Price> WordPrice(std::string_view word, const Quote& quote,
                               const ContractTerms& terms, Side side) {
    const PriceLimits limits = LimitsOf(terms, quote);
    const Level& own = side == Side::kBuy ? quote.bid[0] : quote.ask[0];
    const Level& opponent = side == Side::kBuy ? quote.ask[0] : quote.bid[0];
    if (word == "对手价") return opponent.price;
    if (word == "挂单价") return own.price;
    if (word == "涨停价") return limits.upper;
    if (word == "跌停价") return limits.lower;
    if (word == "市价") return 0;
    if (word == "最新价") return quote.last;
    if (word == "挂单价超一个价位") {
        if (own.price <= 0) return 0;
        return side == Side::kBuy ? own.price + terms.tick : own.price - terms.tick;
    }
    return std::nullopt;
}

std::string CheckLimit(const ContractTerms& terms, const Quote& quote, Price limit) {
    const auto shown = [&terms](Price price) { return PriceText(price, terms.digits); };
    if (terms.tick > 0 && limit % terms.tick != 0) {
        return "委托价格" + shown(limit) + "不是最小变动价位" + shown(terms.tick) + "的整数倍";
    }
    const PriceLimits limits = LimitsOf(terms, quote);
    if (limits.upper > 0 && limit > limits.upper) {
        return "委托价格" + shown(limit) + "高于涨停价" + shown(limits.upper);
    }
    if (limits.lower > 0 && limit < limits.lower) {
        return "委托价格" + shown(limit) + "低于跌停价" + shown(limits.lower);
    }
    return {};
}

/// Orders at one side's best price rest there, never beyond the limit that came with them.
std::string TakeBestPrice(const Quote& quote, Order& order) {
    const bool opponent = order.kind == OrderKind::kOpponentBest;
    const bool bids = (order.side == Side::kBuy) != opponent;
    const Price best = bids ? quote.bid[0].price : quote.ask[0].price;
    if (best <= 0) return opponent ? "对方最优价格没有数据" : "本方最优价格没有数据";
    if (order.limit <= 0) {
        order.limit = best;
    } else {
        order.limit =
            order.side == Side::kBuy ? std::min(order.limit, best) : std::max(order.limit, best);
    }
    return {};
}

/// The number or the word of a request; 0 for a market order.
std::string ReadLimit(const OrderRequest& request, const Quote& quote, const ContractTerms& terms,
                      Side side, Price& limit) {
    const std::optional<Price> word = WordPrice(request.price, quote, terms, side);
    const bool market = request.price_code == kMarketPriceCode || request.price == "市价";
    if (word) {
        limit = *word;
        if (limit <= 0 && request.price != "市价") return request.price + "没有数据";
    } else if (!ReadPrice(request.price, limit)) {
        return "委托价格无法识别：" + request.price;
    }
    if (limit > 0) return {};
    limit = 0;
    return market ? std::string() : "委托价格必须大于0：" + request.price;
}

bool Closes(const Lot& lot, const std::string& contract, Side side) {
    return lot.contract == contract && lot.side != side && lot.volume > lot.frozen;
}

std::string TakeLot(const State& state, const OrderRequest& request, Use use, Order& order) {
    const auto found = state.lots.find(request.lot);
    const std::string name = "持仓明细" + std::to_string(request.lot);
    if (found == state.lots.end()) return name + "不存在";
    const Lot& lot = found->second;
    if (lot.contract != order.contract || lot.side == order.side) {
        return name + "的合约或方向与委托不符";
    }
    if (use == Use::kCloseToday && lot.day != state.day) return name + "不是今日开仓";
    const std::int64_t closable = lot.volume - lot.frozen;
    if (order.volume > closable) {
        return name + "可平手数不足：需要" + Count(order.volume) + "，可平" + Count(closable);
    }
    order.tied_lot = lot.id;
    order.closing.push_back({lot.id, order.volume});
    return {};
}

void TakeOldest(const State& state, Use use, Order& order) {
    std::int64_t left = order.volume;
    for (const auto& [id, lot] : state.lots) {
        if (left == 0) break;
        if (!Closes(lot, order.contract, order.side)) continue;
        if (use == Use::kCloseToday && lot.day != state.day) continue;
        const std::int64_t taken = std::min(left, lot.volume - lot.frozen);
        order.closing.push_back({id, taken});
        left -= taken;
    }
    order.opening = left;
}

}  // namespace

std::string CheckRequest(const OrderRequest& request, const ContractTerms& terms) {
    if (!request.exchange.empty() && request.exchange != terms.exchange) {
        return "合约" + request.contract + "不属于交易所" + request.exchange;
    }
    if (request.direction != '0' && request.direction != '1') return "买卖方向无法识别";
    const bool known = request.offset == 0 || (request.offset >= '0' && request.offset <= '2');
    if (!known) return "开平标志无法识别";
    if (!KindOf(request.order_type)) return "委托方式无法识别";
    const bool unbounded = terms.largest_order <= 0;
    if (request.volume < std::max<std::int64_t>(terms.smallest_order, 1) ||
        (!unbounded && request.volume > terms.largest_order)) {
        return "委托手数" + Count(request.volume) + "超出范围：" + Count(terms.smallest_order) +
               "到" + Count(terms.largest_order);
    }
    return {};
}

std::string CheckMarket(const Quote* quote, Day today) {
    if (!quote) return "合约没有行情，不能委托";
    const bool of_today = quote->trading_day == 0 || quote->trading_day == today;
    if (!of_today || quote->phase == MarketPhase::kClosed) return "当前不是交易时间，不能委托";
    return {};
}

std::string ResolvePrice(const OrderRequest& request, const Quote& quote,
                         const ContractTerms& terms, Order& order) {
    order.kind = *KindOf(request.order_type);
    std::string reason = ReadLimit(request, quote, terms, order.side, order.limit);
    if (!reason.empty()) return reason;
    if (order.kind == OrderKind::kLimit && order.limit == 0) order.kind = OrderKind::kMarket;
    if (order.kind == OrderKind::kOpponentBest || order.kind == OrderKind::kOwnBest) {
        reason = TakeBestPrice(quote, order);
        if (!reason.empty()) return reason;
    }
    if (quote.phase == MarketPhase::kAuction && order.kind != OrderKind::kLimit) {
        return "集合竞价时段只接受限价委托";
    }
    if (order.limit > 0) return CheckLimit(terms, quote, order.limit);
    if (FreezePrice(quote, order.side, 0) <= 0) return "对手方没有报价，市价委托不能成交";
    return {};
}

Use UseOf(const ContractTerms& terms, Side side, char offset, int source) {
    if (terms.IsSpot()) return side == Side::kBuy ? Use::kOpen : Use::kClose;
    if (offset == 0 || source == kSourceNet) return Use::kNet;
    if (offset == '0') return Use::kOpen;
    return offset == '2' ? Use::kCloseToday : Use::kClose;
}

std::int64_t Closable(const State& state, const std::string& contract, Side side, Use use) {
    std::int64_t closable = 0;
    for (const auto& [id, lot] : state.lots) {
        if (!Closes(lot, contract, side)) continue;
        if (use == Use::kCloseToday && lot.day != state.day) continue;
        closable += lot.volume - lot.frozen;
    }
    return closable;
}

std::string Allocate(const State& state, const ContractTerms& terms, const OrderRequest& request,
                     Order& order) {
    const Use use = UseOf(terms, order.side, request.offset, request.source);
    if (use == Use::kOpen) {
        order.opening = order.volume;
        return {};
    }
    if (use != Use::kNet && request.lot != 0) return TakeLot(state, request, use, order);
    TakeOldest(state, use, order);
    if (use == Use::kNet || order.opening == 0) return {};
    const std::int64_t closable = order.volume - order.opening;
    const std::string what = terms.IsSpot() ? "可卖" : use == Use::kCloseToday ? "可平今" : "可平";
    return what + "手数不足：需要" + Count(order.volume) + "，" + what + Count(closable);
}

}  // namespace papercore
