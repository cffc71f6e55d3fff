#include "orderentry/contract_rules.h"

#include <map>
#include <memory>

#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/host_function.h"

namespace {

using ContractTable = std::map<std::string, std::unique_ptr<CZebContract>>;

ContractTable& Contracts() {
    static ContractTable table;
    return table;
}

ULONG_PTR Ask(UINT message, WPARAM wParam, const void* record) {
    return g_pfnHostCallBack(message, wParam, reinterpret_cast<LPARAM>(record));
}

}  // namespace

void CContractManager::AddContract(const CZebContract& contract) {
    auto& place = Contracts()[std::string(text::FieldText(contract.szContract))];
    if (place == nullptr) place = std::make_unique<CZebContract>(contract);
}

void CContractManager::ClearContracts() { Contracts().clear(); }

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
