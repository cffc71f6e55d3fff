#include "lists/quick_close_rules.h"

#include <algorithm>
#include <cmath>

#include "orderentry/contract_rules.h"
#include "orderentry/number_rules.h"
#include "orderentry/price_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/codes.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

namespace lists {

namespace {

std::string LotsText(int lots) { return "平仓" + std::to_string(lots) + "手"; }

std::string PercentText(const CloseRatio& ratio) {
    return "平仓" + std::to_string(ratio.percent) + "%";
}

/// What the row decides, alike for totals and lots; only a lot has a group besides.
template <class Row>
CInsertOrderRequest CloseRequest(const Row& row, int lots) {
    CInsertOrderRequest request{};
    text::CopyText(request.szExchange, text::FieldText(row.szExchange));
    text::CopyText(request.szContract, text::FieldText(row.szContract));
    text::CopyText(request.szNote, "快捷平仓");
    request.cDirection = row.cDirection == kDirectionBuy ? kDirectionSell : kDirectionBuy;
    request.cOffset = row.cDateType == kDateToday ? kOffsetCloseToday : kOffsetClose;
    request.cHedge = row.cHedge;
    request.cOrderType = kOrderTypeLimit;
    request.nVolume = lots;
    request.nSession = row.nSession;
    return request;
}

/// Of a core that answers with a code that has no price the request carries -1, for the core to
/// refuse. A price that cannot be printed whole must not go out as another one.
bool SetClosePrice(PreparedClose& close, const CZebContract& contract) {
    CInsertOrderRequest& request = close.request;
    const double price = GetOrderPriceByType(close.param.nClosePriceType, request.cDirection,
                                             &contract, request.wMarket, request.wCode);
    return std::isfinite(price) && FormatPrice(request.szPrice, price, contract.nPriceDigits);
}

/// The settings as they are now, and whose order it is.
void TakeSettings(PreparedClose& close) {
    close.param = ReadTradeParam();
    CUICallBack* const core = GetUICallBack();
    if (core != nullptr) core->GetLoginAccount(&close.request.stAccount);
}

/// Adds what core, contract and host decide, or the problem.
void Complete(PreparedClose& close) {
    TakeSettings(close);
    const std::string code(text::FieldText(close.request.szContract));
    const CZebContract* const contract = CContractManager::FindContract(code);
    CHostSymbol symbol{};
    if (contract == nullptr || !GetSymbolByName(&symbol, code.c_str())) {
        close.problem = "快捷平仓未发送：没有合约" + code;
        return;
    }
    close.request.wMarket = symbol.wMarket;
    close.request.wCode = symbol.wCode;
    if (!SetClosePrice(close, *contract)) close.problem = "快捷平仓未发送：" + code + "没有价格";
}

}  // namespace

CloseOffer OfferClose(int available, const CloseRatio& ratio) {
    const int part = Truncated(available * ratio.ratio);
    if (ratio.at_least_one) {
        const int lots = available == 0 ? 0 : std::max(part, 1);
        return {.text = LotsText(lots), .enabled = available != 0, .lots = lots};
    }
    if (part < 1) return {.text = PercentText(ratio), .enabled = false, .lots = {}};
    return {.text = LotsText(part), .enabled = true, .lots = part};
}

CloseOffer NoCloseOffer(const CloseRatio& ratio) {
    CloseOffer offer = OfferClose(0, ratio);
    offer.text = PercentText(ratio);
    return offer;
}

PreparedClose PrepareCloseTotal(const CZebPosition& position, int lots) {
    PreparedClose close;
    close.request = CloseRequest(position, lots);
    close.is_close = true;
    Complete(close);
    close.price_type = close.param.nClosePriceType;
    return close;
}

PreparedClose PrepareCloseLot(const PositionGroup& lot, int lots) {
    PreparedClose close;
    close.request = CloseRequest(lot, lots);
    close.request.nGroupID = lot.nGroupID;
    Complete(close);
    close.price_type = PRICE_OTHER;
    return close;
}

}  // namespace lists
