#pragma once

class EventCall;

// What the core's events do, one function each. Each runs on the windows' thread; the block is
// freed by its caller.

namespace events {

// Session
void OnConnectionLost(EventCall& call);
void OnSettleResult(EventCall& call);
void OnContractsReady(EventCall& call);
void OnLoginResult(EventCall& call);
void OnPasswordResult(EventCall& call);
void OnInitialLoadDone(EventCall& call);
void OnNotice(EventCall& call);
void OnSystemNotice(EventCall& call);

// Funds and bank
void OnAccountResult(EventCall& call);
void OnBankBalance(EventCall& call);
void OnBankTransferRow(EventCall& call);
void OnTransferDone(EventCall& call);

// Orders
void OnOrderRefused(EventCall& call);
void OnMaxVolumeResult(EventCall& call);
void OnOrderChange(EventCall& call);
void OnTrade(EventCall& call);

// Lists
void OnBatchQueryResult(EventCall& call);
void OnPositionList(EventCall& call);
void OnTradeList(EventCall& call);
void OnOrderList(EventCall& call);
void OnTradeExportDone(EventCall& call);
void OnPositionGroupList(EventCall& call);
void OnCombinationMsg(EventCall& call);

// Replies of the generic function channel
void OnFunctionResult(EventCall& call);

/// Hands the settlement page's margin call value to the core.
void ReportMarginCall(EventCall& call);

}  // namespace events
