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

/// The record's code as a text of its own.
std::string ContractCode(const CZebContract& contract);

/// A spot contract knows neither opening nor closing.
bool IsSpot(const CZebContract& contract);
/// Do orders of this contract open and close? So do those of a contract that nobody knows.
bool HasOffset(const char* code);

/// Money that a lot takes at a price. Not positive: no factor is known here, and the core must be
/// asked. 0 without a contract and for a contract without a factor.
double GetMarginPerLot(const CZebContract* contract, double price);
/// The same without its fraction.
int GetMarginPerLotInt(const CZebContract* contract, double price);

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
