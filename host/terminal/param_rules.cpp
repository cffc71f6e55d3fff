#include "host/terminal/param_rules.h"

#include <algorithm>
#include <iterator>

namespace terminal {
namespace {

constexpr int kEmptyRow = 5;  // rows 5 and 6 of the record are both empty
constexpr int kQueueOverRow = 6;
constexpr int kQueueOverValue = 7;

template <class Table>
int RowOf(int value, const Table& table) {
    return std::clamp(value, 0, static_cast<int>(std::size(table)) - 1);
}

std::uint8_t Byte(int value) { return static_cast<std::uint8_t>(std::clamp(value, 0, 255)); }

}  // namespace

ParamChoices ChoicesOf(const CTradeParam& param) {
    ParamChoices choices;
    choices.confirm_orders = param.bNoOrderConfirm == 0;
    choices.confirm_closes = param.bNoCloseConfirm == 0;
    choices.confirm_cancels = param.bNoCancelConfirm == 0;
    choices.over_price = param.bOverPrice != 0;
    choices.over_ticks = std::clamp<int>(param.nOverTicks, 0, kMostOverTicks);
    choices.reset_price = param.bResetPrice != 0;
    choices.reset_direction = param.bResetDirection != 0;
    choices.default_price = param.nDefaultPrice == kQueueOverValue
                                ? kQueueOverRow
                                : std::min<int>(param.nDefaultPrice, kEmptyRow);
    choices.close_price = RowOf(param.nClosePriceType, kClosePrices);
    choices.close_ticks = std::clamp<int>(param.nCloseOverTicks, 0, kMostOverTicks);
    for (int button = 0; button < 2; ++button) {
        choices.panel_buy[button] = RowOf(param.nPanelBuy[button], kPanelBuys);
        choices.panel_sell[button] = RowOf(param.nPanelSell[button], kPanelSells);
    }
    return choices;
}

void StoreChoices(const ParamChoices& choices, CTradeParam& param) {
    param.bNoOrderConfirm = choices.confirm_orders ? 0 : 1;
    param.bNoCloseConfirm = choices.confirm_closes ? 0 : 1;
    param.bNoCancelConfirm = choices.confirm_cancels ? 0 : 1;
    param.bOverPrice = choices.over_price ? 1 : 0;
    param.nOverTicks = std::clamp(choices.over_ticks, 0, kMostOverTicks);
    param.bResetPrice = choices.reset_price ? 1 : 0;
    param.bResetDirection = choices.reset_direction ? 1 : 0;
    const int row = RowOf(choices.default_price, kDefaultPrices);
    param.nDefaultPrice = Byte(row == kQueueOverRow ? kQueueOverValue : row);
    param.nClosePriceType = Byte(RowOf(choices.close_price, kClosePrices));
    param.nCloseOverTicks = std::clamp(choices.close_ticks, 0, kMostOverTicks);
    for (int button = 0; button < 2; ++button) {
        param.nPanelBuy[button] = Byte(RowOf(choices.panel_buy[button], kPanelBuys));
        param.nPanelSell[button] = Byte(RowOf(choices.panel_sell[button], kPanelSells));
    }
}

}  // namespace terminal
