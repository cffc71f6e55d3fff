// What becomes of a press: let go elsewhere, taken away, repeated, forbidden, or led by a dialog.

#include <memory>
#include <utility>

#include "controls/bmp_button_no_pic.h"
#include "controls/bs_button.h"
#include "controls/ratio_button.h"
#include "controls/rv_msgr_btn.h"
#include "controls/v_button.h"
#include "platform/testing/input.h"
#include "tests/controls/stage.h"
#include "tests/controls/test_module.h"

namespace tests {

namespace {

using platform::testing::Click;
using platform::testing::MovePointer;
using platform::testing::Press;
using platform::testing::Pump;
using platform::testing::Release;
using platform::testing::ScreenPoint;

constexpr int kId = 12;
constexpr POINT kOutside{5, 5};

/// Counts the clicks on its buttons.
class PressStage : public Stage {
public:
    int TakeClicks() { return std::exchange(clicks_, 0); }

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (HIWORD(wParam) == BN_CLICKED) ++clicks_;
        return Stage::OnCommand(wParam, lParam);
    }

private:
    int clicks_ = 0;
};

std::unique_ptr<CTrackButton> MakeButton(const std::string& kind) {
    if (kind == "picture") return std::make_unique<CBmpButton>();
    if (kind == "flat") return std::make_unique<CBmpButtonNoPic>();
    if (kind == "big") return std::make_unique<CBSButton>();
    if (kind == "upright") return std::make_unique<CVButton>();
    if (kind == "ratio") return std::make_unique<CRatioButton>();
    return std::make_unique<CRvMsgrBtn>();
}

class ButtonPress : public ::testing::TestWithParam<const char*> {
protected:
    ButtonPress() {
        platform::testing::StopClock();
        MovePointer(kOutside);
        button_->Create("平仓", WS_VISIBLE | WS_TABSTOP, CRect(20, 20, 100, 50), &stage_, kId);
        Pump();
    }

    void PressInside() {
        MovePointer(ScreenPoint(*button_));
        Press();
        EXPECT_EQ(button_->State(), CTrackButton::kPressed);
    }
    static void Hold(BYTE key, int times) {
        for (int i = 0; i < times; ++i) {
            ::keybd_event(key, 0, 0, 0);
            Pump();
        }
        ::keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
        Pump();
    }

    RecordingCore core_;
    FrontEndDoors doors_{core_};
    PressStage stage_;
    std::unique_ptr<CTrackButton> button_ = MakeButton(GetParam());
};

TEST_P(ButtonPress, LetGoOutsideIsNoClick) {
    PressInside();
    MovePointer(kOutside);
    Release();
    EXPECT_EQ(button_->State(), CTrackButton::kNormal);
    EXPECT_EQ(stage_.TakeClicks(), 0);
    EXPECT_EQ(::GetCapture(), nullptr);
    Click(*button_);
    EXPECT_EQ(stage_.TakeClicks(), 1);
}

TEST_P(ButtonPress, TakenAwayIsNoClick) {
    PressInside();
    ::SetCapture(stage_);
    EXPECT_NE(button_->State(), CTrackButton::kPressed);
    ::ReleaseCapture();
    Release();
    EXPECT_NE(button_->State(), CTrackButton::kPressed);
    EXPECT_EQ(stage_.TakeClicks(), 0);
}

TEST_P(ButtonPress, EndsWhenTheButtonIsDisabled) {
    PressInside();
    button_->EnableWindow(FALSE);
    EXPECT_NE(button_->State(), CTrackButton::kPressed);
    EXPECT_NE(::GetCapture(), button_->m_hWnd);
    Release();
    button_->EnableWindow(TRUE);
    EXPECT_EQ(stage_.TakeClicks(), 0);
    MovePointer(kOutside);
    EXPECT_EQ(button_->State(), CTrackButton::kNormal);
}

TEST_P(ButtonPress, ByASpaceThatIsHeldCountsOnce) {
    button_->SetFocus();
    Hold(VK_SPACE, 5);
    EXPECT_EQ(stage_.TakeClicks(), 1);
}

TEST_P(ButtonPress, OfAQuickSecondClickCounts) {
    Click(*button_);
    Click(*button_);
    EXPECT_EQ(stage_.TakeClicks(), 2);
}

TEST_P(ButtonPress, MayEndTheButton) {
    class Ending : public PressStage {
    public:
        CWnd* victim = nullptr;

    protected:
        BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
            victim->DestroyWindow();
            return PressStage::OnCommand(wParam, lParam);
        }
    } stage;
    const auto button = MakeButton(GetParam());
    button->Create("关闭", WS_VISIBLE, CRect(20, 60, 100, 90), &stage, kId);
    stage.victim = button.get();
    Click(*button);
    EXPECT_EQ(button->m_hWnd, nullptr);
    EXPECT_EQ(stage.TakeClicks(), 1);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ButtonPress,
                         ::testing::Values("picture", "flat", "big", "upright", "ratio", "raised"),
                         [](const auto& kind) { return std::string(kind.param); });

/// Two odd buttons, an edit and a button of the system; writes down what was pressed.
class OddDialog : public CDialog {
public:
    COddButton first;
    CRvMsgrBtn second;

    OddDialog() {
        Create(kOddDialog, nullptr);
        first.SubclassDlgItem(kOddFirst, this);
        second.SubclassDlgItem(kOddSecond, this);
        Pump();
    }
    ~OddDialog() override { DestroyWindow(); }

    std::vector<int> TakePressed() { return std::exchange(pressed_, {}); }
    /// The dialog's default buttons, by what they answer.
    std::vector<int> Defaults() {
        std::vector<int> ids;
        for (const int id : {kOddFirst, kOddSecond, kOddPlain}) {
            if ((SendDlgItemMessage(id, WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON) != 0)
                ids.push_back(id);
        }
        return ids;
    }

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (HIWORD(wParam) == BN_CLICKED) pressed_.push_back(LOWORD(wParam));
        return CDialog::OnCommand(wParam, lParam);
    }

private:
    std::vector<int> pressed_;
};

/// The keys go through the dialog as a loop's do.
void KeyInDialog(BYTE key, bool repeated = false) {
    const HWND focus = ::GetFocus();
    MSG message{focus, WM_KEYDOWN, key, repeated ? 0x40000001 : 1, 0, {0, 0}};
    if (CWnd* const window = CWnd::FromHandlePermanent(focus)) {
        if (window->PreTranslateMessage(&message)) return;
    }
    ::IsDialogMessageA(::GetParent(focus), &message);
    Pump();
}

using Ids = std::vector<int>;

class OddButtons : public ::testing::Test {
protected:
    OddDialog dialog_;
};

TEST_F(OddButtons, TheDefaultFollowsTheFocus) {
    EXPECT_EQ(dialog_.Defaults(), Ids{kOddFirst});
    const struct {
        int focus;
        Ids defaults;
        Ids pressed;
    } cases[] = {
        {kOddSecond, {kOddSecond}, {kOddSecond}},
        {kOddEdit, {kOddFirst}, {kOddFirst}},
        {kOddPlain, {kOddPlain}, {kOddPlain}},
        {kOddFirst, {kOddFirst}, {kOddFirst}},
    };
    for (const auto& [focus, defaults, pressed] : cases) {
        dialog_.GotoDlgCtrl(dialog_.GetDlgItem(focus));
        EXPECT_EQ(dialog_.Defaults(), defaults) << focus;
        KeyInDialog(VK_RETURN);
        EXPECT_EQ(dialog_.TakePressed(), pressed) << focus;
        for (const CWnd* button :
             {static_cast<CWnd*>(&dialog_.first), static_cast<CWnd*>(&dialog_.second)}) {
            EXPECT_EQ(button->GetStyle() & 0xF, DWORD{BS_OWNERDRAW}) << focus;
        }
    }
}

TEST_F(OddButtons, AnEnterThatIsHeldPressesOnce) {
    dialog_.GotoDlgCtrl(&dialog_.second);
    KeyInDialog(VK_RETURN);
    for (int i = 0; i < 3; ++i) KeyInDialog(VK_RETURN, true);
    EXPECT_EQ(dialog_.TakePressed(), Ids{kOddSecond});
}

TEST_F(OddButtons, OneMadeByHandAnswersForItsType) {
    COddButton button;
    button.Create("查询", BS_DEFPUSHBUTTON, CRect(0, 0, 40, 20), &dialog_, 30);
    EXPECT_EQ(button.SendMessage(WM_GETDLGCODE), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
    EXPECT_EQ(button.GetStyle() & 0xF, DWORD{BS_OWNERDRAW});
}

}  // namespace

}  // namespace tests
