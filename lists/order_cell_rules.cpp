#include "lists/order_cell_rules.h"

#include "lists/order_status_rules.h"
#include "orderentry/contract_rules.h"
#include "orderentry/number_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/codes.h"

namespace {

using lists::CellText;

constexpr COLORREF kCloseColor = 0xC04AC1;
/// Orders below this price take whatever price there is.
constexpr double kLeastPrice = 0.001;

template <std::size_t N>
void Take(CellText& cell, const char (&field)[N]) {
    text::CopyText(cell.text, text::FieldText(field));
}

void PrintNumber(CellText& cell, int number) {
    text::FormatText(cell.text, sizeof cell.text, "%d", number);
}

void PrintDirection(CellText& cell, char direction) {
    const bool buys = direction == kDirectionBuy;
    const bool sells = direction == kDirectionSell;
    text::CopyText(cell.text, buys ? "买入" : sells ? "卖出" : "-");
    if (buys || sells) cell.color = buys ? lists::kGainColor : lists::kLossColor;
}

const char* OffsetText(char offset) {
    switch (offset) {
        case kOffsetOpen: return "开仓";
        case kOffsetClose: return "平仓";
        case kOffsetCloseToday: return "平今";
        default: return "-";
    }
}

void PrintOffset(CellText& cell, char offset, const CZebContract* contract) {
    const bool known = contract == nullptr || !IsSpot(*contract);
    text::CopyText(cell.text, known ? OffsetText(offset) : "-");
    if (known && offset == kOffsetClose) cell.color = kCloseColor;
}

void PrintPrice(CellText& cell, double price, const CZebContract* contract) {
    if (price < kLeastPrice) {
        text::CopyText(cell.text, "市价");
        return;
    }
    switch (contract != nullptr ? contract->nPriceDigits : kUsualDigits) {
        case 3: FormatPrice(cell.text, price, 3); break;
        case 2: FormatPrice(cell.text, price, 2); break;
        // Contracts with one decimal place have whole prices in this list.
        case 1: FormatPrice(cell.text, price, 0); break;
        default: PrintNumber(cell, Truncated(price));
    }
}

}  // namespace

CellText OrderCell(const CZebOrder& order, int column, const CZebContract* contract) {
    CellText cell;
    switch (column) {
        case kOrderTimeColumn:
            cell.format = lists::kLeftFormat;
            Take(cell, order.szTime);
            break;
        case kOrderContractColumn:
            cell.format = lists::kLeftFormat;
            cell.color = lists::kContractColor;
            cell.weight = lists::CellWeight::kBold;
            Take(cell, order.szContract);
            break;
        case kOrderDirectionColumn: PrintDirection(cell, order.cDirection); break;
        case kOrderOffsetColumn: PrintOffset(cell, order.cOffset, contract); break;
        case kOrderPriceColumn:
            cell.format = lists::kRightFormat;
            PrintPrice(cell, order.dPrice, contract);
            break;
        case kOrderVolumeColumn:
            cell.format = lists::kRightFormat;
            PrintNumber(cell, OrderVolume(order));
            break;
        case kOrderFilledColumn:
            cell.format = lists::kRightFormat;
            PrintNumber(cell, order.nFilled);
            break;
        case kOrderStatusColumn: text::CopyText(cell.text, OrderStatusText(order.cStatus)); break;
        case kOrderRemarkColumn: Take(cell, order.szRemark); break;
        case kOrderNumberColumn:
            cell.format = lists::kRightFormat;
            Take(cell, order.szOrderNo);
            break;
        default: break;
    }
    return cell;
}
