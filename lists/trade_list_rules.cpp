#include "lists/trade_list_rules.h"

#include <cstring>
#include <vector>

#include "lists/bubble_order_rules.h"
#include "orderentry/number_rules.h"
#include "platform/text/bounded_text.h"

namespace {

int OrderNumber(const CZebTrade& trade) {
    // A field that is filled to its last byte has no terminator.
    char number[sizeof trade.szOrderNo + 1];
    std::memcpy(number, trade.szOrderNo, sizeof trade.szOrderNo);
    number[sizeof trade.szOrderNo] = '\0';
    return ReadInteger(number);
}

}  // namespace

void SortTrades(std::span<CZebTrade> trades) {
    std::vector<TextKey> keys;
    keys.reserve(trades.size());
    for (const CZebTrade& trade : trades) {
        keys.push_back({text::FieldText(trade.szTradeNo), OrderNumber(trade)});
    }
    const std::vector<int> order = BubbleOrderOfTexts(keys);
    ReorderRecords(trades.data(), sizeof(CZebTrade), sizeof(CZebTrade), order);
}
