#include "tests/lists/trades/trade_page_stage.h"

#include "lists/trade_cell_rules.h"
#include "platform/text/gbk.h"

namespace tests {

namespace {

constexpr int kRowHeight = 22;
constexpr int kWidths[kTradeColumns] = {60, 60, 60, 60, 60, 60, 60, 150};

}  // namespace

TradePage::TradePage() {
    platform::testing::RememberTexts();
    platform::testing::StopClock();
    platform::testing::MovePointer({1200, 780});
    contracts_.Add("Au(T+D)", "GT-T", 2);
    contracts_.Add("Au99.99", "GT-S", 3);
    frame_.CreateEx(WS_EX_CONTROLPARENT, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE,
                    CRect(40, 40, 740, 340), nullptr, 0);
    page_.Connect(&contracts_);
    page_.Create(CGoldTradeDlg::IDD, &frame_);
    page_.MoveWindow(0, 0, 598, 300);
    page_.ShowWindow(SW_SHOW);
    platform::testing::Pump();
    core_.ForgetCalls();
}

TradePage::~TradePage() {
    frame_.DestroyWindow();
    platform::testing::Pump();
}

void TradePage::Show(std::vector<CZebTrade> trades) {
    core_.trades = std::move(trades);
    page_.Refresh();
    platform::testing::Pump();
    core_.ForgetCalls();
}

PaintedCell TradePage::Cell(int row, int column) {
    int left = 0;
    for (int before = 0; before < column; ++before) left += kWidths[before];
    for (const auto& seen : platform::testing::SeenTexts(List())) {
        const int x = (seen.rect.left + seen.rect.right) / 2;
        const int y = (seen.rect.top + seen.rect.bottom) / 2;
        if (x < left || x >= left + kWidths[column] || y / kRowHeight != row + 1) continue;
        return {text::GbkFromUtf8(seen.utf8), seen.color, seen.bold, seen.rect};
    }
    return {};
}

std::vector<std::string> TradePage::Row(int row) {
    std::vector<std::string> texts;
    for (int column = 0; column < kTradeColumns; ++column) texts.push_back(Cell(row, column).text);
    return texts;
}

std::string TradePage::ShownNumbers() {
    std::string numbers;
    for (int row = 0;; ++row) {
        const std::string number = Cell(row, kTradeNumberColumn).text;
        if (number.empty()) return numbers;
        numbers += number + " ";
    }
}

}  // namespace tests
