#include <algorithm>

#include "orderentry/contract_rules.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/record_list.h"
#include "plugin/contract/ui_callback.h"
#include "plugin/main_dlg.h"

// Quotes of the main dialog: where a push goes, and which ones are wanted.

namespace {

/// The core may have more positions by the time they are read.
constexpr int kSpareRecords = 10;
constexpr unsigned short kNoSymbol = 0xFFFF;

bool IsKey(const CHostSymbol& symbol) {
    return symbol.wMarket != kNoSymbol && symbol.wCode != kNoSymbol;
}

}  // namespace

int CMainDlg::BroadcastDyn(int kind, unsigned int packed, const void* data) {
    if (kind == kBroadcastPress) {
        const CPoint screen(static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed)));
        m_dlgBSBase.OnMousePress(screen);
    }
    if (kind != kBroadcastQuote || data == nullptr) return 0;
    const auto& quote = *static_cast<const JSDyn1*>(data);
    m_dlgBSBase.OnQuote(packed, quote);
    for (CPanelTradeDlg* panel : m_arrPanels) {
        if (panel->Packed() == packed && panel->GetSafeHwnd() != nullptr) panel->OnQuote(quote);
    }
    return 0;
}

int CMainDlg::GetStkList(unsigned int* list, int capacity) {
    if (list == nullptr || capacity <= 0) return 0;
    int count = m_bStkListDone == 0 ? AppendPositionKeys(list, capacity) : 0;
    if (count < capacity) {
        const CZebContract* contract = m_dlgBSBase.OrderPage().Contract();
        CHostSymbol symbol{};
        if (contract != nullptr &&
            GetSymbolByName(&symbol, std::string(text::FieldText(contract->szContract)).c_str()) &&
            IsKey(symbol)) {
            list[count++] = PackSymbol(symbol);
        }
    }
    return count;
}

int CMainDlg::AppendPositionKeys(unsigned int* list, int capacity) {
    CUICallBack* core = GetUICallBack();
    if (core == nullptr) return 0;
    EArray<CZebPosition> positions(kSpareRecords);
    const int held = ReadRecords(positions, kSpareRecords, [core](CZebPosition* buffer, int room) {
        return core->GetPositionList(buffer, room);
    });
    const int looked_at = std::min(held, capacity);
    int count = 0;
    for (int i = 0; i < looked_at; ++i) {
        CHostSymbol symbol{};
        const std::string contract(text::FieldText(positions.GetData()[i].szContract));
        if (!GetSymbolByName(&symbol, contract.c_str()) || !IsKey(symbol)) continue;
        const unsigned int key = PackSymbol(symbol);
        if (std::find(list, list + count, key) == list + count) list[count++] = key;
    }
    // Without a position there was nothing to offer yet.
    if (held > 0 && looked_at == held) m_bStkListDone = 1;
    return count;
}
