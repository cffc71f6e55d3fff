#include "orderentry/volume_rules.h"

#include <algorithm>
#include <string_view>

#include "orderentry/contract_rules.h"
#include "orderentry/number_rules.h"
#include "orderentry/price_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/codes.h"

namespace {

MaxVolumeAnswer Show(int lots) {
    return {.kind = MaxVolumeAnswer::Kind::kShow, .lots = lots, .query = {}};
}

/// The page's offsets are '0' and the closing ones; a query knows one closing offset only.
char QueryOffset(char offset) { return offset == kOffsetOpen ? kOffsetOpen : kOffsetClose; }

MaxVolumeAnswer EstimateByFunds(const MaxVolumeQuestion& question) {
    constexpr double kLeastPrice = 1e-6;
    constexpr double kLeastQueryPrice = 1e-5;
    constexpr double kLeastMargin = 1e-5;
    const CZebContract* const contract = question.contract;
    if (contract == nullptr || contract->szContract[0] == '\0' || question.net) return {};
    const double price = GetOrderPrice(question.price_text, question.checked_direction, contract,
                                       question.symbol.wMarket, question.symbol.wCode);
    if (!(price >= kLeastPrice)) return {};
    const double margin = GetMarginPerLot(contract, price);
    if (margin > kLeastMargin) {
        return Show(AffordableLots(question.available, question.open_losses, margin));
    }
    if (!(price > kLeastQueryPrice)) return {};
    return {.kind = MaxVolumeAnswer::Kind::kQuery,
            .lots = 0,
            .query =
                MaxVolumeQuery(*contract, question.direction, QueryOffset(question.offset), price)};
}

}  // namespace

int ReadLots(const char* text) { return ReadInteger(text); }

std::string StepVolume(const char* text, int delta) {
    return std::to_string(
        std::max(1, Saturated(static_cast<long long>(ReadInteger(text)) - delta)));
}

int GetCloseVolume(const CZebPosition* positions, int count, const char* contract, char direction) {
    const std::string_view code = contract != nullptr ? contract : "";
    for (int i = 0; i < count; ++i) {
        const CZebPosition& position = positions[i];
        if (text::FieldText(position.szContract) != code) continue;
        if (position.cDirection == direction) continue;
        return Saturated(static_cast<long long>(position.nVolume) - position.nFrozen);
    }
    return 0;
}

int AffordableLots(double available, double open_losses, double margin_per_lot) {
    return std::max(0, Truncated((available + open_losses) / margin_per_lot));
}

MaxVolumeAnswer AskMaxVolume(const MaxVolumeQuestion& question) {
    if (question.contract == nullptr) return {};
    if (question.offset != kOffsetOpen && question.has_offset) return Show(question.closable);
    return EstimateByFunds(question);
}

CQueryMaxVolume MaxVolumeQuery(const CZebContract& contract, char direction, char offset,
                               double price) {
    CQueryMaxVolume query{};
    text::CopyText(query.szExchange, text::FieldText(contract.szExchange));
    text::CopyText(query.szContract, text::FieldText(contract.szContract));
    query.cDirection = direction;
    query.cOffset = offset;
    query.cFlag1 = '1';
    query.cFlag2 = '0';
    query.dPrice = price;
    return query;
}

bool IsAnswerFor(const CQueryMaxVolumeResult& result, const CZebContract* contract, char direction,
                 char offset) {
    return contract != nullptr &&
           text::FieldText(result.szExchange) == text::FieldText(contract->szExchange) &&
           text::FieldText(result.szContract) == text::FieldText(contract->szContract) &&
           result.cDirection == direction && result.cOffset == offset;
}

int ShownLots(const CQueryMaxVolumeResult& result) {
    const int lots = result.nMaxVolume;
    return std::max(0, lots);
}

const char* MaxVolumeLabel(bool has_offset, char direction, char offset) {
    if (has_offset) return offset == kOffsetOpen ? "最大可开:" : "最大可平:";
    return direction == kDirectionBuy ? "最大可买:" : "最大可卖:";
}
