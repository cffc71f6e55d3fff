#include "tests/support/front_end/recording_host.h"

#include <algorithm>
#include <utility>

#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"

namespace tests {

namespace {

RecordingHost* newest_host = nullptr;

std::string KeyText(WPARAM key) {
    return std::to_string(key & 0xFFFF) + "|" + std::to_string(key >> 16 & 0xFFFF);
}

std::string Number(ULONG_PTR value) { return std::to_string(value); }

template <class Value>
Value* Address(ULONG_PTR parameter) {
    return reinterpret_cast<Value*>(parameter);
}

}  // namespace

RecordingHost::RecordingHost() : former_(std::exchange(newest_host, this)) {}

RecordingHost::~RecordingHost() { newest_host = former_; }

WPARAM RecordingHost::AddSymbol(std::string_view contract, int market, int code, int digits) {
    const std::lock_guard lock(mutex_);
    CHostSymbol record{};
    record.wMarket = static_cast<std::uint16_t>(market);
    record.wCode = static_cast<std::uint16_t>(code);
    record.nDigits = digits;
    text::CopyText(record.szCode, contract);
    const WPARAM key = SymbolKey(market, code);
    symbols_[key] = {std::string(contract), record};
    return key;
}

void RecordingHost::SetQuote(WPARAM key, const JSDyn1& quote) {
    const std::lock_guard lock(mutex_);
    quotes_[key] = quote;
}

std::vector<std::string> RecordingHost::Calls() const {
    const std::lock_guard lock(mutex_);
    return calls_;
}

std::vector<std::string> RecordingHost::TakeCalls() {
    const std::lock_guard lock(mutex_);
    return std::exchange(calls_, {});
}

std::vector<std::string> RecordingHost::CallsOf(std::string_view name) const {
    const std::string start = std::string(name) + "(";
    std::vector<std::string> calls = Calls();
    std::erase_if(calls, [&](const std::string& line) { return !line.starts_with(start); });
    return calls;
}

ULONG_PTR CALLBACK RecordingHost::Function(UINT message, WPARAM wParam, LPARAM lParam) {
    return newest_host ? newest_host->Answer(message, wParam, lParam) : 0;
}

void RecordingHost::Record(std::string_view name, const std::string& arguments) {
    calls_.push_back(std::string(name) + "(" + arguments + ")");
}

ULONG_PTR RecordingHost::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
    const std::lock_guard lock(mutex_);
    const auto value = static_cast<ULONG_PTR>(lParam);
    const std::string both = Number(wParam) + ", " + Number(value);
    switch (message) {
        case HOST_FIND_SYMBOL:
            return FindSymbol(Address<CHostSymbol>(wParam), Address<const char>(value));
        case HOST_GET_QUOTE: return Quote(wParam, Address<JSDyn1>(value));
        case HOST_SUBSCRIBE: Record("HOST_SUBSCRIBE", KeyText(wParam)); return 0;
        case HOST_GET_SYMBOL: return SymbolOfKey(wParam, Address<CHostSymbol>(value));
        case HOST_COMBINATION_ACTION: Record("HOST_COMBINATION_ACTION", both); return 0;
        case HOST_PAGE_CREATED: Record("HOST_PAGE_CREATED", both); return 0;
        case HOST_PAGE_DESTROYED: Record("HOST_PAGE_DESTROYED", both); return 0;
        case HOST_GET_PANEL_FONT:
            Record("HOST_GET_PANEL_FONT", both);
            return reinterpret_cast<ULONG_PTR>(panel_font);
        case HOST_CONTRACTS_LOADED: Record("HOST_CONTRACTS_LOADED", both); return 0;
        case HOST_GET_REPORT_DATA:
            return ReportData(Address<char>(wParam), Address<const char>(value));
        default: Record("unknown", Number(message) + ", " + both); return 0;
    }
}

ULONG_PTR RecordingHost::FindSymbol(CHostSymbol* symbol, const char* contract) {
    const std::string_view wanted = contract ? contract : "";
    Record("HOST_FIND_SYMBOL", std::string(wanted));
    for (const auto& entry : symbols_) {
        if (entry.second.contract != wanted) continue;
        *symbol = entry.second.record;
        symbol->nDigits = 0;  // only a look-up by key tells them
        return 0;
    }
    return 1;
}

ULONG_PTR RecordingHost::SymbolOfKey(WPARAM key, CHostSymbol* symbol) {
    Record("HOST_GET_SYMBOL", KeyText(key));
    const auto found = symbols_.find(key);
    if (found == symbols_.end()) return 1;
    *symbol = found->second.record;
    return 0;
}

ULONG_PTR RecordingHost::Quote(WPARAM key, JSDyn1* quote) {
    Record("HOST_GET_QUOTE", KeyText(key));
    const auto found = quotes_.find(key);
    if (found != quotes_.end()) *quote = found->second;
    return 0;
}

ULONG_PTR RecordingHost::ReportData(char* buffer, const char* challenge) {
    Record("HOST_GET_REPORT_DATA", challenge ? challenge : "");
    const std::size_t count =
        std::min(report_data.size(), static_cast<std::size_t>(kHostReportSize));
    std::copy_n(report_data.begin(), count, buffer);
    return count;
}

FrontEndDoors::FrontEndDoors(CUICallBack& core)
    : core_(std::exchange(g_pUICallBack, &core)), host_(g_pfnHostCallBack) {}

FrontEndDoors::FrontEndDoors(CUICallBack& core, const RecordingHost&) : FrontEndDoors(core) {
    g_pfnHostCallBack = &RecordingHost::Function;
}

FrontEndDoors::~FrontEndDoors() {
    g_pUICallBack = core_;
    g_pfnHostCallBack = host_;
}

}  // namespace tests
