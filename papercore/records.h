#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "papercore/contract_terms.h"
#include "papercore/engine_requests.h"
#include "papercore/state.h"
#include "plugin/contract/account_records.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/order_records.h"
#include "plugin/contract/position_records.h"

// The account as the front end's records have it.

namespace papercore {

CZebOrder RecordOf(const Order& order);
CZebTrade RecordOf(const Trade& trade);
PositionGroup RecordOf(const Lot& lot, Day today);
CZebContract RecordOf(const ContractTerms& terms);

std::vector<CZebOrder> OrderRecords(const State& state);
std::vector<CZebTrade> TradeRecords(const State& state);
/// Oldest first.
std::vector<PositionGroup> LotRecords(const State& state);
/// One for each contract and side. Profits are 0: the front end takes them from the quote.
std::vector<CZebPosition> PositionRecords(const State& state);
std::vector<CZebContract> ContractRecords(const TermsTable& terms, Day day);

/// Fills the figures of a zeroed record, which is too large for a stack.
void FillSummary(const Funds& funds, CZebAccountSummary& summary);

/// What a user gets who has set nothing.
CTradeParam DefaultTradeParam();
CTradeParam TradeParamOf(const State& state);

/// A text of somebody else's without a lone half of a character at its end, which would swallow the
/// first byte of what is put behind it.
std::string WholeText(std::string_view text);

/// The words of a request, bounded, and its bytes.
OrderRequest RequestOf(const CInsertOrderRequest& record, int price_code, int source);

}  // namespace papercore
