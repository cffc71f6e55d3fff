#include "lists/trade_cell_rules.h"

#include <charconv>

#include "orderentry/contract_rules.h"
#include "orderentry/number_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/codes.h"

namespace {

using lists::CellText;

constexpr COLORREF kCloseColor = 0xC04AC1;

std::string_view DirectionText(char direction) {
    switch (direction) {
        case kDirectionBuy: return "买入";
        case kDirectionSell: return "卖出";
        default: return "-";
    }
}

COLORREF DirectionColor(char direction) {
    switch (direction) {
        case kDirectionBuy: return lists::kGainColor;
        case kDirectionSell: return lists::kLossColor;
        default: return lists::kPlainColor;
    }
}

bool HasOffset(const CZebContract* contract) { return contract == nullptr || !IsSpot(*contract); }

std::string_view OffsetText(char offset, const CZebContract* contract) {
    if (!HasOffset(contract)) return "--";
    switch (offset) {
        case kOffsetOpen: return "开仓";
        case kOffsetClose: return "平仓";
        case kOffsetCloseToday: return "平今";
        default: return "--";
    }
}

std::string_view IntegerText(int number, TradeTextRoom& room) {
    const auto written = std::to_chars(room, room + sizeof room, number);
    return {room, static_cast<std::size_t>(written.ptr - room)};
}

std::string_view TradePrice(double price, const CZebContract* contract, TradeTextRoom& room) {
    switch (contract != nullptr ? contract->nPriceDigits : kUsualDigits) {
        case 3: return PriceText(room, price, 3);
        case 2: return PriceText(room, price, 2);
        // Contracts with one decimal place have whole prices in this list.
        case 1: return PriceText(room, price, 0);
        default: return IntegerText(Truncated(price), room);
    }
}

UINT FormatOf(int column) {
    switch (column) {
        case kTradeTimeColumn:
        case kTradeContractColumn: return lists::kLeftFormat;
        case kTradeDirectionColumn:
        case kTradeOffsetColumn: return lists::kCenterFormat;
        default: return lists::kRightFormat;
    }
}

}  // namespace

std::string_view TradeText(const CZebTrade& trade, int column, const CZebContract* contract,
                           TradeTextRoom& room) {
    switch (column) {
        case kTradeTimeColumn: return text::FieldText(trade.szTime);
        case kTradeContractColumn: return text::FieldText(trade.szContract);
        case kTradeDirectionColumn: return DirectionText(trade.cDirection);
        case kTradeOffsetColumn: return OffsetText(trade.cOffset, contract);
        case kTradePriceColumn: return TradePrice(trade.dPrice, contract, room);
        case kTradeVolumeColumn: return IntegerText(trade.nVolume, room);
        case kTradeOrderColumn: return text::FieldText(trade.szOrderNo);
        case kTradeNumberColumn: return text::FieldText(trade.szTradeNo);
        case kTradeTextColumn: return text::FieldText(trade.reserved45);
        default: return {};
    }
}

CellText TradeCell(const CZebTrade& trade, int column, const CZebContract* contract) {
    CellText cell;
    TradeTextRoom room;
    text::CopyText(cell.text, TradeText(trade, column, contract, room));
    cell.format = FormatOf(column);
    if (column == kTradeContractColumn) {
        cell.color = lists::kContractColor;
        cell.weight = lists::CellWeight::kBold;
    } else if (column == kTradeDirectionColumn) {
        cell.color = DirectionColor(trade.cDirection);
    } else if (column == kTradeOffsetColumn && trade.cOffset == kOffsetClose &&
               HasOffset(contract)) {
        cell.color = kCloseColor;
    }
    return cell;
}
