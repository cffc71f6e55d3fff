#pragma once

#include <map>
#include <string>

#include "orderentry/contract_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/order_records.h"

namespace tests {

/// The contracts that a container holds for its pages.
class TradedContracts : public ContractSource {
public:
    const CZebContract* FindContractByCode(const char* code) const override {
        const auto found = contracts_.find(code);
        return found != contracts_.end() ? &found->second : nullptr;
    }
    void Add(const char* code, const char* market, int digits) {
        CZebContract contract{};
        text::CopyText(contract.szContract, code);
        text::CopyText(contract.szMarket, market);
        contract.nPriceDigits = digits;
        contracts_[code] = contract;
    }
    void Clear() { contracts_.clear(); }

private:
    std::map<std::string, CZebContract, std::less<>> contracts_;
};

/// Two lots of gold bought at 300.5.
inline CZebTrade MakeTrade(const char* number, const char* order = "7",
                           const char* contract = "Au(T+D)") {
    CZebTrade trade{};
    text::CopyText(trade.szContract, contract);
    text::CopyText(trade.szTime, "09:30:15");
    text::CopyText(trade.szTradeNo, number);
    text::CopyText(trade.szOrderNo, order);
    trade.cDirection = '0';
    trade.cOffset = '0';
    trade.nVolume = 2;
    trade.dPrice = 300.5;
    return trade;
}

}  // namespace tests
