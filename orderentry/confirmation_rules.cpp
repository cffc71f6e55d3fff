#include "orderentry/confirmation_rules.h"

#include <string>

#include "orderentry/contract_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/codes.h"

namespace {

struct OrderTypeName {
    char type;
    const char* text;
};
constexpr OrderTypeName kOrderTypes[] = {
    {kOrderTypeLimit, "限价"},
    {kOrderTypeMarket, "市价"},
    {'a', "最优五档立即成交剩余撤单"},
    {'b', "最优五档立即成交剩余转限价"},
    {'c', "立即成交剩余撤单"},
    {'d', "全部成交否则撤单"},
    {'e', "对方最优价格"},
    {'f', "本方最优价格"},
};

const char* OffsetText(const CInsertOrderRequest& request) {
    const std::string code(text::FieldText(request.szContract));
    if (!HasOffset(code.c_str())) return "-";
    if (request.cOffset == kOffsetOpen) return "开仓";
    return request.cOffset == kOffsetClose ? "平仓" : "自动";
}

template <std::size_t N>
void Write(char (&line)[N], const char* label, std::string_view content) {
    text::CopyText(line, label);
    text::AppendText(line, content);
}

}  // namespace

bool MustConfirm(const CTradeParam& param, OrderOrigin origin) {
    if (param.bNoOrderConfirm == 0) return true;
    return origin == OrderOrigin::kQuickClose && param.bNoCloseConfirm == 0;
}

const char* OrderTypeText(char type) {
    for (const OrderTypeName& name : kOrderTypes) {
        if (name.type == type) return name.text;
    }
    return "未知";
}

ConfirmationText DescribeOrder(const CInsertOrderRequest& request) {
    ConfirmationText lines{};
    const int volume = request.nVolume;
    Write(lines.contract, "合约代码：", text::FieldText(request.szContract));
    Write(lines.direction, "买卖方向：", request.cDirection == kDirectionBuy ? "买" : "卖");
    Write(lines.offset, "开平方向：", OffsetText(request));
    Write(lines.price, "委托价格：", text::FieldText(request.szPrice));
    Write(lines.volume, "委托数量：", std::to_string(volume) + "手");
    Write(lines.order_type, "委托方式：", OrderTypeText(request.cOrderType));
    return lines;
}

COLORREF ConfirmationColor(const CInsertOrderRequest& request) {
    constexpr COLORREF kBuyColor = 0x0A0AF4;
    constexpr COLORREF kSellColor = 0x019900;
    return request.cDirection == kDirectionBuy ? kBuyColor : kSellColor;
}
