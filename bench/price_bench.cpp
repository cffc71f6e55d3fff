#include <benchmark/benchmark.h>

#include <cstdio>

#include "bench/ratio.h"
#include "orderentry/number_rules.h"
#include "orderentry/price_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "tests/support/front_end/recording_core.h"

namespace {

constexpr const char* kTexts[] = {"对手价", "挂单价", "挂单价超一个价位", "涨停价", "跌停价",
                                  "最新价", "301.25"};
constexpr double kPrices[] = {578.32, 578.30, 578.31, 635.9, 520.28, 578.33, 301.25};

/// A core that answers at once, as one that keeps the parameters in memory.
class QuickCore : public tests::RecordingCore {
public:
    void GetTradeParam(CTradeParam* param) override { *param = trade_param; }
};

JSDyn1 quote{};

ULONG_PTR CALLBACK QuickHost(UINT message, WPARAM, LPARAM lParam) {
    if (message == HOST_GET_QUOTE) *reinterpret_cast<JSDyn1*>(lParam) = quote;
    return 0;
}

/// Opens both doors for good and answers the contract that is traded.
CZebContract Trade() {
    static QuickCore core;
    core.trade_param.bOverPrice = 1;
    core.trade_param.nOverTicks = 2;
    g_pUICallBack = &core;
    g_pfnHostCallBack = &QuickHost;
    quote.dAsk[0] = 578.32;
    quote.dBid[0] = 578.30;
    quote.dLast = 578.31;
    quote.fUpperLimit = 635.9F;
    quote.fLowerLimit = 520.28F;
    CZebContract contract{};
    text::CopyText(contract.szContract, "Au(T+D)");
    contract.dPriceTick = 0.01;
    contract.nPriceDigits = 2;
    return contract;
}

RATIO("price.resolve_over_snprintf") {
    static const CZebContract contract = Trade();
    static char printed[kPriceTextSize];
    return {[] {
                for (const char* text : kTexts) {
                    const double price = GetOrderPrice(text, '0', &contract, 12, 345);
                    FormatPrice(printed, price, contract.nPriceDigits);
                    benchmark::DoNotOptimize(printed);
                    benchmark::ClobberMemory();
                }
            },
            [] {
                for (const double price : kPrices) {
                    std::snprintf(printed, sizeof printed, "%.2f", price);
                    benchmark::DoNotOptimize(printed);
                    benchmark::ClobberMemory();
                }
            }};
}

}  // namespace
