#include "plugin/status_lines.h"

#include "lists/order_status_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/codes.h"

namespace {

// Holds the widest price that a double can print and all fields at their full length.
constexpr std::size_t kLineSize = 1024;

const char* DirectionWord(char direction) { return direction == kDirectionBuy ? "买" : "卖"; }

const char* OffsetWord(char offset) {
    if (offset == kOffsetOpen) return "开仓";
    return offset == kOffsetClose ? "平仓" : "平今";
}

/// Arbitrage counts as hedging here, though the export of trades has a word of its own for it:
/// readers of the log know it so.
const char* HedgeWord(char hedge) { return hedge == kHedgeSpeculation ? "投机" : "保值"; }

}  // namespace

std::string OrderStatusLine(const CZebOrder& order) {
    char line[kLineSize];
    const std::string contract(text::FieldText(order.szContract));
    const std::string number(text::FieldText(order.szOrderNo));
    text::FormatText(line, sizeof(line),
                     "%s|%s|%s|%s|委托价:%.02lf|委托数量:%d|成交数量:%d|委托号:%s|%s",
                     contract.c_str(), DirectionWord(order.cDirection), OffsetWord(order.cOffset),
                     HedgeWord(order.cHedge), order.dPrice, OrderVolume(order), order.nFilled,
                     number.c_str(), OrderStatusText(order.cStatus));
    return line;
}

std::string TradeStatusLine(const CZebTrade& trade) {
    char line[kLineSize];
    const std::string contract(text::FieldText(trade.szContract));
    const std::string number(text::FieldText(trade.szTradeId));
    text::FormatText(line, sizeof(line), "%s|%s|%s|%s|成交价:%.02lf|成交数:%d|成交号:%s",
                     contract.c_str(), DirectionWord(trade.cDirection), OffsetWord(trade.cOffset),
                     HedgeWord(trade.cHedge), trade.dPrice, trade.nVolume, number.c_str());
    return line;
}
