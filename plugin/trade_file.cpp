#include "plugin/trade_file.h"

#include <cstdio>

#include "platform/text/bounded_text.h"
#include "platform/text/file_path.h"
#include "plugin/contract/codes.h"

namespace {

const char* OffsetWord(char offset) {
    if (offset == kOffsetCloseToday) return "平今";
    return offset == kOffsetClose ? "平仓" : "开仓";
}

// The status line of a trade knows two of these words only. Both are kept, as readers of either
// know them.
const char* HedgeWord(char hedge) {
    if (hedge == kHedgeArbitrage) return "套利";
    return hedge == kHedgeHedge ? "保值" : "投机";
}

}  // namespace

std::string TradeLine(const CZebTrade& trade) {
    const std::string time(text::FieldText(trade.szTime));
    const std::string order(text::FieldText(trade.szOrderNo));
    const std::string contract(text::FieldText(trade.szContract));
    // The longest price has 309 digits before its point.
    char line[1024];
    text::FormatText(line, sizeof line,
                     "<%i %s> 成交ID：%s\t%s\t%s\t%s\t%s\t价格：%.3f\t数量：%i\r\n",
                     trade.nTradeDate, time.c_str(), order.c_str(), contract.c_str(),
                     trade.cDirection == kDirectionBuy ? "买入" : "卖出", OffsetWord(trade.cOffset),
                     HedgeWord(trade.cHedge), trade.dPrice, trade.nVolume);
    return line;
}

void AppendTrade(const CZebTrade& trade) {
    std::FILE* const file = text::OpenFile(kTradeFile, "ab");
    if (file == nullptr) return;
    const std::string line = TradeLine(trade);
    std::fwrite(line.data(), 1, line.size(), file);
    std::fclose(file);
}
