#include "host/terminal/mark_rules.h"

#include <algorithm>
#include <cmath>

#include "platform/text/bounded_text.h"
#include "plugin/contract/codes.h"

namespace terminal {
namespace {

using papercore::Price;
using papercore::PriceFromYuan;
using views::ChartMark;

std::string Hands(const char* word, int volume) {
    return std::string(word) + " " + std::to_string(volume) + " 手";
}

void AddIfPrice(std::vector<ChartMark>& marks, ChartMark::Kind kind, Price price,
                const char* label) {
    if (price > 0) marks.push_back({kind, price, label});
}

Price Ticks(double count, Price tick) {
    constexpr double kMostTicks = 1e9;
    return static_cast<Price>(std::clamp(count, -kMostTicks, kMostTicks)) * tick;
}

void AddStops(std::vector<ChartMark>& marks, const PositionGroup& lot, Price tick) {
    const bool is_long = lot.cDirection == kDirectionBuy;
    const int sign = is_long ? 1 : -1;
    const Price open = PriceFromYuan(lot.dOpenPrice);
    const double profit = is_long ? lot.dLongTakeProfit : lot.dShortTakeProfit;
    const double stop = is_long ? lot.dLongStopLoss : lot.dShortStopLoss;
    AddIfPrice(marks, ChartMark::Kind::kTakeProfit, PriceFromYuan(profit), "止盈");
    AddIfPrice(marks, ChartMark::Kind::kStopLoss, PriceFromYuan(stop), "止损");
    if (lot.dTakeProfit >= 1) {
        AddIfPrice(marks, ChartMark::Kind::kTakeProfit, open + sign * Ticks(lot.dTakeProfit, tick),
                   "止盈");
    }
    if (lot.dStopLoss >= 1) {
        AddIfPrice(marks, ChartMark::Kind::kStopLoss, open - sign * Ticks(lot.dStopLoss, tick),
                   "止损");
    }
}

}  // namespace

std::vector<ChartMark> MarksOf(const papercore::Lists& lists, const std::string& contract,
                               Price tick) {
    std::vector<ChartMark> marks;
    const auto is_here = [&](const auto& record) {
        return text::FieldText(record.szContract) == contract;
    };
    for (const CZebPosition& position : *lists.positions) {
        if (!is_here(position)) continue;
        const char* word = position.cDirection == kDirectionBuy ? "多" : "空";
        marks.push_back({ChartMark::Kind::kOpenPrice, PriceFromYuan(position.dOpenPrice),
                         Hands(word, position.nVolume)});
    }
    for (const PositionGroup& lot : *lists.lots) {
        if (is_here(lot)) AddStops(marks, lot, tick);
    }
    for (const CZebOrder& order : *lists.orders) {
        const bool works = order.cStatus == '1' || order.cStatus == '2';
        if (!works || !is_here(order) || order.dPrice <= 0) continue;
        const char* word = order.cDirection == kDirectionBuy ? "买" : "卖";
        marks.push_back(
            {ChartMark::Kind::kOrder, PriceFromYuan(order.dPrice), Hands(word, order.nRemaining)});
    }
    return marks;
}

}  // namespace terminal
