#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "plugin/contract/base_ui.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

namespace {

/// Place of a virtual operation in its class's table: the compilers in use keep 1 + its offset in
/// the first word of a pointer to it.
template <class Operation>
int SlotOf(Operation operation) {
    static_assert(std::is_member_function_pointer_v<Operation>);
    std::uintptr_t word;
    std::memcpy(&word, &operation, sizeof(word));
    return word % 2 == 1 ? static_cast<int>((word - 1) / sizeof(void*)) : -1;
}

struct Entry {
    const char* name;
    int slot;
};

#define SLOT(type, operation) \
    Entry { #operation, SlotOf(&type::operation) }

template <std::size_t N>
void ExpectInOrder(const Entry (&entries)[N]) {
    for (std::size_t i = 0; i < N; ++i) {
        EXPECT_EQ(entries[i].slot, static_cast<int>(i)) << entries[i].name;
    }
}

/// A further virtual operation gets the slot behind all of the base's.
template <class Base>
class Longer : public Base {
public:
    virtual void Further() = 0;

protected:
    ~Longer() = default;
};

TEST(BaseUi, OperationsStandInTheOrderHostsRelyOn) {
    const Entry entries[] = {
        SLOT(CBaseUI, SetUICallBack),
        SLOT(CBaseUI, OnLoginResult),
        SLOT(CBaseUI, OnQueryNoticeResult),
        SLOT(CBaseUI, OnQuerySettleResult),
        SLOT(CBaseUI, OnQueryCFMMCResult),
        SLOT(CBaseUI, OnLoginPrompt),
        SLOT(CBaseUI, OnBatchQueryResult),
        SLOT(CBaseUI, OnQueryAccountResult),
        SLOT(CBaseUI, OnQueryMarginRateResult),
        SLOT(CBaseUI, OnQueryMaxVolumeResult),
        SLOT(CBaseUI, OnQueryTradeByDateResult),
        SLOT(CBaseUI, OnInsertOrderResult),
        SLOT(CBaseUI, OnCancelOrderResult),
        SLOT(CBaseUI, OnChangePasswordResult),
        SLOT(CBaseUI, OnQueryBankBalanceResult),
        SLOT(CBaseUI, OnQueryBankTransferResult),
        SLOT(CBaseUI, OnQueryBankTransferWithLSHResult),
        SLOT(CBaseUI, OnBankTransferResult),
        SLOT(CBaseUI, OnOrderChange),
        SLOT(CBaseUI, OnTrade),
        SLOT(CBaseUI, OnNetworkStatus),
        SLOT(CBaseUI, OnExchangeStatus),
        SLOT(CBaseUI, OnSystemNotice),
        SLOT(CBaseUI, OnSystemInit),
        SLOT(CBaseUI, OnLowMemory),
        SLOT(CBaseUI, OnError),
        SLOT(CBaseUI, OnUpdateOrderList),
        SLOT(CBaseUI, OnUpdateTradeList),
        SLOT(CBaseUI, OnUpdatePositionList),
        SLOT(CBaseUI, OnUpdatePositionDetailList),
        SLOT(CBaseUI, OnUpdatePositionGroupList),
        SLOT(CBaseUI, OnStopProfitLossMsg),
        SLOT(CBaseUI, OnChasePriceMsg),
        SLOT(CBaseUI, OnCombinationMsg),
        SLOT(CBaseUI, OnUpdateChasePriceList),
        SLOT(CBaseUI, OnResult_WithReturnData),
        SLOT(CBaseUI, OnHeartRequestResult),
        SLOT(CBaseUI, OnSize),
        SLOT(CBaseUI, OnCodeListChanged),
        SLOT(CBaseUI, OnDestroyWindow),
        SLOT(CBaseUI, ShowWindow),
        SLOT(CBaseUI, OnDyn),
        SLOT(CBaseUI, GetStkList),
        SLOT(CBaseUI, SetFrameWnd),
        SLOT(CBaseUI, OnRefresh),
        SLOT(CBaseUI, CurStkChanged),
        SLOT(CBaseUI, CreatePanel),
        SLOT(CBaseUI, Create),
        SLOT(CBaseUI, gMouseDown),
        SLOT(CBaseUI, Close),
        SLOT(CBaseUI, LockScreen),
        SLOT(CBaseUI, CodeTableChanged),
        SLOT(CBaseUI, GetMainDlg),
        SLOT(CBaseUI, GetMenuCtrl),
        SLOT(CBaseUI, ShowWindow_Script),
        SLOT(CBaseUI, CreateConditionOrderDlg),
        SLOT(CBaseUI, GetConditionParentDlg),
    };
    ExpectInOrder(entries);
    EXPECT_EQ(std::size(entries), 57u);
    EXPECT_EQ(SlotOf(&Longer<CBaseUI>::Further), 57);
    EXPECT_EQ(sizeof(CBaseUI), sizeof(void*)) << "an interface holds no data";
}

TEST(UiCallBack, OperationsStandInTheOrderCoresRelyOn) {
    const Entry entries[] = {
        SLOT(CUICallBack, GetSkinBitmap),
        SLOT(CUICallBack, GetSkinColor),
        SLOT(CUICallBack, GetPositionDetailList),
        SLOT(CUICallBack, GetPositionGroupList),
        SLOT(CUICallBack, GetPositionGroupDetail),
        SLOT(CUICallBack, GetPositionGroupLegs),
        SLOT(CUICallBack, SetPresetStop),
        SLOT(CUICallBack, GetPresetStop),
        SLOT(CUICallBack, GetGroupStop),
        SLOT(CUICallBack, SetGroupStop),
        SLOT(CUICallBack, InsertOrder),
        SLOT(CUICallBack, StartStopMonitor),
        SLOT(CUICallBack, IsLoggedIn),
        SLOT(CUICallBack, GetGroupFloatingProfit),
        SLOT(CUICallBack, QueryInitial1),
        SLOT(CUICallBack, QueryInitial3),
        SLOT(CUICallBack, QueryInitial2),
        SLOT(CUICallBack, GetTradeParam),
        SLOT(CUICallBack, SetTradeParam),
        SLOT(CUICallBack, SetLoginRoute),
        SLOT(CUICallBack, Logout),
        SLOT(CUICallBack, StartSession),
        SLOT(CUICallBack, RefreshOrders),
        SLOT(CUICallBack, QueryTradeByDate),
        SLOT(CUICallBack, QueryAccount),
        SLOT(CUICallBack, QueryMaxVolume),
        SLOT(CUICallBack, CancelOrder),
        SLOT(CUICallBack, ChangePassword),
        SLOT(CUICallBack, QueryBankBalance),
        SLOT(CUICallBack, QueryBankTransfer),
        SLOT(CUICallBack, BankTransfer),
        SLOT(CUICallBack, GetContractList),
        SLOT(CUICallBack, GetOrderList),
        SLOT(CUICallBack, GetTradeList),
        SLOT(CUICallBack, GetPositionList),
        SLOT(CUICallBack, GetBankList),
        SLOT(CUICallBack, ShowStatusText),
        SLOT(CUICallBack, GetPromptText),
        SLOT(CUICallBack, ShowLoginProgress),
        SLOT(CUICallBack, GetLoginAccount),
        SLOT(CUICallBack, BeginTrading),
        SLOT(CUICallBack, SetAccountDisplayName),
        SLOT(CUICallBack, ApplyTradeParam),
        SLOT(CUICallBack, SetFundsText),
        SLOT(CUICallBack, GetPanelBackColor),
        SLOT(CUICallBack, GetContractUnit),
        SLOT(CUICallBack, Login),
        SLOT(CUICallBack, SendFunctionRequest),
        SLOT(CUICallBack, NotifyEvent),
        SLOT(CUICallBack, NotifyInitDone),
        SLOT(CUICallBack, ForwardEvent),
        SLOT(CUICallBack, GetLoginResult),
        SLOT(CUICallBack, ReportSettlementText),
    };
    ExpectInOrder(entries);
    EXPECT_EQ(SlotOf(&Longer<CUICallBack>::Further), static_cast<int>(std::size(entries)));
}

TEST(Interfaces, CannotBeDestroyedThroughTheBase) {
    static_assert(!std::is_destructible_v<CBaseUI> && !std::has_virtual_destructor_v<CBaseUI>);
    static_assert(!std::is_destructible_v<CUICallBack>);
    EXPECT_EQ(GetUICallBack(), nullptr);
    EXPECT_EQ(g_pfnHostCallBack, nullptr);
}

}  // namespace
