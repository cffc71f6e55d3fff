#include "orderentry/contract_rules.h"

#include <cstring>
#include <map>
#include <memory>
#include <string_view>

#include "orderentry/number_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/host_function.h"
#include "plugin/settings/process_values.h"

namespace {

using ContractTable = std::map<std::string, std::unique_ptr<CZebContract>>;

ContractTable& Contracts() {
    static ContractTable table;
    return table;
}

ULONG_PTR Ask(UINT message, WPARAM wParam, const void* record) {
    return g_pfnHostCallBack(message, wParam, reinterpret_cast<LPARAM>(record));
}

constexpr char kSpotMarket[] = "GT-S";

struct ProductFactor {
    std::string_view code;
    MarginProduct product;
};
constexpr ProductFactor kProducts[] = {
    {"Ag(T+D)", MARGIN_AG_TD}, {"Au(T+D)", MARGIN_AU_TD},  {"mAu(T+D)", MARGIN_MAU_TD},
    {"Au100g", MARGIN_AU100G}, {"Au99.99", MARGIN_AU9999}, {"Au99.95", MARGIN_AU9995},
};

/// Is there a factor of the contract's own?
bool FindContractMargin(const std::string& code, double* factor) {
    constexpr double kNone = 1e-7;
    const auto found = g_mapContractMargin.find(code);
    if (found == g_mapContractMargin.end() || !(found->second > kNone)) return false;
    *factor = found->second;
    return true;
}

double MarginFactor(const CZebContract& contract) {
    const std::string code = ContractCode(contract);
    double factor = 0;
    if (FindContractMargin(code, &factor)) return factor;
    for (const ProductFactor& product : kProducts) {
        if (product.code == code) return g_dMarginFactor[product.product];
    }
    return 0;
}

}  // namespace

std::string ContractCode(const CZebContract& contract) {
    return std::string(text::FieldText(contract.szContract));
}

bool IsSpot(const CZebContract& contract) {
    // With its terminator. Lists ask this for each row.
    static_assert(sizeof contract.szMarket >= sizeof kSpotMarket);
    return std::memcmp(contract.szMarket, kSpotMarket, sizeof kSpotMarket) == 0;
}

bool HasOffset(const char* code) {
    const CZebContract* const contract = CContractManager::FindContract(code ? code : "");
    return contract == nullptr || !IsSpot(*contract);
}

double GetMarginPerLot(const CZebContract* contract, double price) {
    return contract != nullptr ? price * MarginFactor(*contract) : 0;
}

int GetMarginPerLotInt(const CZebContract* contract, double price) {
    return Truncated(GetMarginPerLot(contract, price));
}

void CContractManager::AddContract(const CZebContract& contract) {
    auto& place = Contracts()[ContractCode(contract)];
    if (place == nullptr) place = std::make_unique<CZebContract>(contract);
}

void CContractManager::ClearContracts() { Contracts().clear(); }

// Callers hand over texts of their own: the signature takes a copy.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
CZebContract* CContractManager::FindContract(std::string code) {
    const auto found = Contracts().find(code);
    return found != Contracts().end() ? found->second.get() : nullptr;
}

bool GetSymbolByName(CHostSymbol* symbol, const char* code) {
    if (g_pfnHostCallBack == nullptr || code == nullptr) return false;
    return Ask(HOST_FIND_SYMBOL, reinterpret_cast<WPARAM>(symbol), code) == 0 &&
           symbol->szCode[0] != '\0';
}

void GetQuote(JSDyn1* quote, unsigned int key) {
    if (g_pfnHostCallBack != nullptr) Ask(HOST_GET_QUOTE, key, quote);
}

bool GetQuoteByName(JSDyn1* quote, const char* code) {
    CHostSymbol symbol{};
    if (!GetSymbolByName(&symbol, code)) return false;
    GetQuote(quote, PackSymbol(symbol));
    return true;
}

void SubscribeSymbol(const char* code) {
    CHostSymbol symbol{};
    if (GetSymbolByName(&symbol, code)) Ask(HOST_SUBSCRIBE, PackSymbol(symbol), nullptr);
}

bool GetSymbolInfo(unsigned short market, unsigned short code, CHostSymbol* symbol) {
    if (g_pfnHostCallBack == nullptr) return false;
    const WPARAM key = market | static_cast<WPARAM>(code) << 16;
    return Ask(HOST_GET_SYMBOL, key, symbol) == 0 && symbol->szCode[0] != '\0';
}
