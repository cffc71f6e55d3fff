#include "lists/export_trade_rules.h"

#include <algorithm>
#include <string_view>

#include "lists/trade_cell_rules.h"
#include "orderentry/contract_rules.h"
#include "platform/text/bounded_text.h"

namespace {

/// Enough for most lines, so that the text need not grow.
constexpr std::size_t kUsualLine = 128;

/// Trades in a row often share their contract: it is looked up once for them.
class ContractOfTrade {
public:
    explicit ContractOfTrade(const ContractSource* contracts) : contracts_(contracts) {}

    const CZebContract* operator()(const CZebTrade& trade) {
        const std::string_view code = text::FieldText(trade.szContract);
        if (contracts_ == nullptr || (asked_ && code == code_)) return contract_;
        asked_ = true;
        code_ = code;
        contract_ = contracts_->FindContractByCode(code_.c_str());
        return contract_;
    }

private:
    const ContractSource* contracts_;
    bool asked_ = false;
    std::string code_;
    const CZebContract* contract_ = nullptr;
};

}  // namespace

std::string ExportName(int year, int month, int day) {
    char name[64];
    text::FormatText(name, sizeof name, "%d年%d月%d日黄金成交报表.csv", year, month, day);
    return name;
}

void AppendExportCell(std::string& line, std::string_view text) {
    const std::size_t start = line.size();
    line += text;
    std::replace_if(
        line.begin() + static_cast<std::ptrdiff_t>(start), line.end(),
        [](char byte) { return byte == ',' || byte == '\n'; }, ' ');
    line += ',';
}

std::string TradeExport(std::span<const char* const> titles, std::span<const CZebTrade> trades,
                        const ContractSource* contracts) {
    std::string content;
    content.reserve((trades.size() + 1) * kUsualLine);
    for (const char* const title : titles) AppendExportCell(content, title);
    content += '\n';
    ContractOfTrade contract_of(contracts);
    TradeTextRoom room;
    for (const CZebTrade& trade : trades) {
        const CZebContract* const contract = contract_of(trade);
        for (int column = 0; column < static_cast<int>(titles.size()); ++column) {
            const std::string_view text = TradeText(trade, column, contract, room);
            if (column == kTradeNumberColumn) {
                // Between tabs a spreadsheet takes the number for a text and keeps all its digits.
                AppendExportCell(content, '\t' + std::string(text) + '\t');
            } else {
                AppendExportCell(content, text);
            }
        }
        content += '\n';
    }
    return content;
}
