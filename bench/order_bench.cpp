// The order page in its container, with the five levels beside it.

#include <cstdlib>

#include "bench/ratio.h"
#include "bench/sample_list.h"
#include "controls/templates.h"
#include "orderentry/gold_bs_base_dlg.h"
#include "orderentry/templates.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "plugin/settings/process_values.h"
#include "tests/support/front_end/recording_core.h"

namespace {

const toolkit::TemplateTable kTables[] = {controls::kTemplates, orderentry::kTemplates};

CWinApp& App() {
    static CWinApp app("order_bench");
    return app;
}

CZebContract Gold() {
    CZebContract contract{};
    text::CopyText(contract.szExchange, "SGE");
    text::CopyText(contract.szContract, "Au(T+D)");
    contract.dPriceTick = 0.01;
    contract.nPriceDigits = 2;
    return contract;
}

int inserted = 0;

/// A core with one contract that answers at once and lets orders go without a question.
class QuickCore : public tests::RecordingCore {
public:
    int GetContractList(CZebContract* buffer, int capacity) override {
        if (buffer != nullptr && capacity > 0) *buffer = Gold();
        return 1;
    }
    void GetTradeParam(CTradeParam* param) override {
        *param = {};
        param->bNoOrderConfirm = 1;
    }
    void GetLoginAccount(CAccountInfo* account) override { *account = {}; }
    void InsertOrder(CInsertOrderRequest* request, CTradeParam*, unsigned char, int) override {
        inserted += request->szPrice[0] != '\0' ? 1 : 0;
    }
};

constexpr unsigned kKey = 12 | 1U << 16;

/// With a last price of its own, so that each quote shows others than the one before.
JSDyn1 Quote(double last) {
    JSDyn1 quote{};
    quote.dPreClose = 300;
    quote.dLast = last;
    for (int i = 0; i < 5; ++i) {
        quote.dAsk[i] = last + 0.01 + 0.01 * i;
        quote.dBid[i] = last - 0.01 - 0.01 * i;
        quote.nAskVolume[i] = quote.nBidVolume[i] = static_cast<std::uint32_t>(7 + i);
    }
    return quote;
}

ULONG_PTR CALLBACK QuickHost(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto describe = [](void* address) {
        auto& symbol = *static_cast<CHostSymbol*>(address);
        symbol = {};
        symbol.wMarket = 12;
        symbol.wCode = 1;
        symbol.nDigits = 2;
        text::CopyText(symbol.szCode, "Au(T+D)");
    };
    if (message == HOST_FIND_SYMBOL) describe(reinterpret_cast<void*>(wParam));
    if (message == HOST_GET_SYMBOL) describe(reinterpret_cast<void*>(lParam));
    if (message == HOST_GET_QUOTE) *reinterpret_cast<JSDyn1*>(lParam) = Quote(300);
    return 0;
}

/// No lists: they have benchmarks of their own.
class NoLists : public ReportPane {
public:
    bool Create(CWnd* parent) override {
        return window_.CreateEx(0, "Static", "", WS_CHILD, CRect(0, 0, 1, 1), parent, 0) != FALSE;
    }
    CWnd& Window() override { return window_; }
    void Connect(const ContractSource&, HWND) override {}
    void SetPage(int) override {}
    void OnQuote(unsigned int, const JSDyn1&) override {}
    int CloseVolume(const char*, char) const override { return 0; }
    double HoldLoss() const override { return 0; }

private:
    CWnd window_;
};

/// The shown page with the contract chosen. It stays to the end of the program.
CGoldBSBaseDlg& MakePage() {
    static QuickCore core;
    static NoLists lists;
    g_pUICallBack = &core;
    g_pfnHostCallBack = &QuickHost;
    g_mapContractMargin["Au(T+D)"] = 100;
    g_dAvailable = 1e6;
    static CWnd frame;
    frame.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE,
                   CRect(0, 0, bench::kWidth, bench::kHeight), nullptr, 0);
    auto* const page = new CGoldBSBaseDlg(lists);
    page->Create(CGoldBSBaseDlg::IDD, &frame);
    page->MoveWindow(0, 0, bench::kWidth, bench::kHeight);
    page->ShowWindow(SW_SHOW);
    page->LoadContracts();
    page->OrderPage().SetContract(page->FindContractByCode("Au(T+D)"));
    frame.RedrawWindow(nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return *page;
}

CGoldBSBaseDlg& Page() {
    static CGoldBSBaseDlg& page = MakePage();
    return page;
}

void Click(HWND button) {
    ::SendMessageA(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(4, 4));
    ::SendMessageA(button, WM_LBUTTONUP, 0, MAKELPARAM(4, 4));
}

RATIO("order.quote_over_full_repaint") {
    CGoldBSBaseDlg& page = Page();
    bench::List();
    return {[&page] {
                static int tick = 0;
                page.OnQuote(kKey, Quote(300 + 0.01 * (++tick % 100)));
                page.RedrawWindow(nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
            },
            [] { bench::RepaintList(); }};
}

RATIO("order.click_to_insert_over_full_repaint") {
    const HWND submit = ::GetDlgItem(Page().OrderPage(), CGoldBsDlg::kSubmit);
    bench::List();
    return {[submit] {
                const int before = inserted;
                Click(submit);
                if (inserted != before + 1) std::abort();  // no order, no time
            },
            [] { bench::RepaintList(); }};
}

}  // namespace

IMPLEMENT_MODULE(App(), kTables)
