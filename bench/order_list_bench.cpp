// The order page with 10,000 orders of a day.

#include <cstring>
#include <vector>

#include "bench/ratio.h"
#include "controls/templates.h"
#include "lists/gold_order_dlg.h"
#include "lists/templates.h"
#include "platform/text/bounded_text.h"
#include "plugin/contract/core_access.h"
#include "tests/support/front_end/recording_core.h"

namespace {

const toolkit::TemplateTable kTables[] = {controls::kTemplates, lists::kTemplates};

CWinApp& App() {
    static CWinApp app("order_list_bench");
    return app;
}

constexpr int kOrders = 10'000;
constexpr int kWidth = 1000;
constexpr int kHeight = 600;

CZebOrder MakeOrder(int number) {
    static const char* const kContracts[] = {"Au(T+D)", "Ag(T+D)", "mAu(T+D)", "Au99.99"};
    CZebOrder order{};
    const int seconds = 9 * 3600 + number * 2;
    text::CopyText(order.szContract, kContracts[number % 4]);
    text::FormatText(order.szTime, sizeof order.szTime, "%02d:%02d:%02d", seconds / 3600,
                     seconds / 60 % 60, seconds % 60);
    text::FormatText(order.szOrderNo, sizeof order.szOrderNo, "%08d", 40000 + number);
    // A core tells orders as they came, but for those that were changed since.
    text::FormatText(order.szOrderRef, sizeof order.szOrderRef, "%d",
                     number % 50 == 0 ? number / 2 : number);
    text::CopyText(order.szRemark, "交易所已受理");
    order.cDirection = number % 2 == 0 ? '0' : '1';
    order.cOffset = number % 3 == 0 ? '1' : '0';
    order.cStatus = number % 10 == 0 ? '1' : '3';
    order.nVolume = number % 30 + 1;
    order.dPrice = 240 + number % 400 * 0.37;
    return order;
}

const std::vector<CZebOrder>& Records() {
    static const std::vector<CZebOrder> records = [] {
        std::vector<CZebOrder> made;
        for (int number = 1; number <= kOrders; ++number) made.push_back(MakeOrder(number));
        return made;
    }();
    return records;
}

void CopyRecords(CZebOrder* buffer, int count) {
    std::memcpy(buffer, Records().data(), static_cast<std::size_t>(count) * sizeof(CZebOrder));
}

/// A core that copies its records out and does nothing else.
class QuickCore : public tests::RecordingCore {
public:
    int GetOrderList(CZebOrder* buffer, int capacity) override {
        if (buffer == nullptr) return kOrders;
        const int count = std::clamp(capacity, 0, kOrders);
        CopyRecords(buffer, count);
        return count;
    }
};

class Contracts : public ContractSource {
public:
    const CZebContract* FindContractByCode(const char*) const override {
        static const CZebContract contract = [] {
            CZebContract gold{};
            gold.nPriceDigits = 2;
            return gold;
        }();
        return &contract;
    }
};

/// The shown page. Page and frame stay to the end of the program.
CGoldOrderDlg& MakePage() {
    static QuickCore core;
    static Contracts contracts;
    g_pUICallBack = &core;
    auto* const frame = new CWnd;
    frame->CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE,
                    CRect(0, 0, kWidth, kHeight), nullptr, 0);
    auto* const page = new CGoldOrderDlg;
    page->Connect(&contracts);
    page->Create(CGoldOrderDlg::IDD, frame);
    page->MoveWindow(0, 0, kWidth, kHeight);
    page->ShowWindow(SW_SHOW);
    page->Refresh(false);
    frame->RedrawWindow(nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    return *page;
}

RATIO("lists.refresh_orders_over_copy") {
    static CGoldOrderDlg& page = MakePage();
    static std::vector<CZebOrder> copy(kOrders);
    static CWnd& list = *page.GetDlgItem(CGoldOrderDlg::kList);
    return {[] {
                page.Refresh(false);
                page.RedrawWindow(nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
            },
            [] {
                CopyRecords(copy.data(), kOrders);
                list.Invalidate(FALSE);
                list.UpdateWindow();
            }};
}

}  // namespace

IMPLEMENT_MODULE(App(), kTables)
