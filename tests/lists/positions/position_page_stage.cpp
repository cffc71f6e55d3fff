#include "tests/lists/positions/position_page_stage.h"

#include "platform/text/gbk.h"
#include "plugin/settings/process_values.h"

namespace tests {

namespace {

constexpr int kRowHeight = 22;
constexpr int kWidths[] = {60, 60, 60, 60, 60, 90, 400};
constexpr int kCloseButtons[] = {CGoldPositionDlg::kClose1, CGoldPositionDlg::kClose30,
                                 CGoldPositionDlg::kClose50, CGoldPositionDlg::kClose70,
                                 CGoldPositionDlg::kClose100};

/// Middle of a row in the list's window; -1 is the header.
int RowMiddle(int row) { return kRowHeight * (row + 1) + kRowHeight / 2; }

std::string Funds(const char* where, double equity, double available, double open_profit) {
    char text[128];
    text::FormatText(text, sizeof text, "%s %.2f %.2f %.2f", where, equity, available, open_profit);
    return text;
}

}  // namespace

LRESULT RowReceiver::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_POSITION_ROW) {
        rows.push_back(*reinterpret_cast<const PositionGroup*>(wParam));
        return 0;
    }
    if (message == WM_POSITION_CONTRACT) {
        contracts.emplace_back(reinterpret_cast<const char*>(wParam));
        return 0;
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

void FundsDouble::ShowFundsLine(double equity, double available, double open_profit) {
    shown_.push_back(Funds("line", equity, available, open_profit));
}

void FundsDouble::ShowFundsOnPanels(double equity, double available, double open_profit) {
    shown_.push_back(Funds("panels", equity, available, open_profit));
}

bool DialogsDouble::ConfirmOrder(CWnd*, const CInsertOrderRequest& request, bool bClose) {
    questions.push_back({request, bClose});
    if (on_question) on_question();
    return answer;
}

bool DialogsDouble::EditStops(const CZebContract& contract, CPresetStop& stop, const char* title,
                              CWnd*) {
    offered.push_back(stop);
    titles.emplace_back(title);
    contracts.emplace_back(contract.szContract);
    if (on_question) on_question();
    if (edit) edit(stop);
    return answer;
}

PositionPage::PositionPage() {
    g_bNeedShowStopLossAndProfit = 1;
    g_dEquity = 1000;
    g_dAvailable = 500;
    host.SetQuote(kGold, MakeQuote(301));
    host.SetQuote(kSilver, MakeQuote(4000));
    platform::testing::RememberTexts();
    platform::testing::StopClock();
    platform::testing::MovePointer({1200, 780});
    frame.CreateEx(WS_EX_CONTROLPARENT, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE,
                   CRect(40, 40, 940, 340), nullptr, 0);
    receiver.CreateEx(0, AfxRegisterWndClass(0), "", WS_CHILD, CRect(0, 0, 1, 1), &frame, 0);
    page.SetOwner(&funds);
    page.SetDialogs(&dialogs);
    page.Connect(this, receiver);
    page.Create(CGoldPositionDlg::IDD, &frame);
    page.MoveWindow(0, 0, 900, 300);
    page.ShowWindow(SW_SHOW);
    platform::testing::Pump();
    core.ForgetCalls();
}

PositionPage::~PositionPage() {
    frame.DestroyWindow();
    platform::testing::Pump();
    g_bNeedShowStopLossAndProfit = 0;
    g_dEquity = 0;
    g_dAvailable = 0;
}

void PositionPage::Hold(std::vector<CZebPosition> positions) {
    core.positions = std::move(positions);
    page.Refresh(false, true);
    platform::testing::Pump();
}

void PositionPage::HoldLots(std::vector<PositionGroup> lots) {
    core.position_details = std::move(lots);
    page.Refresh(true, true);
    platform::testing::Pump();
}

void PositionPage::ShowLots() { Press(CGoldPositionDlg::kMode); }

void PositionPage::HoldGoldAndSilver() {
    CZebPosition gold = MakePosition("Au(T+D)", '0', 4, 300);
    gold.nFrozen = 1;
    PositionGroup first = MakeLot(11, "Au(T+D)", '0', 3, 300);
    first.nFrozen = 1;
    Hold({gold, MakePosition("Ag99.99", '1', 2, 4010)});
    HoldLots({first, MakeLot(12, "Au(T+D)", '0', 1, 300), MakeLot(13, "Ag99.99", '1', 2, 4010)});
    core.ForgetCalls();
    funds.TakeShown();
}

std::string PositionPage::Text(int id) {
    char text[64] = "";
    page.GetDlgItemText(id, text, sizeof text);
    return text;
}

std::string PositionPage::CloseButtons() {
    std::string all;
    for (const int id : kCloseButtons) {
        if (!all.empty()) all += " ";
        all += Text(id) + (Enabled(id) ? "+" : "-");
    }
    return all;
}

CRect PositionPage::Place(int id) {
    CRect place;
    ::GetWindowRect(Control(id), &place);
    page.ScreenToClient(&place);
    return place;
}

void PositionPage::ClickRow(int row) {
    platform::testing::Click(Control(CGoldPositionDlg::kList), 10, RowMiddle(row));
    // Two clicks are no double click.
    platform::testing::PumpFor(::GetDoubleClickTime() + 1);
}

void PositionPage::DoubleClickRow(int row) {
    platform::testing::PumpFor(::GetDoubleClickTime() + 1);
    platform::testing::DoubleClick(Control(CGoldPositionDlg::kList), 10, RowMiddle(row));
}

ShownCell PositionPage::Cell(int row, int column) {
    int left = 0;
    for (int before = 0; before < column; ++before) left += kWidths[before];
    for (const auto& seen : platform::testing::SeenTexts(Control(CGoldPositionDlg::kList))) {
        const int x = (seen.rect.left + seen.rect.right) / 2;
        const int y = (seen.rect.top + seen.rect.bottom) / 2;
        if (x < left || x >= left + kWidths[column] || y / kRowHeight != row + 1) continue;
        return {text::GbkFromUtf8(seen.utf8), seen.color, seen.bold, seen.rect};
    }
    return {};
}

std::vector<std::string> PositionPage::Row(int row) {
    std::vector<std::string> texts;
    for (int column = 0; column < 7; ++column) texts.push_back(Cell(row, column).text);
    return texts;
}

std::vector<std::string> PositionPage::Titles() { return Row(-1); }

}  // namespace tests
