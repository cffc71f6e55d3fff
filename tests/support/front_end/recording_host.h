#pragma once

#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "plugin/contract/host_function.h"
#include "plugin/contract/market_records.h"

class CUICallBack;

namespace tests {

/// The key of a symbol as host messages carry it.
inline WPARAM SymbolKey(int market, int code) {
    return static_cast<WPARAM>(static_cast<unsigned>(market & 0xFFFF) |
                               static_cast<unsigned>(code & 0xFFFF) << 16);
}

/// A host that writes down what is asked of it and answers from tables. The newest one alive
/// answers g_pfnHostCallBack's function.
///
///     tests::RecordingHost host;
///     const WPARAM key = host.AddSymbol("Au(T+D)", 12, 1, 2);
///     host.SetQuote(key, quote);
///
/// A message is one line, "NAME(arguments)", texts in GBK.
class RecordingHost {
public:
    RecordingHost();
    ~RecordingHost();
    RecordingHost(const RecordingHost&) = delete;
    RecordingHost& operator=(const RecordingHost&) = delete;

    /// Makes a contract known and answers its key.
    WPARAM AddSymbol(std::string_view contract, int market, int code, int digits);
    /// The quote of a key; without one a request leaves the caller's record as it was.
    void SetQuote(WPARAM key, const JSDyn1& quote);
    void SetQuote(int market, int code, const JSDyn1& quote) {
        SetQuote(SymbolKey(market, code), quote);
    }

    HFONT panel_font = nullptr;  ///< answer to HOST_GET_PANEL_FONT
    std::string report_data;     ///< answer to HOST_GET_REPORT_DATA, bytes

    /// What was asked so far, or since the last TakeCalls.
    std::vector<std::string> Calls() const;
    std::vector<std::string> TakeCalls();
    /// Those of one message, by the name that the line starts with.
    std::vector<std::string> CallsOf(std::string_view name) const;

    /// What g_pfnHostCallBack points to.
    static ULONG_PTR CALLBACK Function(UINT message, WPARAM wParam, LPARAM lParam);

private:
    struct Symbol {
        std::string contract;
        CHostSymbol record;
    };

    ULONG_PTR Answer(UINT message, WPARAM wParam, LPARAM lParam);
    ULONG_PTR FindSymbol(CHostSymbol* symbol, const char* contract);
    ULONG_PTR SymbolOfKey(WPARAM key, CHostSymbol* symbol);
    ULONG_PTR Quote(WPARAM key, JSDyn1* quote);
    ULONG_PTR ReportData(char* buffer, const char* challenge);
    void Record(std::string_view name, const std::string& arguments);

    mutable std::mutex mutex_;
    std::vector<std::string> calls_;
    std::map<WPARAM, Symbol> symbols_;
    std::map<WPARAM, JSDyn1> quotes_;
    RecordingHost* former_;
};

/// Opens the front end's two doors, g_pUICallBack and g_pfnHostCallBack, and puts back what they
/// held before.
class FrontEndDoors {
public:
    explicit FrontEndDoors(CUICallBack& core);
    FrontEndDoors(CUICallBack& core, const RecordingHost& host);
    ~FrontEndDoors();
    FrontEndDoors(const FrontEndDoors&) = delete;
    FrontEndDoors& operator=(const FrontEndDoors&) = delete;

private:
    CUICallBack* core_;
    HostFunction host_;
};

}  // namespace tests
