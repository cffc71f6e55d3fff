#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lists/gold_history_trade_dlg.h"
#include "platform/testing/input.h"
#include "platform/text/gbk.h"
#include "plugin/contract/core_access.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HistoryPage : public ::testing::Test {
protected:
    HistoryPage() {
        platform::testing::StopClock();
        frame_.CreateEx(WS_EX_CONTROLPARENT, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE,
                        CRect(40, 40, 740, 340), nullptr, 0);
        page_.Create(CGoldHistoryTradeDlg::IDD, &frame_);
        page_.ShowWindow(SW_SHOW);
        platform::testing::Pump();
        core_.ForgetCalls();
    }
    ~HistoryPage() override {
        frame_.DestroyWindow();
        platform::testing::Pump();
    }

    HWND Control(int id) { return ::GetDlgItem(page_, id); }
    void Pick(int id, WORD year, WORD month, WORD day) {
        const SYSTEMTIME date{year, month, 0, day, 0, 0, 0, 0};
        ::SendMessageA(Control(id), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&date));
    }
    void Query() { platform::testing::Click(Control(CGoldHistoryTradeDlg::kQuery)); }
    std::string Text() {
        char text[64] = "";
        ::GetWindowTextA(Control(CGoldHistoryTradeDlg::kText), text, sizeof text);
        return text;
    }

    RecordingCore core_;
    FrontEndDoors doors_{core_};
    CWnd frame_;
    CGoldHistoryTradeDlg page_;
};

TEST_F(HistoryPage, AsksForTheDaysAndEmptiesItsText) {
    Pick(CGoldHistoryTradeDlg::kFrom, 2025, 12, 31);
    Pick(CGoldHistoryTradeDlg::kTo, 2026, 1, 5);
    ::SetWindowTextA(Control(CGoldHistoryTradeDlg::kText), "成交");
    Query();
    EXPECT_THAT(core_.TakeCalls(), ElementsAre("QueryTradeByDate(20251231, 20260105, 0)"));
    EXPECT_EQ("", Text());
}

TEST_F(HistoryPage, AsksForASingleDay) {
    Pick(CGoldHistoryTradeDlg::kFrom, 2026, 3, 9);
    Pick(CGoldHistoryTradeDlg::kTo, 2026, 3, 9);
    Query();
    EXPECT_THAT(core_.TakeCalls(), ElementsAre("QueryTradeByDate(20260309, 20260309, 0)"));
}

TEST_F(HistoryPage, RefusesAStartBehindTheEndAndKeepsItsText) {
    Pick(CGoldHistoryTradeDlg::kFrom, 2026, 3, 10);
    Pick(CGoldHistoryTradeDlg::kTo, 2026, 3, 9);
    ::SetWindowTextA(Control(CGoldHistoryTradeDlg::kText), "成交");
    platform::testing::SeenBox box;
    platform::testing::AnswerNextBox(IDOK, &box);
    Query();
    ASSERT_TRUE(box.shown);
    EXPECT_GBK_EQ("提示", text::GbkFromUtf8(box.title));
    EXPECT_GBK_EQ("起始时间必须小于结束时间", text::GbkFromUtf8(box.text));
    EXPECT_THAT(core_.TakeCalls(), IsEmpty());
    EXPECT_GBK_EQ("成交", Text());
}

TEST_F(HistoryPage, AsksNobodyWithoutACore) {
    g_pUICallBack = nullptr;
    ::SetWindowTextA(Control(CGoldHistoryTradeDlg::kText), "成交");
    Query();
    EXPECT_EQ("", Text());
    g_pUICallBack = &core_;
}

}  // namespace
}  // namespace tests
