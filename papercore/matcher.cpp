#include "papercore/matcher.h"

#include <map>

#include "papercore/matcher_book.h"

namespace papercore {
namespace {

/// Whether what an order could not take waits. The others are for what the market shows now.
bool Rests(const Order& order) {
    if (order.limit <= 0) return false;
    switch (order.kind) {
        case OrderKind::kLimit:
        case OrderKind::kBestFiveThenLimit:
        case OrderKind::kOpponentBest:
        case OrderKind::kOwnBest: return true;
        case OrderKind::kMarket:
        case OrderKind::kBestFiveOrCancel:
        case OrderKind::kFillAndKill:
        case OrderKind::kFillOrKill: return false;
    }
    return false;
}

}  // namespace

struct Matcher::Books {
    explicit Books(ShrinkRule shrink) : rule(shrink) {}

    ShrinkRule rule;
    std::map<std::string, Book, std::less<>> by_contract;

    Book& Of(const std::string& contract) {
        const auto found = by_contract.find(contract);
        if (found != by_contract.end()) return found->second;
        return by_contract.try_emplace(contract, rule).first->second;
    }
};

Matcher::Matcher(ShrinkRule rule) : books_(std::make_unique<Books>(rule)) {}

Matcher::~Matcher() = default;

std::vector<Fill> Matcher::Add(const Order& order) {
    if (order.Remaining() <= 0) return {};
    Book& book = books_->Of(order.contract);
    book.Remove(order.id);
    std::int64_t left = order.Remaining();
    std::vector<Fill> fills = book.Take(order, left);
    if (left > 0 && Rests(order)) book.Rest(order.side, order.limit, order.id, left);
    return fills;
}

void Matcher::Remove(const std::string& contract, OrderId order) {
    const auto found = books_->by_contract.find(contract);
    if (found != books_->by_contract.end()) found->second.Remove(order);
}

std::vector<Fill> Matcher::OnQuote(const Quote& quote) {
    std::vector<Fill> fills;
    books_->Of(quote.contract).OnQuote(quote, fills);
    return fills;
}

const Quote* Matcher::LastQuote(const std::string& contract) const {
    const auto found = books_->by_contract.find(contract);
    return found == books_->by_contract.end() ? nullptr : found->second.Last();
}

std::int64_t Matcher::QueueAhead(OrderId order) const {
    for (const auto& [contract, book] : books_->by_contract) {
        const std::int64_t ahead = book.QueueAhead(order);
        if (ahead >= 0) return ahead;
    }
    return -1;
}

}  // namespace papercore
