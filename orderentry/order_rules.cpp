#include "orderentry/order_rules.h"

#include "orderentry/contract_rules.h"
#include "orderentry/number_rules.h"
#include "orderentry/price_rules.h"
#include "orderentry/volume_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/codes.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

namespace {

/// What counts before the price: contract, then volume.
OrderRefusal CheckTicket(const OrderTicket& ticket, int lots) {
    if (ticket.contract == nullptr || ticket.symbol.szCode[0] == '\0') {
        return OrderRefusal::kNoContract;
    }
    return lots < 1 ? OrderRefusal::kNoVolume : OrderRefusal::kNone;
}

PreparedOrder Begin(const OrderTicket& ticket) {
    PreparedOrder order;
    const int lots = ReadLots(ticket.volume_text);
    order.price_text = ticket.price_text != nullptr ? ticket.price_text : "";
    order.request.nVolume = lots;
    order.refusal = CheckTicket(ticket, lots);
    return order;
}

/// The host may have come to another symbol since the page asked.
void FillSymbol(CInsertOrderRequest& request, const OrderTicket& ticket) {
    CHostSymbol symbol{};
    const std::string code = ContractCode(*ticket.contract);
    const bool known = GetSymbolByName(&symbol, code.c_str());
    request.wMarket = known ? symbol.wMarket : ticket.symbol.wMarket;
    request.wCode = known ? symbol.wCode : ticket.symbol.wCode;
}

void FillAccount(CInsertOrderRequest& request) {
    CAccountInfo account{};
    if (CUICallBack* const core = GetUICallBack()) core->GetLoginAccount(&account);
    request.stAccount = account;
}

/// Everything but volume and price.
void FillRequest(PreparedOrder& order, const OrderTicket& ticket) {
    CInsertOrderRequest& request = order.request;
    order.param = ReadTradeParam();
    order.source = ticket.net ? kOrderSourceWithStops : kOrderSourcePlain;
    text::CopyText(request.szExchange, text::FieldText(ticket.contract->szExchange));
    text::CopyText(request.szContract, text::FieldText(ticket.contract->szContract));
    text::CopyText(request.szNote, ticket.net ? "净仓" : "手动下单");
    request.cDirection = ticket.direction;
    request.cOffset = ticket.net ? kOffsetNet : ticket.offset;
    request.cHedge = kHedgeSpeculation;
    request.cOrderType = order.price_type == PRICE_MARKET ? kOrderTypeMarket : kOrderTypeLimit;
    request.nGroupID = ticket.linked_position;
    FillSymbol(request, ticket);
    FillAccount(request);
}

bool SetEnteredPrice(CInsertOrderRequest& request, const std::string& text) {
    if (text::CopyText(request.szPrice, text)) return true;
    text::CopyText(request.szPrice, "");
    return false;
}

}  // namespace

bool SetOrderPrice(CInsertOrderRequest& request, double price, int digits) {
    // What prints as zero would be confirmed, and sent, as an order at no price at all.
    if (IsUsablePrice(price) && FormatPrice(request.szPrice, price, digits) &&
        ReadNumber(request.szPrice) > 0) {
        return true;
    }
    text::CopyText(request.szPrice, "");
    return false;
}

PreparedOrder PrepareOrder(const OrderTicket& ticket) {
    PreparedOrder order = Begin(ticket);
    if (order.refusal != OrderRefusal::kNone) return order;
    const char* const text = order.price_text.c_str();
    order.price_type = GetPriceType(text);
    const double price = GetOrderPrice(text, ticket.direction, ticket.contract,
                                       ticket.symbol.wMarket, ticket.symbol.wCode);
    if (SetOrderPrice(order.request, price, ticket.contract->nPriceDigits)) {
        FillRequest(order, ticket);
    } else {
        order.refusal = OrderRefusal::kNoPrice;
    }
    return order;
}

PreparedOrder PreparePanelOrder(const OrderTicket& ticket, double price_offset) {
    PreparedOrder order = Begin(ticket);
    if (order.refusal != OrderRefusal::kNone) return order;
    const char* const text = order.price_text.c_str();
    const bool moved = price_offset != 0;
    order.price_type = moved ? PRICE_OTHER : GetPriceType(text);
    const double price = GetPanelPrice(text, ticket.direction, ticket.contract);
    const int digits = ticket.contract->nPriceDigits;
    const bool told =
        IsUsablePrice(price) && (moved ? SetOrderPrice(order.request, price + price_offset, digits)
                                       : SetEnteredPrice(order.request, order.price_text));
    if (told) {
        FillRequest(order, ticket);
    } else {
        order.refusal = OrderRefusal::kNoPrice;
    }
    return order;
}

std::string RefusalText(const PreparedOrder& order) {
    constexpr std::size_t kTextSize = 64;
    char text[kTextSize] = {};
    switch (order.refusal) {
        case OrderRefusal::kNone: break;
        case OrderRefusal::kNoContract: return "请选择交易合约";
        case OrderRefusal::kNoVolume: return "错误的下单手数";
        case OrderRefusal::kNoPrice:
            text::FormatText(text, sizeof text, "%s没有数据", order.price_text.c_str());
            break;
    }
    return text;
}
