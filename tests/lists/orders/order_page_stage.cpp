#include "tests/lists/orders/order_page_stage.h"

#include "lists/order_cell_rules.h"
#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"

namespace tests {

namespace {

constexpr int kRowHeight = 22;

/// Middle of a row in the list's window.
int RowMiddle(int row) { return kRowHeight * (row + 1) + kRowHeight / 2; }

}  // namespace

const CZebContract* ContractTable::FindContractByCode(const char* code) const {
    const auto found = contracts_.find(code);
    return found != contracts_.end() ? &found->second : nullptr;
}

void ContractTable::Add(const char* code, const char* market, int digits) {
    CZebContract contract{};
    text::CopyText(contract.szContract, code);
    text::CopyText(contract.szMarket, market);
    contract.nPriceDigits = digits;
    contracts_[code] = contract;
}

void PanelsDouble::ShowOrdersOnPanels(const CZebOrder* orders, int count) {
    std::string refs;
    for (int i = 0; i < count; ++i) refs += std::string(orders[i].szOrderRef) + " ";
    shown.push_back(refs);
}

CZebOrder MakeOrder(const char* ref, char status, const char* contract) {
    CZebOrder order{};
    text::CopyText(order.szContract, contract);
    text::CopyText(order.szOrderRef, ref);
    text::CopyText(order.szOrderNo, ref);
    text::CopyText(order.szTime, "09:30:15");
    text::CopyText(order.szRemark, "CTP");
    order.cDirection = '0';
    order.cOffset = '0';
    order.cStatus = status;
    order.nSession = 7;
    order.nVolume = 3;
    order.nRemaining = 3;
    order.dPrice = 280.25;
    return order;
}

OrderPage::OrderPage() {
    platform::testing::RememberTexts();
    platform::testing::StopClock();
    platform::testing::MovePointer({1200, 780});
    contracts_.Add("Au(T+D)", "GT-T", 2);
    contracts_.Add("Au99.99", "GT-S", 2);
    frame_.CreateEx(WS_EX_CONTROLPARENT, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE,
                    CRect(40, 40, 940, 340), nullptr, 0);
    page_.SetOwner(&panels_);
    page_.Connect(&contracts_);
    page_.Create(CGoldOrderDlg::IDD, &frame_);
    page_.MoveWindow(0, 0, 900, 300);
    page_.ShowToolbar(true);
    page_.ShowWindow(SW_SHOW);
    platform::testing::Pump();
    core_.ForgetCalls();
}

OrderPage::~OrderPage() {
    frame_.DestroyWindow();
    platform::testing::Pump();
}

void OrderPage::Show(std::vector<CZebOrder> orders) {
    core_.orders = std::move(orders);
    page_.Refresh(true);
    platform::testing::Pump();
    core_.ForgetCalls();
}

std::string OrderPage::Text(int id) {
    char text[64] = "";
    page_.GetDlgItemText(id, text, sizeof text);
    return text;
}

CRect OrderPage::Place(int id) {
    CRect place;
    ::GetWindowRect(Control(id), &place);
    page_.ScreenToClient(&place);
    return place;
}

void OrderPage::Click(int row) {
    platform::testing::Click(Control(CGoldOrderDlg::kList), 10, RowMiddle(row));
    // Two clicks are no double click.
    platform::testing::PumpFor(::GetDoubleClickTime() + 1);
}

void OrderPage::DoubleClick(int row) {
    platform::testing::PumpFor(::GetDoubleClickTime() + 1);
    platform::testing::DoubleClick(Control(CGoldOrderDlg::kList), 10, RowMiddle(row));
}

ShownCell OrderPage::Cell(int row, int column) {
    int left = 0;
    for (int before = 0; before < column; ++before) left += List().GetColumnWidth(before);
    const int right = left + List().GetColumnWidth(column);
    for (const auto& seen : platform::testing::SeenTexts(Control(CGoldOrderDlg::kList))) {
        const int x = (seen.rect.left + seen.rect.right) / 2;
        const int y = (seen.rect.top + seen.rect.bottom) / 2;
        if (x < left || x >= right || y / kRowHeight != row + 1) continue;
        return {text::GbkFromUtf8(seen.utf8), seen.color, seen.bold, seen.rect};
    }
    return {};
}

std::vector<std::string> OrderPage::Row(int row) {
    std::vector<std::string> texts;
    for (int column = 0; column < kOrderColumns; ++column) {
        texts.push_back(Cell(row, column).text);
    }
    return texts;
}

std::string OrderPage::ShownRefs() {
    std::string refs;
    for (int row = 0;; ++row) {
        const std::string ref = Cell(row, kOrderNumberColumn).text;
        if (ref.empty()) return refs;
        refs += ref + " ";
    }
}

}  // namespace tests
