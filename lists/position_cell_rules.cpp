#include "lists/position_cell_rules.h"

#include "lists/position_profit_rules.h"
#include "orderentry/number_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/codes.h"

namespace lists {

namespace {

/// A stop value up to this is switched off.
constexpr double kStopOff = 1e-5;
constexpr COLORREF kYesterdayColor = 0xC04AC1;
constexpr COLORREF kTodayColor = 0xCC4058;

template <class Row>
CellText ContractCell(const Row& row) {
    CellText cell{.color = kContractColor, .format = kLeftFormat, .weight = CellWeight::kBold};
    text::CopyText(cell.text, text::FieldText(row.szContract));
    return cell;
}

CellText WordCell(const char* word, COLORREF color) {
    CellText cell{.color = color};
    text::CopyText(cell.text, word);
    return cell;
}

CellText DirectionCell(char direction) {
    if (direction == kDirectionBuy) return WordCell("买", kGainColor);
    if (direction == kDirectionSell) return WordCell("卖", kLossColor);
    return WordCell("-", kPlainColor);
}

CellText LotsCell(int lots) {
    CellText cell{.format = kRightFormat};
    text::FormatText(cell.text, sizeof cell.text, "%d", lots);
    return cell;
}

CellText MoneyCell(double value, COLORREF color) {
    CellText cell{.color = color, .format = kRightFormat};
    text::FormatText(cell.text, sizeof cell.text, "%.02lf", value);
    return cell;
}

COLORREF SignColor(double value) {
    if (value > 0) return kGainColor;
    return value < 0 ? kLossColor : kPlainColor;
}

/// `missing` is why a dash stands in place of the profit; without a profit for another reason the
/// cell stays blank.
CellText ProfitCell(const RowProfit& profit, RowProfit::Kind missing) {
    if (profit.kind == RowProfit::Kind::kKnown) {
        return MoneyCell(profit.value, SignColor(profit.value));
    }
    CellText cell{.format = kRightFormat};
    if (profit.kind == missing) text::CopyText(cell.text, "-");
    return cell;
}

/// The columns that totals and lots have in common.
template <class Row>
CellText SharedCell(const Row& row, int column) {
    switch (column) {
        case kPositionContract: return ContractCell(row);
        case kPositionDirection: return DirectionCell(row.cDirection);
        case kPositionVolume: return LotsCell(row.nVolume);
        case kPositionAvailable: return LotsCell(AvailableLots(row));
        case kPositionOpenPrice: return MoneyCell(row.dOpenPrice, kPlainColor);
        default: return {};
    }
}

/// Appends the parts of a strategy.
class StopWriter {
public:
    StopWriter(char* text, std::size_t size) : text_(text), size_(size) {
        text::CopyText(text_, size_, "");
    }

    /// A distance, in whole ticks or per cent; `tail` stands before the blank.
    void Distance(const char* name, double value, bool percent, const char* tail = "") {
        if (!(value > kStopOff)) return;
        if (percent) {
            text::AppendFormat(text_, size_, "%s：%.02lf%%%s ", name, value, tail);
        } else {
            text::AppendFormat(text_, size_, "%s：%d%s ", name, Truncated(value), tail);
        }
    }

    void Price(const char* name, double price) {
        if (price > kStopOff) text::AppendFormat(text_, size_, "绝对值%s：%.03lf ", name, price);
    }

private:
    char* text_;
    std::size_t size_;
};

}  // namespace

CellText TotalCell(const CZebPosition& position, const CZebContract& contract, int column) {
    RowQuote quote(position);
    switch (column) {
        case kPositionProfit:
            return ProfitCell(OpenProfitOf(position, contract.nUnit, quote),
                              RowProfit::Kind::kNoPrice);
        case kPositionHoldProfit:
            return ProfitCell(HoldProfitOf(position, contract.nUnit, quote),
                              RowProfit::Kind::kNoPrice);
        default: return SharedCell(position, column);
    }
}

CellText LotCell(const PositionGroup& lot, const CZebContract& contract, int column) {
    RowQuote quote(lot);
    switch (column) {
        case kPositionProfit:
            return ProfitCell(ProfitOfLot(lot, contract.nUnit, quote), RowProfit::Kind::kNoSymbol);
        case kPositionStops: {
            CellText cell;
            DescribeStops(lot, cell.text, sizeof cell.text);
            return cell;
        }
        case kPositionOrderKind: return WordCell(OrderKindText(lot.nOrderKind), kPlainColor);
        default: return SharedCell(lot, column);
    }
}

CellText DateTypeCell(char date_type) {
    if (date_type == kDateYesterday) return WordCell("昨仓", kYesterdayColor);
    if (date_type == kDateToday) return WordCell("今仓", kTodayColor);
    return WordCell("-", kPlainColor);
}

const char* OrderKindText(int kind) {
    switch (kind) {
        case 4: return "组合单";
        case 7: return "程序化下单";
        case 8: return "套利单";
        default: return "普通单";
    }
}

void DescribeStops(const PositionGroup& lot, char* text, std::size_t size) {
    StopWriter writer(text, size);
    const bool percent = lot.bPercent != 0;
    writer.Distance("止盈", lot.dTakeProfit, percent);
    writer.Distance("回落", lot.dPullback, percent);
    writer.Distance("止损", lot.dStopLoss, percent);
    char base[328];  // any double fits
    text::FormatText(base, sizeof base, "(%.03lf)", lot.dFloatBase);
    writer.Distance("浮动", lot.dFloat, percent, base);
    if (lot.cDirection == kDirectionBuy) {
        writer.Price("做多止盈", lot.dLongTakeProfit);
        writer.Price("做多止损", lot.dLongStopLoss);
    } else if (lot.cDirection == kDirectionSell) {
        writer.Price("做空止盈", lot.dShortTakeProfit);
        writer.Price("做空止损", lot.dShortStopLoss);
    }
}

}  // namespace lists
