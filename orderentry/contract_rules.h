#pragma once

#include <string>

#include "plugin/contract/market_records.h"

/// The process-wide table of contracts by code. It holds copies; a pointer out of it is good until
/// the next ClearContracts. The windows' thread only.
class CContractManager {
public:
    virtual ~CContractManager() = default;

    /// The first record of a code stays.
    static void AddContract(const CZebContract& contract);
    static void ClearContracts();
    /// Null when there is no such contract.
    static CZebContract* FindContract(std::string code);
};

/// Who holds the contracts in the core's order. Pages of other folders get it from their container.
class ContractSource {
public:
    virtual ~ContractSource() = default;
    /// Null until the contracts are loaded, and for an unknown code.
    virtual const CZebContract* FindContractByCode(const char* code) const = 0;
};

// Questions to the host. Without a host nothing is found.

/// False when the host does not know the contract.
bool GetSymbolByName(CHostSymbol* symbol, const char* code);
void GetQuote(JSDyn1* quote, unsigned int key);
/// False when the host does not know the contract.
bool GetQuoteByName(JSDyn1* quote, const char* code);
/// Tells the host which contract the order page shows.
void SubscribeSymbol(const char* code);
/// The symbol with its decimal places; false when the host does not know it.
bool GetSymbolInfo(unsigned short market, unsigned short code, CHostSymbol* symbol);

/// market | code << 16, as quotes carry it.
inline unsigned int PackSymbol(const CHostSymbol& symbol) {
    return symbol.wMarket | static_cast<unsigned int>(symbol.wCode) << 16;
}
