#include "stops/stop_setting_rules.h"

#include <cmath>
#include <limits>

#include "orderentry/contract_rules.h"
#include "orderentry/number_rules.h"
#include "platform/text/bounded_text.h"

namespace {

constexpr double kNoTicks = 1e-5;

constexpr std::size_t kEditTextSize = 64;

std::string PriceText(double price, const CZebContract& contract) {
    char text[kEditTextSize];
    FormatPrice(text, price, contract.nPriceDigits);
    return text;
}

std::string TickText(double ticks) {
    char text[kEditTextSize];
    text::FormatText(text, sizeof text, "%.0f", ticks);
    return text;
}

/// `least_step` is from which on a distance counts as following; in between it is neither.
RelativeRule RuleOf(double ticks, double step, double least_step) {
    RelativeRule rule;
    rule.on = ticks > kNoTicks;
    if (!rule.on) return rule;
    if (step < kNoTicks) {
        rule.fixed = true;
        rule.fixed_distance = TickText(ticks);
    } else if (step > least_step) {
        rule.floating = true;
        rule.distance = TickText(ticks);
        rule.step = TickText(step);
    }
    return rule;
}

}  // namespace

StopSettings StopSettingsOf(const CTradeParam& param) {
    StopSettings settings;
    settings.m_nStopTicks = param.nStopTicks;
    settings.m_nStopTriggerPrice = param.nStopTriggerPrice;
    settings.m_nProfitTicks = param.nProfitTicks;
    settings.m_nProfitTriggerPrice = param.nProfitTriggerPrice;
    settings.m_nStopOrderPrice = param.nStopOrderPrice;
    settings.m_nProfitOrderPrice = param.nProfitOrderPrice;
    settings.m_nProfitAdjust = param.nProfitAdjust;
    settings.m_nStopAdjust = param.nStopAdjust;
    settings.m_bAutoChase = param.bAutoChase;
    settings.m_nValidity = param.nValidity;
    return settings;
}

void PutStopSettings(CTradeParam& param, const StopSettings& settings) {
    param.nStopTicks = settings.m_nStopTicks;
    param.nStopTriggerPrice = settings.m_nStopTriggerPrice;
    param.nProfitTicks = settings.m_nProfitTicks;
    param.nProfitTriggerPrice = settings.m_nProfitTriggerPrice;
    param.nStopOrderPrice = settings.m_nStopOrderPrice;
    param.nProfitOrderPrice = settings.m_nProfitOrderPrice;
    param.nProfitAdjust = settings.m_nProfitAdjust;
    param.nStopAdjust = settings.m_nStopAdjust;
    param.bAutoChase = settings.m_bAutoChase;
    param.nValidity = settings.m_nValidity;
}

unsigned char RowNumber(long long selected) {
    constexpr long long kMost = std::numeric_limits<unsigned char>::max();
    return selected < 0 || selected > kMost ? 0 : static_cast<unsigned char>(selected);
}

RelativeRule StopRuleOf(const CPresetStop& stop) {
    constexpr double kLeastFloat = 0.0001;
    return RuleOf(stop.dStopTicks, stop.dStopFloat, kLeastFloat);
}

RelativeRule ProfitRuleOf(const CPresetStop& stop) {
    return RuleOf(stop.dProfitTicks, stop.dProfitPullback, kNoTicks);
}

RelativeDistance DistanceOf(const RelativeRule& rule) {
    RelativeDistance distance{0, 0};
    if (!rule.on) return distance;
    if (rule.fixed) distance.ticks = ReadInteger(rule.fixed_distance.c_str());
    if (rule.floating) {
        distance.ticks = ReadInteger(rule.distance.c_str());
        distance.step = ReadInteger(rule.step.c_str());
    }
    return distance;
}

std::string AbsolutePriceText(double price, const CZebContract& contract) {
    constexpr double kOff = 0.0001;
    return std::isfinite(price) && price > kOff ? PriceText(price, contract) : "";
}

double AbsolutePrice(bool checked, const char* text) {
    const double price = checked ? ReadNumber(text) : 0;
    return std::isfinite(price) ? price : 0;
}

std::string SuggestedPrice(const CZebContract* contract, int sign) {
    constexpr double kTicks = 20;
    JSDyn1 quote{};
    if (contract == nullptr || !GetQuoteByName(&quote, ContractCode(*contract).c_str())) return "";
    const double way = kTicks * contract->dPriceTick;
    const double price = sign < 0 ? quote.dLast - way : quote.dLast + way;
    return std::isfinite(price) ? PriceText(price, *contract) : "";
}

std::string SteppedAdjustment(const char* text, int delta) {
    return std::to_string(Saturated(static_cast<long long>(ReadInteger(text)) - delta));
}

std::string SteppedStopPrice(const char* text, int delta, const CZebContract& contract) {
    constexpr double kLeastPrice = 0.001;
    const double tick = std::isfinite(contract.dPriceTick) ? contract.dPriceTick : 0;
    const double price = ReadNumber(text) - static_cast<double>(delta) * tick;
    const bool usable = std::isfinite(price) && price >= kLeastPrice;
    return PriceText(usable ? price : tick, contract);
}
