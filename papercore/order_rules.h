#pragma once

#include <string>

#include "papercore/contract_terms.h"
#include "papercore/engine_requests.h"
#include "papercore/quote.h"
#include "papercore/state.h"

// What becomes of an order's words before it is accepted. Every function answers with the reason
// of a refusal, with its numbers, or with nothing.

namespace papercore {

/// The plain facts of a request: contract, direction, offset, type and volume.
std::string CheckRequest(const OrderRequest& request, const ContractTerms& terms);

/// Whether the market takes orders now. A quote of another trading day is none of this day's.
std::string CheckMarket(const Quote* quote, Day today);

/// Finds the kind and the limit of an order: a number is the limit whatever the type says, words
/// are looked up in the quote as they arrive.
std::string ResolvePrice(const OrderRequest& request, const Quote& quote,
                         const ContractTerms& terms, Order& order);

/// Divides an order into what it closes, oldest lots first, and what it opens.
std::string Allocate(const State& state, const ContractTerms& terms, const OrderRequest& request,
                     Order& order);

/// How an order's volume may be used.
enum class Use : std::uint8_t { kOpen, kClose, kCloseToday, kNet };
/// A spot contract has no offsets: what is bought opens, what is sold closes.
Use UseOf(const ContractTerms& terms, Side side, char offset, int source);

/// Lots that orders of a side could still close.
std::int64_t Closable(const State& state, const std::string& contract, Side side, Use use);

}  // namespace papercore
