#pragma once

#include "plugin/contract/parameter_records.h"

namespace terminal {

/// The part of the trading parameters that the settings dialog shows, in its own terms.
struct ParamChoices {
    bool confirm_orders = true;
    bool confirm_closes = true;
    bool confirm_cancels = true;
    bool over_price = false;
    int over_ticks = 0;
    bool reset_price = false;
    bool reset_direction = false;
    int default_price = 0;  ///< row of kDefaultPrices
    int close_price = 0;    ///< row of kClosePrices
    int close_ticks = 0;
    int panel_buy[2] = {0, 5};
    int panel_sell[2] = {0, 5};
};

inline constexpr const char* kDefaultPrices[] = {"对手价", "最新价", "挂单价",          "涨停价",
                                                 "跌停价", "不填",   "挂单价超一个价位"};
inline constexpr const char* kClosePrices[] = {"对手价", "最新价", "挂单价", "涨停价", "跌停价"};
inline constexpr const char* kPanelBuys[] = {"超一买", "超二买", "超三买", "超四买", "超五买",
                                             "挂一买", "挂二买", "挂三买", "挂四买", "挂五买"};
inline constexpr const char* kPanelSells[] = {"超一卖", "超二卖", "超三卖", "超四卖", "超五卖",
                                              "挂一卖", "挂二卖", "挂三卖", "挂四卖", "挂五卖"};
inline constexpr int kMostOverTicks = 999;

/// Numbers outside of what can be shown come out as the nearest choice.
ParamChoices ChoicesOf(const CTradeParam& param);
/// Writes the choices; everything else in the record stays.
void StoreChoices(const ParamChoices& choices, CTradeParam& param);

}  // namespace terminal
