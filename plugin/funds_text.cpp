#include "plugin/funds_text.h"

#include <algorithm>
#include <cstdlib>

#include "platform/text/bounded_text.h"

namespace {

/// Figures are texts, and one may fill its field to the last byte.
template <std::size_t N>
double Figure(const char (&field)[N]) {
    return std::atof(std::string(text::FieldText(field)).c_str());
}

}  // namespace

double ShownAvailable(double available, double floatingProfit) {
    return available + std::min(floatingProfit, 0.0);
}

AccountFunds ComputeFunds(const CZebAccountSummary& summary, const PositionProfit& profit,
                          FundsSource source) {
    AccountFunds funds;
    funds.available = Figure(summary.Available);
    funds.openProfit = profit.open;
    funds.margin = Figure(summary.CurrMargin);
    funds.frozen = Figure(summary.FrozenMargin);
    funds.fee = Figure(summary.Commission);
    funds.equity = Figure(summary.Balance);
    funds.shownAvailable = funds.available;
    if (source == FundsSource::kClient) {
        // One after the other in the record's order, so that the sum rounds as the server's does.
        funds.margin += Figure(summary.Margin1);
        funds.margin += Figure(summary.Margin3);
        funds.margin += Figure(summary.Margin2);
        funds.equity = funds.available + profit.floating + funds.margin + funds.frozen;
        funds.shownAvailable = ShownAvailable(funds.available, profit.floating);
    }
    return funds;
}

std::string FundsPageText(const AccountFunds& funds) {
    char page[4096] = "";
    text::AppendFormat(page, sizeof(page), "\r\n 当前权益:   % 13.2lf\r\n\r\n", funds.equity);
    text::AppendFormat(page, sizeof(page),
                       " 可用资金:   % 13.2lf        开仓盈亏:   % 13.2f\r\n\r\n",
                       funds.shownAvailable, funds.openProfit);
    text::AppendFormat(page, sizeof(page),
                       " 冻结资金:   % 13.2lf        持仓保证金: % 13.2f\r\n\r\n", funds.frozen,
                       funds.margin);
    text::AppendFormat(page, sizeof(page), " 手续费:     % 13.2f\r\n\r\n", funds.fee);
    return page;
}

std::string FundsLine(double equity, double available, double openProfit) {
    char line[1024];
    text::FormatText(line, sizeof(line), "%.2f|%.2f|%.2f|", equity, available, openProfit);
    return line;
}

std::string MoneyText(double value) {
    char field[512];
    text::FormatText(field, sizeof(field), "%.02lf", value);
    return field;
}
