#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "lists/gold_order_dlg.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/gbk_text.h"

namespace tests {

/// The contracts that a container holds for its pages.
class ContractTable : public ContractSource {
public:
    const CZebContract* FindContractByCode(const char* code) const override;
    void Add(const char* code, const char* market, int digits);
    void Clear() { contracts_.clear(); }

private:
    std::map<std::string, CZebContract, std::less<>> contracts_;
};

/// Panels that keep what they were shown, one text of order references each time.
class PanelsDouble : public PanelHost {
public:
    void ShowFundsOnPanels(double, double, double) override {}
    void ShowOrdersOnPanels(const CZebOrder* orders, int count) override;

    std::vector<std::string> shown;
};

struct ShownCell {
    std::string text;  ///< GBK
    COLORREF color = 0;
    bool bold = false;
    RECT rect{};
};

/// An order of three lots of gold at 280.25.
CZebOrder MakeOrder(const char* ref, char status = '1', const char* contract = "Au(T+D)");

/// The order page, shown with its buttons and wide enough for all columns.
class OrderPage : public ::testing::Test {
protected:
    OrderPage();
    ~OrderPage() override;

    /// The core has these orders, and says so.
    void Show(std::vector<CZebOrder> orders);
    COwerDrawListView& List() {
        return *static_cast<COwerDrawListView*>(page_.GetDlgItem(CGoldOrderDlg::kList));
    }
    HWND Control(int id) { return ::GetDlgItem(page_, id); }
    bool Enabled(int id) { return ::IsWindowEnabled(Control(id)) != FALSE; }
    bool Visible(int id) { return ::IsWindowVisible(Control(id)) != FALSE; }
    std::string Text(int id);
    CRect Place(int id);

    void Click(int row);
    void DoubleClick(int row);
    void Press(int id) { platform::testing::Click(Control(id)); }

    /// What the list shows of the cells that are in view.
    ShownCell Cell(int row, int column);
    std::vector<std::string> Row(int row);
    /// The references of the rows on show, as far as they are in view.
    std::string ShownRefs();

    RecordingCore core_;
    RecordingHost host_;
    FrontEndDoors doors_{core_, host_};
    ContractTable contracts_;
    PanelsDouble panels_;
    CWnd frame_;
    CGoldOrderDlg page_;
};

}  // namespace tests
