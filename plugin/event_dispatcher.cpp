#include "plugin/event_dispatcher.h"

#include <algorithm>
#include <iterator>

#include "plugin/contract/ui_callback.h"
#include "plugin/event_call.h"
#include "plugin/event_cases.h"

namespace {

/// What lParam is, and who frees it.
enum class Payload {
    kBlock,    ///< a tagged block or null; freed here
    kForeign,  ///< a number, or memory that somebody else frees
};

struct Case {
    CoreEvent code;
    Payload payload;
    void (*run)(EventCall& call);
};

constexpr Case kCases[] = {
    {EV_CONNECTION_LOST, Payload::kForeign, events::OnConnectionLost},
    {EV_SETTLE_RESULT, Payload::kForeign, events::OnSettleResult},
    {EV_INSERT_REJECTED, Payload::kBlock, events::OnOrderRefused},
    {EV_CANCEL_RESULT, Payload::kBlock, events::OnOrderRefused},
    {EV_CONTRACTS_READY, Payload::kForeign, events::OnContractsReady},
    {EV_LOGIN_RESULT, Payload::kForeign, events::OnLoginResult},
    {EV_ACCOUNT_RESULT, Payload::kBlock, events::OnAccountResult},
    {EV_PASSWORD_RESULT, Payload::kBlock, events::OnPasswordResult},
    {EV_MAX_VOLUME_RESULT, Payload::kBlock, events::OnMaxVolumeResult},
    {EV_ORDER_CHANGE, Payload::kBlock, events::OnOrderChange},
    {EV_TRADE, Payload::kBlock, events::OnTrade},
    {EV_INITIAL_LOAD_DONE, Payload::kForeign, events::OnInitialLoadDone},
    {EV_BANK_BALANCE, Payload::kBlock, events::OnBankBalance},
    {EV_BANK_TRANSFER_ROW, Payload::kBlock, events::OnBankTransferRow},
    {EV_TRANSFER_KIND1_DONE, Payload::kBlock, events::OnTransferDone},
    {EV_TRANSFER_KIND2_DONE, Payload::kBlock, events::OnTransferDone},
    {EV_NOTICE, Payload::kBlock, events::OnNotice},
    {EV_BATCH_QUERY_RESULT, Payload::kBlock, events::OnBatchQueryResult},
    {EV_POSITION_LIST, Payload::kForeign, events::OnPositionList},
    {EV_SYSTEM_NOTICE, Payload::kBlock, events::OnSystemNotice},
    {EV_TRADE_LIST, Payload::kForeign, events::OnTradeList},
    {EV_ORDER_LIST, Payload::kForeign, events::OnOrderList},
    {EV_TRADE_EXPORT_DONE, Payload::kBlock, events::OnTradeExportDone},
    {EV_POSITION_GROUP_LIST, Payload::kForeign, events::OnPositionGroupList},
    {EV_COMBINATION_MSG, Payload::kBlock, events::OnCombinationMsg},
    {EV_FUNCTION_RESULT, Payload::kBlock, events::OnFunctionResult},
};

}  // namespace

void DispatchCoreEvent(CMainDlg& shell, WPARAM wParam, LPARAM lParam) {
    EventCall call(shell, wParam, lParam);
    const auto* found = std::find_if(std::begin(kCases), std::end(kCases),
                                     [&call](const Case& one) { return one.code == call.Code(); });
    if (found != std::end(kCases) && found->payload == Payload::kBlock) call.TakeBlock();
    if (CUICallBack* core = call.Core()) core->NotifyEvent(kModuleNumber, wParam, lParam);
    if (found == std::end(kCases)) return;
    // The core may have let the host close the main dialog; a login's block is taken over still.
    if (call.Shell() != nullptr || found->code == EV_LOGIN_RESULT) found->run(call);
}
