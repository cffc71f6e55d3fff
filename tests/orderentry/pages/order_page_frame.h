#pragma once

#include <cstring>
#include <functional>

#include "orderentry/gold_bs_base_dlg.h"
#include "plugin/settings/process_values.h"
#include "tests/orderentry/pages/page_frame.h"

namespace tests {

/// Lists that know what can be closed.
class ListsDouble : public ReportPane {
public:
    bool Create(CWnd* parent) override {
        return window_.CreateEx(0, "Static", "", WS_CHILD, CRect(0, 0, 1, 1), parent, 0) != FALSE;
    }
    CWnd& Window() override { return window_; }
    void Connect(const ContractSource&, HWND receiver) override { row_receiver = receiver; }
    void SetPage(int) override {}
    void OnQuote(unsigned int, const JSDyn1&) override {}
    int CloseVolume(const char* contract, char direction) const override {
        return std::strcmp(contract, "Au(T+D)") == 0 && direction == kDirectionSell ? closable : 0;
    }
    double HoldLoss() const override { return loss; }

    int closable = 7;
    double loss = 0;
    HWND row_receiver = nullptr;

private:
    CWnd window_;
};

/// A stop dialog that a test answers.
class StopsDouble : public StopDialog {
public:
    bool Edit(const CZebContract& contract, CPresetStop& stop, const char* title,
              CWnd* parent) override {
        titles.emplace_back(title);
        return edit && edit(contract, stop, parent);
    }

    std::function<bool(const CZebContract&, CPresetStop&, CWnd*)> edit;
    std::vector<std::string> titles;
};

/// The order page in its container, over a core with two deferred contracts and a spot one.
class OrderPageTest : public PageTest {
protected:
    OrderPageTest();
    ~OrderPageTest() override;

    static CZebContract MakeContract(const char* code, const char* market, int digits, double tick);
    /// Bids 300.00 and asks 300.02, last 300.01, limits 270 and 330.
    static JSDyn1 Book();

    CGoldBsDlg& Order() { return base_.OrderPage(); }
    HWND Control(int id) { return ::GetDlgItem(Order(), id); }
    /// The edit between the buttons of a composite, by its id.
    CWnd& Inner(int id);
    std::string Text(int id);
    std::string InnerText(int id) { return TextOf(Inner(id)); }
    bool Checked(int id) { return ::SendMessageA(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
    bool Enabled(int id) { return ::IsWindowEnabled(Control(id)) != FALSE; }
    bool Visible(int id) { return ::IsWindowVisible(Control(id)) != FALSE; }
    std::string ContractText() { return Text(CGoldBsDlg::kContract); }

    void Press(int id);
    /// As if the host's current contract were this one.
    void HostSelects(const char* code) {
        Order().SetContract(base_.FindContractByCode(code));
        platform::testing::Pump();
    }
    /// Chooses in the drop-down with the keyboard.
    void UserSelects(int item);
    void TypePrice(const char* text);
    void TypeVolume(const char* text);
    void SendRow(const char* contract, char direction, int group, int volume, int frozen);

    /// All that a user entered, to be compared.
    std::string Entered();
    /// The bytes that an order of the page must have.
    CInsertOrderRequest Expected(const char* contract, char direction, char offset, int volume,
                                 const char* price, int market, int code);

    ListsDouble lists_;
    StopsDouble stops_;
    CGoldBSBaseDlg base_{lists_};
    unsigned au_ = 0;
    unsigned spot_ = 0;
};

}  // namespace tests
