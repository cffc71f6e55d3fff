#include <cstring>

#include "host/goldterm/terminal.h"
#include "host/terminal/quote_record.h"
#include "host/terminal/report_data.h"
#include "host/views/view.h"
#include "plugin/contract/host_function.h"
#include "plugin/contract/messages.h"

// The host's function: what the front end asks of the terminal.

namespace terminal {
ULONG_PTR Terminal::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case HOST_FIND_SYMBOL: {
            const auto* contract = reinterpret_cast<const char*>(lParam);
            auto* record = reinterpret_cast<CHostSymbol*>(wParam);
            if (!contract || !record) return 1;
            const std::string name(contract, strnlen(contract, sizeof(CZebContract::szContract)));
            return static_cast<ULONG_PTR>(symbols_.Fill(symbols_.IndexOf(name), *record));
        }
        case HOST_GET_SYMBOL: {
            auto* record = reinterpret_cast<CHostSymbol*>(lParam);
            if (!record) return 1;
            const int index = symbols_.IndexOfKey(static_cast<unsigned>(wParam));
            return static_cast<ULONG_PTR>(symbols_.Fill(index, *record));
        }
        case HOST_GET_QUOTE: {
            auto* record = reinterpret_cast<JSDyn1*>(lParam);
            const int index = symbols_.IndexOfKey(static_cast<unsigned>(wParam));
            if (record && index >= 0) *record = RecordOf(quotes_->Latest(index));
            return 0;
        }
        case HOST_GET_PANEL_FONT:
            return reinterpret_cast<ULONG_PTR>(views::FontOf(views::Type::kDense));
        case HOST_GET_REPORT_DATA: {
            auto* buffer = reinterpret_cast<char*>(wParam);
            return WriteReportData(buffer, reinterpret_cast<const char*>(lParam));
        }
        // Every contract of the table is quoted anyway; the rest is for hosts with more windows.
        case HOST_SUBSCRIBE:
        case HOST_COMBINATION_ACTION:
        case HOST_PAGE_CREATED:
        case HOST_PAGE_DESTROYED:
        case HOST_CONTRACTS_LOADED:
        default: return 0;
    }
}

}  // namespace terminal
