#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "platform/text/bounded_text.h"
#include "stops/auto_stop_loss_pup_base.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

using platform::testing::Click;
using Page = CGOLDAutoStopLossPup;
using Settings = GOLDSetStopLoss;

constexpr const char* kPreset = "Au(T+D)预设止盈止损";
constexpr const char* kPosition = "Au(T+D)止盈止损";

/// Runs the dialog; the steps are taken one by one while it waits for the user.
class StopDialog : public ::testing::Test {
protected:
    StopDialog() {
        platform::testing::RememberTexts();
        platform::testing::StopClock();
        text::CopyText(contract_.szContract, "Au(T+D)");
        contract_.nPriceDigits = 2;
        contract_.dPriceTick = 0.01;
        text::CopyText(stop_.szExchange, "SGE");
        text::CopyText(stop_.szContract, "Au(T+D)");
        JSDyn1 quote{};
        quote.dLast = 300.00;
        host_.SetQuote(host_.AddSymbol("Au(T+D)", 12, 1, 2), quote);
        core_.trade_param.nStopTicks = 3;
        core_.trade_param.nStopTriggerPrice = 1;
        core_.trade_param.nProfitAdjust = -3;
        core_.trade_param.nOverTicks = 77;
        frame_.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE, CRect(0, 0, 900, 700),
                        nullptr, 0);
    }
    ~StopDialog() override { frame_.DestroyWindow(); }

    using Step = std::function<void()>;

    INT_PTR Run(const char* title, std::vector<Step> steps, const CZebContract* contract) {
        steps_ = std::move(steps);
        TakeStepWhenIdle();
        CGOLDAutoStopLossPupBase dialog(contract, &stop_, title, &frame_);
        dialog_ = &dialog;
        const INT_PTR result = dialog.DoModal();
        EXPECT_EQ(next_, steps_.size()) << "the dialog ended early";
        return result;
    }
    INT_PTR Run(const char* title, std::vector<Step> steps) {
        return Run(title, std::move(steps), &contract_);
    }

    void TakeStepWhenIdle() {
        platform::testing::WhenIdle([](void* self) { static_cast<StopDialog*>(self)->Next(); },
                                    this);
    }
    // A step may open boxes of its own, so the next one is only announced behind it.
    void Next() {
        steps_[next_++]();
        if (next_ < steps_.size()) TakeStepWhenIdle();
    }

    HWND PageWindow(int index) const {
        HWND page = ::GetWindow(::GetDlgItem(*dialog_, CGOLDAutoStopLossPupBase::kTabs), GW_CHILD);
        // The pages stand in the order of their making, the first one on top.
        for (; index > 0; --index) page = ::GetWindow(page, GW_HWNDNEXT);
        return page;
    }
    HWND Stops() const { return PageWindow(0); }
    HWND Account() const { return PageWindow(1); }

    static std::string Bytes(const CPresetStop& stop) {
        return {reinterpret_cast<const char*>(&stop), sizeof stop};
    }
    static std::string Text(HWND page, int id) {
        char text[64] = {};
        ::GetDlgItemTextA(page, id, text, sizeof text);
        return text;
    }
    static bool Enabled(HWND page, int id) { return ::IsWindowEnabled(::GetDlgItem(page, id)); }
    static bool Checked(HWND page, int id) { return ::IsDlgButtonChecked(page, id) == BST_CHECKED; }
    static void Press(HWND page, int id) { Click(::GetDlgItem(page, id)); }
    static void Set(HWND page, int id, const char* text) { ::SetDlgItemTextA(page, id, text); }
    /// The upper half of a spin is up.
    static void Up(HWND page, int spin) { Click(::GetDlgItem(page, spin), 8, 4); }
    static void Down(HWND page, int spin) {
        RECT client{};
        ::GetClientRect(::GetDlgItem(page, spin), &client);
        Click(::GetDlgItem(page, spin), 8, client.bottom - 4);
    }
    // Posted, as a click ends the loop that waits for it.
    void End(int id) { ::PostMessageA(*dialog_, WM_COMMAND, static_cast<WPARAM>(id), 0); }
    Step Ok() {
        return [this] { End(IDOK); };
    }
    Step Cancel() {
        return [this] { End(IDCANCEL); };
    }
    Step Reply(int function, const char* text) {
        return [function, text] { FireReply(function, text); };
    }
    static void FireReply(int function, const char* text);

    RecordingCore core_;
    RecordingHost host_;
    FrontEndDoors doors_{core_, host_};
    CZebContract contract_{};
    CPresetStop stop_{};
    CWnd frame_;
    CGOLDAutoStopLossPupBase* dialog_ = nullptr;
    std::vector<Step> steps_;
    std::size_t next_ = 0;
};

/// Reaches the protected listeners' list.
struct Firing : MyEventUtils {
    static void Reply(int function, const char* text) {
        const CAccountInfo account{};
        Fire(&account, function, text);
    }
};

void StopDialog::FireReply(int function, const char* text) { Firing::Reply(function, text); }

TEST_F(StopDialog, ShowsTheRecordAndGivesItBackUnchanged) {
    stop_.dStopTicks = 12;
    stop_.dStopFloat = 3;
    stop_.dProfitTicks = 25;
    stop_.dLongStop = 280.5;
    stop_.dShortProfit = 270;
    const CPresetStop before = stop_;
    EXPECT_EQ(Run(kPreset, {[this] {
                                EXPECT_TRUE(Checked(Stops(), Page::kFloatStop));
                                EXPECT_FALSE(Checked(Stops(), Page::kFixedStop));
                                EXPECT_EQ(Text(Stops(), Page::kFloatStopTicks), "12");
                                EXPECT_EQ(Text(Stops(), Page::kFloatStep), "3");
                                EXPECT_FALSE(Enabled(Stops(), Page::kFixedStopTicks));
                                EXPECT_TRUE(Checked(Stops(), Page::kFixedProfit));
                                EXPECT_EQ(Text(Stops(), Page::kFixedProfitTicks), "25");
                                EXPECT_EQ(Text(Stops(), Page::kLongStopPrice), "280.50");
                                EXPECT_EQ(Text(Stops(), Page::kShortProfitPrice), "270.00");
                                EXPECT_FALSE(Checked(Stops(), Page::kLongProfit));
                                EXPECT_FALSE(Enabled(Stops(), Page::kLongProfitPrice));
                                EXPECT_GBK_EQ(Text(*dialog_, CGOLDAutoStopLossPupBase::kLink), "");
                            },
                            Ok()}),
              IDOK);
    EXPECT_EQ(Bytes(before), Bytes(stop_));
}

TEST_F(StopDialog, SwitchesOpenTheirControlsWithUsualNumbers) {
    stop_.dProfitTicks = 5;
    Run(kPreset, {[this] {
                      EXPECT_FALSE(Enabled(Stops(), Page::kFixedStop));
                      Press(Stops(), Page::kStop);
                      EXPECT_TRUE(Enabled(Stops(), Page::kFixedStop));
                      EXPECT_FALSE(Enabled(Stops(), Page::kFixedStopTicks));
                      Press(Stops(), Page::kFixedStop);
                      EXPECT_EQ(Text(Stops(), Page::kFixedStopTicks), "10");
                      EXPECT_TRUE(Enabled(Stops(), Page::kFixedStopTicks));
                      Press(Stops(), Page::kFloatStop);
                      EXPECT_FALSE(Checked(Stops(), Page::kFixedStop));
                      EXPECT_EQ(Text(Stops(), Page::kFloatStopTicks), "10");
                      EXPECT_EQ(Text(Stops(), Page::kFloatStep), "2");
                      Up(Stops(), Page::kFloatStepSpin);
                      EXPECT_EQ(Text(Stops(), Page::kFloatStep), "3");
                      for (int i = 0; i < 4; ++i) Down(Stops(), Page::kFloatStepSpin);
                      EXPECT_EQ(Text(Stops(), Page::kFloatStep), "1");
                      // Off and on again: the record's numbers go at once.
                      Press(Stops(), Page::kProfit);
                      EXPECT_EQ(double{stop_.dProfitTicks}, 5.0);
                      EXPECT_FALSE(Checked(Stops(), Page::kFixedProfit));
                      Press(Stops(), Page::kProfit);
                      EXPECT_EQ(double{stop_.dProfitTicks}, 0.0);
                  },
                  Ok()});
    EXPECT_EQ(double{stop_.dStopTicks}, 10.0);
    EXPECT_EQ(double{stop_.dStopFloat}, 1.0);
    // On, but in neither way.
    EXPECT_EQ(double{stop_.dProfitTicks}, 0.0);
}

TEST_F(StopDialog, AbsolutePricesStartTwentyTicksAway) {
    Run(kPreset, {[this] {
                      const struct {
                          int box;
                          int edit;
                          const char* price;
                      } kRows[] = {{Page::kLongStop, Page::kLongStopPrice, "299.80"},
                                   {Page::kLongProfit, Page::kLongProfitPrice, "300.20"},
                                   {Page::kShortStop, Page::kShortStopPrice, "300.20"},
                                   {Page::kShortProfit, Page::kShortProfitPrice, "299.80"}};
                      for (const auto& [box, edit, price] : kRows) {
                          Press(Stops(), box);
                          EXPECT_EQ(Text(Stops(), edit), price);
                      }
                      Up(Stops(), Page::kLongStopSpin);
                      EXPECT_EQ(Text(Stops(), Page::kLongStopPrice), "299.81");
                      Set(Stops(), Page::kLongProfitPrice, "0.01");
                      Down(Stops(), Page::kLongProfitSpin);
                      EXPECT_EQ(Text(Stops(), Page::kLongProfitPrice), "0.01");
                      Set(Stops(), Page::kShortStopPrice, "nan");
                      Press(Stops(), Page::kShortProfit);
                  },
                  Ok()});
    EXPECT_DOUBLE_EQ(double{stop_.dLongStop}, 299.81);
    EXPECT_DOUBLE_EQ(double{stop_.dLongProfit}, 0.01);
    EXPECT_EQ(double{stop_.dShortStop}, 0.0);
    EXPECT_EQ(double{stop_.dShortProfit}, 0.0);
}

TEST_F(StopDialog, WithoutAContractNoPriceIsSuggestedOrStepped) {
    Run(kPreset,
        {[this] {
             Press(Stops(), Page::kLongStop);
             EXPECT_EQ(Text(Stops(), Page::kLongStopPrice), "");
             Up(Stops(), Page::kLongStopSpin);
             EXPECT_EQ(Text(Stops(), Page::kLongStopPrice), "");
             Set(Stops(), Page::kLongStopPrice, "280.5");
         },
         Ok()},
        nullptr);
    EXPECT_DOUBLE_EQ(double{stop_.dLongStop}, 280.5);
}

TEST_F(StopDialog, TheAccountsSettingsAreStoredAndTheRestIsKept) {
    Run(kPreset, {[this] {
                      EXPECT_EQ(Text(Account(), Settings::kStopTicks), "3");
                      EXPECT_EQ(Text(Account(), Settings::kProfitAdjust), "-3");
                      ::SendDlgItemMessageA(*dialog_, CGOLDAutoStopLossPupBase::kTabs,
                                            TCM_SETCURFOCUS, 1, 0);
                      EXPECT_TRUE(::IsWindowVisible(Account()));
                      EXPECT_FALSE(::IsWindowVisible(Stops()));
                      Down(Account(), Settings::kProfitAdjustSpin);
                      for (int i = 0; i < 3; ++i) Down(Account(), Settings::kStopTicksSpin);
                      Set(Account(), Settings::kProfitTicks, "");
                      ::SendDlgItemMessageA(Account(), Settings::kStopOrderPrice, CB_SETCURSEL, 4,
                                            0);
                      ::SendDlgItemMessageA(Account(), Settings::kProfitOrderPrice, CB_SETCURSEL,
                                            static_cast<WPARAM>(-1), 0);
                      ::SendDlgItemMessageA(Account(), Settings::kValidity, CB_SETCURSEL, 1, 0);
                      Press(Account(), Settings::kAutoChase);
                  },
                  Ok()});
    ASSERT_EQ(core_.set_params.size(), 1U);
    const CTradeParam& param = core_.set_params[0];
    EXPECT_EQ(int{param.nStopTicks}, 1);
    EXPECT_EQ(int{param.nStopTriggerPrice}, 1);
    EXPECT_EQ(int{param.nProfitTicks}, 0);
    EXPECT_EQ(int{param.nStopOrderPrice}, 4);
    EXPECT_EQ(int{param.nProfitOrderPrice}, 0);
    EXPECT_EQ(int{param.nProfitAdjust}, -4);
    EXPECT_EQ(int{param.bAutoChase}, 1);
    EXPECT_EQ(int{param.nValidity}, 1);
    EXPECT_EQ(int{param.nOverTicks}, 77);
}

TEST_F(StopDialog, CancelStoresNothing) {
    EXPECT_EQ(Run(kPreset, {[this] { Set(Stops(), Page::kFixedStopTicks, "5"); }, Cancel()}),
              IDCANCEL);
    EXPECT_TRUE(core_.set_params.empty());
    EXPECT_EQ(double{stop_.dStopTicks}, 0.0);
}

TEST_F(StopDialog, APositionsStopsWaitForTheMarketsState) {
    platform::testing::SeenBox refused;
    platform::testing::SeenBox allowed;
    const INT_PTR result =
        Run(kPosition,
            {[this] {
                 EXPECT_GBK_EQ(Text(*dialog_, CGOLDAutoStopLossPupBase::kLink).substr(0, 10),
                               "有效范围：");
                 EXPECT_FALSE(
                     ::IsWindowVisible(::GetDlgItem(*dialog_, CGOLDAutoStopLossPupBase::kPrompt)));
                 // Nothing is out yet: somebody else's answer.
                 FireReply(6027, "0|0|0|Y|SGE|Au(T+D)|1|");
                 ::SendMessageA(*dialog_, WM_COMMAND, IDOK, 0);
                 EXPECT_EQ(core_.CallsOf("SendFunctionRequest"),
                           std::vector<std::string>{"SendFunctionRequest(6027, \"SGE|Au(T+D)\")"});
                 FireReply(6028, "0|0|0|Y|SGE|Au(T+D)|1|");
             },
             [&refused] {
                 platform::testing::AnswerNextBox(IDOK, &refused);
                 FireReply(6027, "0|0|0|Y|SGE|Au(T+D)|2|");
             },
             [this] {
                 EXPECT_TRUE(::IsWindowVisible(*dialog_));
                 // Answered once; a second answer to the same question is none.
                 FireReply(6027, "0|0|0|Y|SGE|Au(T+D)|1|");
                 EXPECT_TRUE(::IsWindow(*dialog_));
                 Press(Stops(), Page::kLongStop);
                 Set(Stops(), Page::kLongStopPrice, "280.5");
                 ::SendMessageA(*dialog_, WM_COMMAND, IDOK, 0);
                 // After the question, so no part of the answer.
                 Press(Stops(), Page::kLongStop);
                 EXPECT_EQ(double{stop_.dLongStop}, 0.0);
             },
             [&allowed] {
                 platform::testing::AnswerNextBox(IDOK, &allowed);
                 FireReply(6027, "0|0|0|Y|SGE|Au(T+D)|1|");
             }});
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(refused.text, text::Utf8FromGbk("盘后禁止设置当日有效条件单."));
    EXPECT_EQ(allowed.title, text::Utf8FromGbk("提示"));
    EXPECT_EQ(core_.set_params.size(), 2U);
    EXPECT_EQ(double{stop_.dLongStop}, 280.5);
    // Gone, it listens no more.
    FireReply(6027, "0|0|0|Y|SGE|Au(T+D)|1|");
}

}  // namespace
}  // namespace tests
