#include "lists/position_stop_rules.h"

#include "platform/text/bounded_text.h"
#include "plugin/contract/codes.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

namespace lists {

namespace {

template <class First, class Second>
bool OnSameSide(const First& first, const Second& second) {
    return text::FieldText(first.szExchange) == text::FieldText(second.szExchange) &&
           text::FieldText(first.szContract) == text::FieldText(second.szContract) &&
           first.cDirection == second.cDirection;
}

}  // namespace

std::string StopTitle(const PositionGroup& lot) {
    return std::string(text::FieldText(lot.szContract)) +
           (lot.cDirection == kDirectionBuy ? " 买入方向" : " 卖出方向") + " 设置止盈止损";
}

CPresetStop ReadGroupStop(const PositionGroup& lot) {
    CPresetStop stop{};
    if (CUICallBack* const core = GetUICallBack()) core->GetGroupStop(lot.nGroupID, &stop);
    text::CopyText(stop.szExchange, text::FieldText(lot.szExchange));
    text::CopyText(stop.szContract, text::FieldText(lot.szContract));
    return stop;
}

void StoreGroupStop(const PositionGroup& lot, CPresetStop stop) {
    if (text::FieldText(stop.szContract) != text::FieldText(lot.szContract)) return;
    if (CUICallBack* const core = GetUICallBack()) core->SetGroupStop(lot.nGroupID, &stop);
}

bool IsLotOf(const PositionGroup& lot, const CZebPosition& total) { return OnSameSide(lot, total); }

bool IsSameSide(const PositionGroup& lot, const PositionGroup& other) {
    return OnSameSide(lot, other);
}

PositionGroup AsLot(const CZebPosition& total) {
    PositionGroup row{};
    text::CopyText(row.szExchange, text::FieldText(total.szExchange));
    text::CopyText(row.szContract, text::FieldText(total.szContract));
    row.cDirection = total.cDirection;
    row.cHedge = total.cHedge;
    row.cDateType = total.cDateType;
    row.nVolume = total.nVolume;
    row.nFrozen = total.nFrozen;
    return row;
}

}  // namespace lists
