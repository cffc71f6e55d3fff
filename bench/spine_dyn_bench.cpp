// A quote that concerns nobody on its way through the front end: 50 positions are held and 10
// panels stand beside charts, all of other contracts. A live market sends hundreds of these a
// second.

#include <cstdio>
#include <string>
#include <unordered_map>

#include "bench/ratio.h"
#include "platform/text/bounded_text.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/qm_interface_ui.h"
#include "tests/support/front_end/recording_core.h"

namespace {

constexpr int kPositions = 50;
constexpr int kPanels = 10;
constexpr unsigned short kMarket = 12;
constexpr unsigned short kStrangeCode = 9999;

constexpr int kColumns = 10;
constexpr int kColumnWidth = 100;
constexpr int kRowHeight = 22;

std::string ContractName(int number) { return "Au" + std::to_string(number); }

/// A host that keeps its contracts in a hash table.
ULONG_PTR CALLBACK AnswerOfHost(UINT message, WPARAM wParam, LPARAM lParam) {
    static const std::unordered_map<std::string, std::uint16_t> codes = [] {
        std::unordered_map<std::string, std::uint16_t> made;
        for (std::uint16_t i = 0; i < kPositions; ++i) made[ContractName(i)] = i;
        return made;
    }();
    if (message != HOST_FIND_SYMBOL) return 1;
    const auto found = codes.find(reinterpret_cast<const char*>(lParam));
    if (found == codes.end()) return 1;
    auto& symbol = *reinterpret_cast<CHostSymbol*>(wParam);
    text::CopyText(symbol.szCode, found->first);
    symbol.wMarket = kMarket;
    symbol.wCode = found->second;
    return 0;
}

/// The front end of a logged-in account in a host's window.
class FrontEnd {
public:
    FrontEnd() {
        FillCore();
        QmInterfaceUI::SetCallBack(AnswerOfHost);
        host().SetUICallBack(&core_);
        frame_.CreateEx(0, nullptr, "", WS_POPUP | WS_VISIBLE, CRect(0, 0, 1200, 700), nullptr, 0);
        host().SetFrameWnd(frame_);
        host().Create(0, 0, 900, 700, frame_);
        core_.logged_in = true;
        // The end of an initial load: positions, contracts, trading.
        host().OnLoginPrompt(nullptr, ZEB_LOGIN_PROMPT_DONE, nullptr);
        for (int i = 0; i < kPanels; ++i) {
            const unsigned int panel = host().CreatePanel(0, 0, 0, 0, frame_);
            host().OnSize(900, 0, 300, 700, panel);
            host().CurStkChanged(kMarket, static_cast<unsigned short>(i), panel);
        }
    }

    void Quote() {
        JSDyn1 quote{};
        quote.dLast = 300;
        host().OnDyn(kMarket, kStrangeCode, &quote);
    }

private:
    /// Hosts know the operations by this class alone.
    CBaseUI& host() { return ui_; }

    void FillCore() {
        for (int i = 0; i < kPositions; ++i) {
            CZebContract contract{};
            text::CopyText(contract.szContract, ContractName(i));
            contract.nUnit = 1000;
            contract.nPriceDigits = 2;
            core_.contracts.push_back(contract);
            CZebPosition position{};
            text::CopyText(position.szContract, ContractName(i));
            position.nVolume = i + 1;
            position.dOpenPrice = position.dHoldPrice = 300;
            core_.positions.push_back(position);
        }
    }

    tests::RecordingCore core_;
    CWnd frame_;
    QmInterfaceUI ui_;
};

/// One row of a list, its texts formatted at each paint.
class Row : public CWnd {
public:
    Row() {
        font_.CreateFont(12, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "宋体");
        const CRect place(0, 0, kColumns * kColumnWidth, kRowHeight);
        CreateEx(0, nullptr, "", WS_POPUP | WS_VISIBLE, place, nullptr, 0);
        UpdateWindow();
    }

    void Repaint() {
        Invalidate(FALSE);
        UpdateWindow();
    }

protected:
    void OnPaint() {
        CPaintDC dc(this);
        const CRect row(0, 0, kColumns * kColumnWidth, kRowHeight);
        dc.FillSolidRect(row, 0xFFFFFF);
        const toolkit::ScopedSelect font(dc, static_cast<HFONT>(font_));
        for (int column = 0; column < kColumns; ++column) {
            char cell[48];
            std::snprintf(cell, sizeof(cell), column % 2 == 0 ? "%.2f" : "买入 %.0f",
                          240 + column * 1.37);
            const int left = column * kColumnWidth;
            RECT place{left + 2, 0, left + kColumnWidth, kRowHeight};
            dc.SetTextColor(column % 2 == 0 ? 0x0001F6 : 0x019900);
            ::DrawTextA(dc, cell, -1, &place, DT_SINGLELINE | DT_VCENTER);
        }
    }
    DECLARE_MESSAGE_MAP()

private:
    CFont font_;
};

BEGIN_MESSAGE_MAP(Row, CWnd)
    ON_WM_PAINT()
END_MESSAGE_MAP()

RATIO("spine.on_dyn_over_row_repaint") {
    // Both stay to the end of the program.
    static auto& front_end = *new FrontEnd;
    static auto& row = *new Row;
    return {[] { front_end.Quote(); }, [] { row.Repaint(); }};
}

}  // namespace
