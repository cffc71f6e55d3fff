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

/// `from_price` is the one that the core's figure stands against.
RowProfit TotalProfit(const CZebPosition& position, double core_profit, double from_price,
                      std::optional<int> unit, RowQuote& quote) {
    if (IsSomething(core_profit)) return {.value = core_profit};
    if (!unit) return {};
    return ProfitAtQuote(position.cDirection, from_price, position.nVolume, *unit, quote.Get());
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

RowQuote::RowQuote(const CZebPosition& position)
    : contract_(text::FieldText(position.szContract)) {}

RowQuote::RowQuote(const PositionGroup& lot) : contract_(text::FieldText(lot.szContract)) {}

const JSDyn1* RowQuote::Get() {
    if (!asked_) {
        quote_ = {};
        known_ = GetQuoteByName(&quote_, contract_.c_str());
        asked_ = true;
    }
    return known_ ? &quote_ : nullptr;
}

RowProfit OpenProfitOf(const CZebPosition& position, std::optional<int> unit, RowQuote& quote) {
    return TotalProfit(position, position.dOpenProfit, position.dOpenPrice, unit, quote);
}

RowProfit HoldProfitOf(const CZebPosition& position, std::optional<int> unit, RowQuote& quote) {
    return TotalProfit(position, position.dHoldProfit, position.dHoldPrice, unit, quote);
}

RowProfit ProfitOfLot(const PositionGroup& lot, int unit, RowQuote& quote) {
    return ProfitAtQuote(lot.cDirection, lot.dOpenPrice, lot.nVolume, unit, quote.Get());
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
