#include "lists/position_profit_rules.h"

#include <algorithm>
#include <string>

#include "orderentry/contract_rules.h"
#include "orderentry/number_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/codes.h"

namespace lists {

namespace {

/// Money and prices closer to 0 than this count as missing.
constexpr double kNothing = 0.0001;

bool IsSomething(double value) { return value > kNothing || value < -kNothing; }

/// Where a position stands against one of its prices.
struct Stake {
    std::string contract;
    char direction;
    double from_price;
    int volume;
};

RowProfit ProfitNow(const Stake& stake, int unit) {
    JSDyn1 quote{};
    const bool known = GetQuoteByName(&quote, stake.contract.c_str());
    return ProfitAtQuote(stake.direction, stake.from_price, stake.volume, unit,
                         known ? &quote : nullptr);
}

RowProfit TotalProfit(const CZebPosition& position, double core_profit, double from_price,
                      int unit) {
    if (IsSomething(core_profit)) return {.value = core_profit};
    return ProfitNow({.contract = std::string(text::FieldText(position.szContract)),
                      .direction = position.cDirection,
                      .from_price = from_price,
                      .volume = position.nVolume},
                     unit);
}

}  // namespace

double ValuationPrice(const JSDyn1& quote) {
    if (quote.dLast > kNothing) return quote.dLast;
    return quote.dPreClose > kNothing ? quote.dPreClose : 0;
}

RowProfit ProfitAtQuote(char direction, double from_price, int volume, int unit,
                        const JSDyn1* quote) {
    if (quote == nullptr) return {.kind = RowProfit::Kind::kNoSymbol};
    const double price = ValuationPrice(*quote);
    if (!(price > kNothing)) return {.kind = RowProfit::Kind::kNoPrice};
    const double gain = direction == kDirectionBuy ? price - from_price : from_price - price;
    return {.value = gain * unit * volume};
}

RowProfit OpenProfitOf(const CZebPosition& position, int unit) {
    return TotalProfit(position, position.dOpenProfit, position.dOpenPrice, unit);
}

RowProfit HoldProfitOf(const CZebPosition& position, int unit) {
    return TotalProfit(position, position.dHoldProfit, position.dHoldPrice, unit);
}

RowProfit ProfitOfLot(const PositionGroup& lot, int unit) {
    return ProfitNow({.contract = std::string(text::FieldText(lot.szContract)),
                      .direction = lot.cDirection,
                      .from_price = lot.dOpenPrice,
                      .volume = lot.nVolume},
                     unit);
}

void AddProfit(ProfitSums& sums, double open, double hold) {
    sums.open += open;
    sums.hold += hold;
    if (hold < -kNothing) sums.hold_loss += hold;
}

double AvailableAfterLoss(double available, double hold_profit) {
    return available + std::min(hold_profit, 0.0);
}

int AvailableLots(const CZebPosition& position) {
    return Saturated(static_cast<long long>(position.nVolume) - position.nFrozen);
}

int AvailableLots(const PositionGroup& lot) {
    return Saturated(static_cast<long long>(lot.nVolume) - lot.nFrozen);
}

}  // namespace lists
