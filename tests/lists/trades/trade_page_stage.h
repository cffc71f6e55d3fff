#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "lists/gold_trade_dlg.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "tests/lists/trades/trade_samples.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/gbk_text.h"
#include "tests/support/temp_folder.h"

namespace tests {

struct PaintedCell {
    std::string text;  ///< GBK
    COLORREF color = 0;
    bool bold = false;
    RECT rect{};
};

/// The trade page, shown and wide enough for all columns.
class TradePage : public ::testing::Test {
protected:
    TradePage();
    ~TradePage() override;

    /// The core has these trades, and says so.
    void Show(std::vector<CZebTrade> trades);
    HWND List() { return ::GetDlgItem(page_, CGoldTradeDlg::kList); }

    /// What the list shows of the cells that are in view.
    PaintedCell Cell(int row, int column);
    std::vector<std::string> Row(int row);
    /// The numbers of the rows on show.
    std::string ShownNumbers();

    RecordingCore core_;
    RecordingHost host_;
    FrontEndDoors doors_{core_, host_};
    TradedContracts contracts_;
    CWnd frame_;
    CGoldTradeDlg page_;
};

}  // namespace tests
