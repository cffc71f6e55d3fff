// The position page with 50 positions, each of four lots.

#include <algorithm>
#include <cstring>
#include <string>
#include <unordered_map>
#include <vector>

#include "bench/ratio.h"
#include "controls/templates.h"
#include "lists/gold_position_dlg.h"
#include "lists/templates.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/host_function.h"
#include "plugin/settings/process_values.h"
#include "tests/support/front_end/recording_core.h"

namespace {

const toolkit::TemplateTable kTables[] = {controls::kTemplates, lists::kTemplates};

CWinApp& App() {
    static CWinApp app("position_list_bench");
    return app;
}

constexpr int kContracts = 25;
constexpr int kLotsEach = 4;
constexpr int kWidth = 1000;
constexpr int kHeight = 600;

std::string Code(int contract) { return "Au" + std::to_string(2500 + contract) + "(T+D)"; }

/// The contracts in the core's order, looked through one by one as the container does.
class Contracts : public ContractSource {
public:
    Contracts() {
        for (int i = 0; i < kContracts; ++i) {
            CZebContract contract{};
            text::CopyText(contract.szExchange, "SGE");
            text::CopyText(contract.szContract, Code(i));
            contract.nUnit = 1000;
            contract.nPriceDigits = 2;
            contract.dPriceTick = 0.01;
            records_.push_back(contract);
            CContractManager::AddContract(contract);
        }
    }
    const CZebContract* FindContractByCode(const char* code) const override {
        for (const CZebContract& record : records_) {
            if (text::FieldText(record.szContract) == code) return &record;
        }
        return nullptr;
    }

private:
    std::vector<CZebContract> records_;
};

/// Long and short in each contract.
std::vector<CZebPosition> MakePositions() {
    std::vector<CZebPosition> positions;
    for (int i = 0; i < 2 * kContracts; ++i) {
        CZebPosition position{};
        text::CopyText(position.szExchange, "SGE");
        text::CopyText(position.szContract, Code(i / 2));
        position.cDirection = i % 2 == 0 ? '0' : '1';
        position.nVolume = i * 7 % 90 + 4;
        position.nFrozen = i % 4;
        position.dOpenPrice = 300 + i * 0.37;
        position.dHoldPrice = 301 + i * 0.29;
        positions.push_back(position);
    }
    return positions;
}

std::vector<PositionGroup> MakeLots(const std::vector<CZebPosition>& positions) {
    std::vector<PositionGroup> lots;
    for (const CZebPosition& position : positions) {
        for (int i = 0; i < kLotsEach; ++i) {
            PositionGroup lot{};
            lot.nGroupID = static_cast<int>(lots.size()) + 1;
            text::CopyText(lot.szExchange, text::FieldText(position.szExchange));
            text::CopyText(lot.szContract, text::FieldText(position.szContract));
            lot.cDirection = position.cDirection;
            lot.nVolume = position.nVolume / kLotsEach;
            lot.dOpenPrice = position.dOpenPrice;
            lot.dStopLoss = 20;
            lots.push_back(lot);
        }
    }
    return lots;
}

/// A core that copies its records out and does nothing else.
class QuickCore : public tests::RecordingCore {
public:
    QuickCore() {
        positions = MakePositions();
        position_details = MakeLots(positions);
    }
    int GetPositionList(CZebPosition* buffer, int capacity) override {
        return Give(positions, buffer, capacity);
    }
    int GetPositionDetailList(PositionGroup* buffer, int capacity) override {
        return Give(position_details, buffer, capacity);
    }

private:
    template <class Record>
    static int Give(const std::vector<Record>& records, Record* buffer, int capacity) {
        const int count = static_cast<int>(records.size());
        if (buffer == nullptr) return count;
        const int given = std::clamp(capacity, 0, count);
        std::memcpy(buffer, records.data(), static_cast<std::size_t>(given) * sizeof(Record));
        return given;
    }
};

constexpr unsigned short kMarket = 12;

unsigned Key(int contract) { return kMarket | static_cast<unsigned>(contract + 1) << 16; }

/// The host's symbols by their contracts.
const std::unordered_map<std::string, CHostSymbol>& Symbols() {
    static const std::unordered_map<std::string, CHostSymbol> symbols = [] {
        std::unordered_map<std::string, CHostSymbol> made;
        for (int i = 0; i < kContracts; ++i) {
            CHostSymbol& symbol = made[Code(i)];
            symbol.wMarket = kMarket;
            symbol.wCode = static_cast<std::uint16_t>(i + 1);
            text::CopyText(symbol.szCode, Code(i));
        }
        return made;
    }();
    return symbols;
}

ULONG_PTR CALLBACK QuickHost(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == HOST_FIND_SYMBOL) {
        const auto found = Symbols().find(reinterpret_cast<const char*>(lParam));
        if (found == Symbols().end()) return 1;
        *reinterpret_cast<CHostSymbol*>(wParam) = found->second;
    }
    if (message == HOST_GET_QUOTE) {
        static double last = 305;
        auto& quote = *reinterpret_cast<JSDyn1*>(lParam);
        quote.dLast = last = last < 310 ? last + 0.01 : 305;
    }
    return 0;
}

/// The shown page. Page and frame stay to the end of the program.
CGoldPositionDlg& MakePage() {
    static QuickCore core;
    static const Contracts contracts;
    g_pUICallBack = &core;
    g_pfnHostCallBack = &QuickHost;
    g_bNeedShowStopLossAndProfit = 1;
    auto* const frame = new CWnd;
    frame->CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE,
                    CRect(0, 0, kWidth, kHeight), nullptr, 0);
    auto* const page = new CGoldPositionDlg;
    page->Connect(&contracts, nullptr);
    page->Create(CGoldPositionDlg::IDD, frame);
    page->MoveWindow(0, 0, kWidth, kHeight);
    page->ShowWindow(SW_SHOW);
    page->Refresh(true, true);
    page->Refresh(false, true);
    frame->RedrawWindow(nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return *page;
}

RATIO("lists.quote_push_over_full_repaint") {
    static CGoldPositionDlg& page = MakePage();
    static CWnd& list = *page.GetDlgItem(CGoldPositionDlg::kList);
    return {[] {
                static int contract = 0;
                page.OnQuote(Key(contract++ % kContracts), {});
            },
            [] {
                list.Invalidate(FALSE);
                list.UpdateWindow();
            }};
}

}  // namespace

IMPLEMENT_MODULE(App(), kTables)
