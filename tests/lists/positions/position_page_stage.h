#pragma once

#include <vector>

#include "lists/gold_position_dlg.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "plugin/contract/messages.h"
#include "tests/lists/positions/positions_stage.h"

namespace tests {

/// The window that gets the row messages: keeps what came.
class RowReceiver : public CWnd {
public:
    std::vector<PositionGroup> rows;
    std::vector<std::string> contracts;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

/// The main dialog, as far as positions publish.
class FundsDouble : public PanelHost {
public:
    void ShowFundsLine(double equity, double available, double open_profit) override;
    void ShowFundsOnPanels(double equity, double available, double open_profit) override;
    void ShowOrdersOnPanels(const CZebOrder*, int) override {}

    std::vector<std::string> TakeShown() { return std::exchange(shown_, {}); }

private:
    std::vector<std::string> shown_;
};

/// Answers the questions of the page.
class DialogsDouble : public PositionDialogs {
public:
    struct Question {
        CInsertOrderRequest request;
        bool close;
    };

    bool ConfirmOrder(CWnd* window, const CInsertOrderRequest& request, bool bClose) override;
    bool EditStops(const CZebContract& contract, CPresetStop& stop, const char* title,
                   CWnd* parent) override;

    bool answer = true;
    std::function<void()> on_question;       ///< while either is open
    std::function<void(CPresetStop&)> edit;  ///< what the user enters
    std::vector<Question> questions;
    std::vector<CPresetStop> offered;  ///< stops as they were shown
    std::vector<std::string> titles;
    std::vector<std::string> contracts;
};

struct ShownCell {
    std::string text;  ///< GBK
    COLORREF color = 0;
    bool bold = false;
    RECT rect{};  ///< in the list's window
};

/// The position page, shown and wide enough for all columns.
class PositionPage : public PositionsStage, public ContractSource {
protected:
    PositionPage();
    ~PositionPage() override;

    const CZebContract* FindContractByCode(const char* code) const override {
        return CContractManager::FindContract(code);
    }

    /// The core has these, and says so.
    void Hold(std::vector<CZebPosition> positions);
    void HoldLots(std::vector<PositionGroup> lots);
    void ShowLots();
    /// Three lots of gold, long, one of them frozen, as a total and as lots 11 and 12; beside them
    /// two lots of silver, short, which are lot 13.
    void HoldGoldAndSilver();

    HWND Control(int id) { return ::GetDlgItem(page, id); }
    bool Enabled(int id) { return ::IsWindowEnabled(Control(id)) != FALSE; }
    bool Visible(int id) { return ::IsWindowVisible(Control(id)) != FALSE; }
    std::string Text(int id);
    /// The five that close, and whether they are enabled: "平仓1手+ 平仓30%- ...".
    std::string CloseButtons();
    CRect Place(int id);
    void Press(int id) { platform::testing::Click(Control(id)); }
    void ClickRow(int row);
    void DoubleClickRow(int row);

    /// What the list shows; empty for a blank cell.
    ShownCell Cell(int row, int column);
    std::vector<std::string> Row(int row);
    std::vector<std::string> Titles();

    RowReceiver receiver;
    FundsDouble funds;
    DialogsDouble dialogs;
    CWnd frame;
    CGoldPositionDlg page;
};

}  // namespace tests
