#include "papercore/records.h"

#include <algorithm>
#include <bit>

#include "papercore/positions.h"
#include "papercore/texts.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"
#include "plugin/contract/codes.h"

namespace papercore {
namespace {

constexpr char kGroupPlain = 1;
constexpr Instant kDayMillis = 24LL * 60 * 60 * 1000;

char Direction(Side side) { return side == Side::kBuy ? kDirectionBuy : kDirectionSell; }

std::int32_t Count(std::int64_t count) {
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(count, INT32_MIN, INT32_MAX));
}

char StatusCode(const Order& order) {
    const bool partly = order.filled > 0;
    switch (order.status) {
        case OrderStatus::kWorking: return partly ? '2' : '1';
        case OrderStatus::kFilled: return '3';
        case OrderStatus::kCancelled: return partly ? '5' : '4';
        default: return 'e';
    }
}

template <std::size_t N>
void CopyTime(char (&field)[N], Instant time) {
    const Instant seconds = ((time % kDayMillis + kDayMillis) % kDayMillis) / 1000;
    text::FormatText(field, N, "%02d:%02d:%02d", static_cast<int>(seconds / 3600),
                     static_cast<int>(seconds / 60 % 60), static_cast<int>(seconds % 60));
}

char DateType(const Position& position) {
    if (position.IsAllOfToday()) return kDateToday;
    return position.IsNoneOfToday() ? kDateYesterday : char{0};
}

CZebPosition RecordOf(const Position& position) {
    CZebPosition record{};
    text::CopyText(record.szExchange, position.exchange);
    text::CopyText(record.szContract, position.contract);
    record.cDirection = Direction(position.side);
    record.cHedge = position.hedge;
    record.cDateType = DateType(position);
    record.nVolume = Count(position.volume);
    record.nFrozen = Count(position.frozen);
    record.dOpenPrice = position.open_price;
    record.dHoldPrice = position.hold_price;
    record.nSession = position.session;
    return record;
}

}  // namespace

CZebOrder RecordOf(const Order& order) {
    CZebOrder record{};
    text::CopyText(record.szContract, order.contract);
    text::CopyText(record.szRemark, order.remark);
    record.cDirection = Direction(order.side);
    record.cOffset = order.offset;
    record.cHedge = order.hedge;
    record.cStatus = StatusCode(order);
    CopyTime(record.szTime, order.time);
    text::FormatText(record.szOrderNo, sizeof record.szOrderNo, "%d", order.id);
    text::FormatText(record.szOrderRef, sizeof record.szOrderRef, "%d", order.id);
    record.nSession = order.session;
    record.nVolume = Count(order.volume);
    record.nFilled = Count(order.filled);
    record.nRemaining = Count(order.Remaining());
    record.dPrice = YuanFromPrice(order.limit);
    return record;
}

CZebTrade RecordOf(const Trade& trade) {
    CZebTrade record{};
    text::CopyText(record.szContract, trade.contract);
    record.cDirection = Direction(trade.side);
    record.cOffset = trade.offset;
    record.cHedge = trade.hedge;
    CopyTime(record.szTime, trade.time);
    // The list orders trades by their number as text, so all have one width.
    text::FormatText(record.szTradeId, sizeof record.szTradeId, "%010lld",
                     static_cast<long long>(trade.id));
    text::FormatText(record.szTradeNo, sizeof record.szTradeNo, "%010lld",
                     static_cast<long long>(trade.id));
    text::FormatText(record.szOrderNo, sizeof record.szOrderNo, "%d", trade.order);
    record.nVolume = Count(trade.volume);
    record.nTradeDate = trade.day;
    record.dPrice = YuanFromPrice(trade.price);
    return record;
}

PositionGroup RecordOf(const Lot& lot, Day today) {
    PositionGroup record{};
    record.nGroupID = lot.id;
    record.nOrderKind = kGroupPlain;
    text::CopyText(record.szExchange, lot.exchange);
    text::CopyText(record.szContract, lot.contract);
    record.cDirection = Direction(lot.side);
    record.cHedge = lot.hedge;
    record.cDateType = lot.day == today ? kDateToday : kDateYesterday;
    record.nVolume = Count(lot.volume);
    record.nFrozen = Count(lot.frozen);
    record.dOpenPrice = YuanFromPrice(lot.open_price);
    record.nSession = static_cast<std::uint8_t>(lot.session);
    record.nPlannedVolume = record.nVolume;
    // One that has fired protects nothing any more.
    if (!lot.has_stop || lot.stop.triggered) return record;
    const CPresetStop& stop = lot.stop.record;
    record.dTakeProfit = stop.dProfitTicks;
    record.dPullback = stop.dProfitPullback;
    record.dStopLoss = stop.dStopTicks;
    record.dFloat = stop.dStopFloat;
    record.dLongTakeProfit = stop.dLongProfit;
    record.dLongStopLoss = stop.dLongStop;
    record.dShortTakeProfit = stop.dShortProfit;
    record.dShortStopLoss = stop.dShortStop;
    record.dFloatBase = YuanFromPrice(lot.stop.float_base);
    return record;
}

CZebContract RecordOf(const ContractTerms& terms) {
    CZebContract record{};
    text::CopyText(record.szExchange, terms.exchange);
    text::CopyText(record.szContract, terms.contract);
    record.nUnit = terms.unit;
    record.nPriceDigits = terms.digits;
    record.dPriceTick = YuanFromPrice(terms.tick);
    text::CopyText(record.szMarket, terms.market);
    return record;
}

std::vector<CZebOrder> OrderRecords(const State& state) {
    std::vector<CZebOrder> records;
    records.reserve(state.orders.size());
    for (const auto& [id, order] : state.orders) records.push_back(RecordOf(order));
    return records;
}

std::vector<CZebTrade> TradeRecords(const State& state) {
    std::vector<CZebTrade> records;
    records.reserve(state.trades.size());
    for (const Trade& trade : state.trades) records.push_back(RecordOf(trade));
    return records;
}

std::vector<PositionGroup> LotRecords(const State& state) {
    std::vector<PositionGroup> records;
    records.reserve(state.lots.size());
    for (const auto& [id, lot] : state.lots) records.push_back(RecordOf(lot, state.day));
    return records;
}

std::vector<CZebPosition> PositionRecords(const State& state) {
    std::vector<CZebPosition> records;
    for (const Position& position : Positions(state)) records.push_back(RecordOf(position));
    return records;
}

std::vector<CZebContract> ContractRecords(const TermsTable& terms, Day day) {
    std::vector<CZebContract> records;
    for (const std::string& contract : terms.Contracts()) {
        const ContractTerms* found = terms.Find(contract, day);
        if (found) records.push_back(RecordOf(*found));
    }
    return records;
}

void FillSummary(const Funds& funds, CZebAccountSummary& summary) {
    text::CopyText(summary.Balance, PlainMoneyText(funds.balance));
    text::CopyText(summary.Commission, PlainMoneyText(funds.commission));
    text::CopyText(summary.CurrMargin, PlainMoneyText(funds.margin));
    text::CopyText(summary.FrozenMargin, PlainMoneyText(funds.frozen));
    text::CopyText(summary.Available, PlainMoneyText(funds.available));
    text::CopyText(summary.Margin1, "0.00");
    text::CopyText(summary.Margin2, "0.00");
    text::CopyText(summary.Margin3, "0.00");
}

CTradeParam DefaultTradeParam() {
    constexpr std::uint8_t kBehindByOne = 5;
    CTradeParam param{};
    param.nPanelBuy[1] = kBehindByOne;
    param.nPanelSell[1] = kBehindByOne;
    param.nStopTicks = 1;
    param.nProfitTicks = 1;
    param.nStopTriggerPrice = 1;
    param.nProfitTriggerPrice = 1;
    return param;
}

CTradeParam TradeParamOf(const State& state) {
    return state.trade_param_set ? std::bit_cast<CTradeParam>(state.trade_param)
                                 : DefaultTradeParam();
}

std::string WholeText(std::string_view text) {
    std::string whole(text);
    whole.resize(text::PrefixLength(whole + ' ', text.size()));
    return whole;
}

OrderRequest RequestOf(const CInsertOrderRequest& record, int price_code, int source) {
    OrderRequest request;
    request.exchange = WholeText(text::FieldText(record.szExchange));
    request.contract = WholeText(text::FieldText(record.szContract));
    request.price = WholeText(text::FieldText(record.szPrice));
    request.note = WholeText(text::FieldText(record.szNote));
    request.direction = record.cDirection;
    request.offset = record.cOffset;
    request.hedge = record.cHedge;
    request.order_type = record.cOrderType;
    request.volume = record.nVolume;
    request.lot = record.nGroupID;
    request.source = source;
    request.price_code = price_code;
    request.bytes.assign(reinterpret_cast<const char*>(&record), sizeof record);
    return request;
}

}  // namespace papercore
