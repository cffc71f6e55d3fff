#include <functional>
#include <memory>

#include "controls/black_button.h"
#include "controls/bmp_button_no_pic.h"
#include "controls/bs_button.h"
#include "controls/odd_button.h"
#include "controls/ratio_button.h"
#include "controls/rv_msgr_btn.h"
#include "controls/v_button.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "plugin/contract/messages.h"
#include "tests/controls/stage.h"
#include "tests/support/gbk_text.h"

namespace tests {
namespace {

using platform::testing::Click;
using platform::testing::MovePointer;
using platform::testing::Press;
using platform::testing::Pump;
using platform::testing::PumpFor;
using platform::testing::Release;
using platform::testing::ScreenPoint;

constexpr COLORREF kStateColors[] = {RGB(10, 0, 0), RGB(20, 0, 0), RGB(30, 0, 0), RGB(40, 0, 0)};
constexpr int kTable[] = {0, 1, 2, 3};

/// A stage that notes clicks on its buttons and hands owner-draw messages back to them.
class ButtonStage : public Stage {
public:
    int clicks = 0;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (HIWORD(wParam) == BN_CLICKED) ++clicks;
        return Stage::OnCommand(wParam, lParam);
    }
};

class Buttons : public ::testing::Test {
protected:
    Buttons() {
        platform::testing::RememberTexts();
        platform::testing::StopClock();
        MovePointer({1200, 780});
        other_.Create(WS_CHILD | WS_VISIBLE, CRect(300, 200, 340, 220), &stage_, 99);
        other_.SetFocus();
        PumpFor(1000);
    }
    ~Buttons() override {
        if (skin_) ::DeleteObject(skin_);
    }

    template <class Button>
    void Make(Button& button, const char* text) {
        button.Create(text, WS_VISIBLE, CRect(20, 20, 100, 60), &stage_, 12);
    }
    /// Four pictures of 16 x 20 pixels, each of one colour.
    HBITMAP Skin() {
        const CClientDC screen(&stage_);
        CDC dc;
        dc.CreateCompatibleDC(&screen);
        skin_ = ::CreateCompatibleBitmap(screen, 64, 20);
        const toolkit::ScopedSelect select(dc, skin_);
        for (int i = 0; i < 4; ++i) {
            dc.FillSolidRect(CRect(i * 16, 0, i * 16 + 16, 20), kStateColors[i]);
        }
        return skin_;
    }
    static COLORREF GroundOf(CWnd& button) {
        Pump();
        const CClientDC dc(&button);
        return dc.GetPixel(4, 30);
    }
    static platform::testing::SeenText Caption(CWnd& button) {
        Pump();
        const auto texts = platform::testing::SeenTexts(button);
        return texts.empty() ? platform::testing::SeenText{} : texts.front();
    }

    RecordingCore core_;
    FrontEndDoors doors_{core_};
    ButtonStage stage_;
    CEdit other_;
    HBITMAP skin_ = nullptr;
};

TEST_F(Buttons, StatesFollowPointerPressFocusAndEnabling) {
    CBmpButton button;
    Make(button, "撤单");
    button.SetSkin(Skin(), 4, kTable, FALSE);
    const struct {
        const char* name;
        std::function<void()> action;
        int picture;
    } kSteps[] = {
        {"at rest", [] {}, 0},
        {"under the pointer",
         [&] {
             MovePointer(ScreenPoint(button));
             Pump();
         },
         1},
        {"pressed", [] { Press(); }, 2},
        {"released, with the focus", [] { Release(); }, 1},
        {"focus lost", [&] { other_.SetFocus(); }, 0},
        {"moved inside after the release",
         [&] {
             MovePointer(ScreenPoint(button, 9, 9));
             Pump();
         },
         0},
        {"left",
         [] {
             MovePointer({1200, 780});
             Pump();
         },
         0},
        {"entered again",
         [&] {
             MovePointer(ScreenPoint(button));
             Pump();
         },
         1},
        {"disabled", [&] { button.EnableWindow(FALSE); }, 3},
        {"enabled",
         [&] {
             button.EnableWindow(TRUE);
             MovePointer({1200, 780});
             Pump();
         },
         0},
        {"pressed, capture taken",
         [&] {
             MovePointer(ScreenPoint(button));
             Press();
             ::SetCapture(stage_);
             other_.SetFocus();
         },
         0},
    };
    for (const auto& [name, action, picture] : kSteps) {
        action();
        EXPECT_EQ(GroundOf(button), kStateColors[picture]) << name;
    }
    ::ReleaseCapture();
    Release();
    EXPECT_EQ(stage_.clicks, 1);
}

TEST_F(Buttons, QuickPressesAllCount) {
    CBmpButton button;
    Make(button, "+");
    for (int i = 0; i < 3; ++i) Click(button);
    EXPECT_EQ(stage_.clicks, 3);
    EXPECT_EQ(::GetFocus(), button.m_hWnd);
}

TEST_F(Buttons, PicturesAreStretchedInThreePartsOrSetTheSize) {
    CBmpButton button;
    Make(button, "");
    const HBITMAP skin = Skin();
    button.SetSkin(skin, 4, kTable, TRUE);
    CRect size;
    button.GetClientRect(&size);
    EXPECT_EQ(size.Width(), 16);
    EXPECT_EQ(size.Height(), 20);
    // A table says which state each picture shows; a state that it lacks gets the first picture.
    const int kMixed[] = {7, 2, 1, -1};
    StateSkin states;
    states.Set(skin, 4, kMixed);
    EXPECT_EQ(states.PictureOf(1).left, 32);
    EXPECT_EQ(states.PictureOf(2).left, 16);
    EXPECT_EQ(states.PictureOf(0).left, 0);
    EXPECT_EQ(states.PictureOf(3).left, 0);
    states.Set(nullptr, 4, kTable);
    EXPECT_TRUE(states.PictureOf(0).IsRectEmpty());
    states.Set(skin, 65, nullptr);
    EXPECT_TRUE(states.PictureOf(0).IsRectEmpty());
}

TEST_F(Buttons, WithoutAPictureOnlyTheCaptionIsPainted) {
    CBmpButton button;
    Make(button, "导出");
    EXPECT_EQ(Caption(button).utf8, text::Utf8FromGbk("导出"));
    EXPECT_EQ(Caption(button).color, COLORREF{0xF3F3F3});
    button.EnableWindow(FALSE);
    EXPECT_EQ(Caption(button).color, GetSysColor(COLOR_GRAYTEXT));
    button.EnableWindow(TRUE);
    button.SetColors({kStateColors[0], kStateColors[1], kStateColors[2], kStateColors[3]});
    EXPECT_EQ(GroundOf(button), kStateColors[0]);
}

TEST_F(Buttons, TheTipComesWhenThePointerRests) {
    CBmpButton button;
    Make(button, "导出");
    button.SetTip("导出成交");
    const auto tip = [&]() -> std::string {
        for (HWND window = ::GetWindow(::GetDesktopWindow(), GW_CHILD); window;
             window = ::GetWindow(window, GW_HWNDNEXT)) {
            if (!::IsWindowVisible(window) || window == stage_.m_hWnd) continue;
            const auto texts = platform::testing::SeenTexts(window);
            if (!texts.empty()) return texts.front().utf8;
        }
        return "";
    };
    MovePointer(ScreenPoint(button, 10, 10));
    PumpFor(180);
    EXPECT_EQ(tip(), "");
    MovePointer(ScreenPoint(button, 12, 10));
    PumpFor(180);
    EXPECT_EQ(tip(), "");
    PumpFor(80);
    EXPECT_EQ(tip(), text::Utf8FromGbk("导出成交"));
    MovePointer(ScreenPoint(button, 14, 10));
    Pump();
    EXPECT_EQ(tip(), "");
    PumpFor(300);
    EXPECT_EQ(tip(), text::Utf8FromGbk("导出成交"));
    MovePointer({1200, 780});
    PumpFor(300);
    EXPECT_EQ(tip(), "");
}

TEST_F(Buttons, TheTipStaysWhileThePointerStays) {
    CBmpButton button;
    Make(button, "导出");
    button.SetTip("导出成交");
    const POINT place = ScreenPoint(button, 10, 10);
    MovePointer(place);
    PumpFor(300);
    const HWND tip = ::GetTopWindow(nullptr);
    ASSERT_NE(tip, stage_.m_hWnd);
    ASSERT_TRUE(::IsWindowVisible(tip));
    button.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(10, 10));
    EXPECT_TRUE(::IsWindowVisible(tip));
    button.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(11, 10));
    EXPECT_FALSE(::IsWindowVisible(tip));
    PumpFor(300);
    EXPECT_TRUE(::IsWindowVisible(tip));
    button.DestroyWindow();
    EXPECT_FALSE(::IsWindow(tip));
}

TEST_F(Buttons, FlatButtonsTakeTheirStyleFromTheState) {
    CBmpButtonNoPic button;
    Make(button, "平仓1%");
    button.SetStyle(0, {RGB(1, 2, 3), RGB(4, 5, 6), RGB(7, 8, 9)});
    button.SetStyle(9, {0, 0, 0});
    EXPECT_EQ(GroundOf(button), RGB(1, 2, 3));
    EXPECT_EQ(Caption(button).color, RGB(7, 8, 9));
    const CClientDC dc(&button);
    EXPECT_EQ(dc.GetPixel(0, 10), RGB(4, 5, 6));
    EXPECT_EQ(dc.GetPixel(79, 39), dc.GetPixel(0, 0));
    EXPECT_NE(dc.GetPixel(0, 0), RGB(4, 5, 6)) << "the corner is the parent's";
    EXPECT_EQ(button.m_nValue, 0);
}

TEST_F(Buttons, TheBigOnesHoldTheMouseWhileItIsOverThem) {
    CBSButton button;
    Make(button, "买入");
    button.SetSkin(Skin(), 4, kTable, FALSE);
    button.SetPrice("300.50", RGB(1, 2, 3));
    MovePointer(ScreenPoint(button));
    Pump();
    EXPECT_EQ(::GetCapture(), button.m_hWnd);
    EXPECT_EQ(GroundOf(button), kStateColors[1]);
    Click(button);
    EXPECT_EQ(stage_.clicks, 1);
    MovePointer({1200, 780});
    Pump();
    EXPECT_EQ(::GetCapture(), nullptr);
    other_.SetFocus();
    EXPECT_EQ(GroundOf(button), kStateColors[0]);
    button.SetInert(true);
    Click(button);
    EXPECT_EQ(stage_.clicks, 1);
    EXPECT_EQ(button.State(), CTrackButton::kInert);
}

TEST_F(Buttons, TheBigOnesSayTheirSideByColour) {
    CBSButton button;
    Make(button, "买入");
    button.SetSkin(Skin(), 4, kTable, FALSE);
    button.SetPrice("300.50", RGB(1, 2, 3));
    Pump();
    auto texts = platform::testing::SeenTexts(button);
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_EQ(texts[0].color, COLORREF{0x093FFE});
    EXPECT_EQ(texts[1].utf8, "300.50");
    EXPECT_EQ(texts[1].color, RGB(1, 2, 3));
    EXPECT_LE(texts[0].rect.bottom, 20);
    button.SetWindowText("卖出");
    button.Invalidate();
    EXPECT_EQ(Caption(button).color, COLORREF{0x0C8B3C});
    button.EnableWindow(FALSE);
    EXPECT_EQ(Caption(button).color, controls::DisabledOn(kStateColors[0]));
    EXPECT_EQ(controls::DisabledOn(RGB(200, 100, 0)), RGB(180, 115, 25));
    EXPECT_EQ(controls::DisabledOn(RGB(127, 128, 255)), RGB(139, 115, 229));
}

TEST_F(Buttons, ARatioStaysPressedUntilItIsLetGo) {
    CRatioButton button;
    Make(button, "1/2");
    EXPECT_EQ(Caption(button).color, COLORREF{0x8E8E8E});
    Click(button);
    MovePointer({1200, 780});
    other_.SetFocus();
    EXPECT_EQ(button.State(), CTrackButton::kPressed);
    EXPECT_EQ(Caption(button).color, COLORREF{0xF5F5F5});
    MovePointer(platform::testing::ScreenPoint(button));
    platform::testing::Press();
    MovePointer({1200, 780});
    platform::testing::Release();
    EXPECT_EQ(button.State(), CTrackButton::kPressed) << "let go outside, it stays what it was";
    button.SendMessage(WM_UNLATCH_RATIO);
    EXPECT_EQ(button.State(), CTrackButton::kNormal);
}

TEST_F(Buttons, ABlackOneRunsFromItsUpperToItsLowerColour) {
    CBlackButton button;
    Make(button, "");
    Pump();
    const CClientDC dc(&button);
    EXPECT_EQ(dc.GetPixel(2, 2), COLORREF{0x515151});
    EXPECT_EQ(dc.GetPixel(10, 3), COLORREF{0x383838});
    EXPECT_LT(GetRValue(dc.GetPixel(10, 36)), 0x1F);
    button.EnableWindow(FALSE);
    Pump();
    EXPECT_EQ(dc.GetPixel(10, 3), COLORREF{0x545454});
}

TEST_F(Buttons, ACaptionRunsDownCharacterByCharacter) {
    CVButton button;
    button.Create("持仓—分", WS_VISIBLE, CRect(20, 20, 41, 160), &stage_, 12);
    Pump();
    const auto texts = platform::testing::SeenTexts(button);
    ASSERT_EQ(texts.size(), 3U);
    EXPECT_EQ(texts[0].utf8, text::Utf8FromGbk("持"));
    EXPECT_EQ(texts[2].utf8, text::Utf8FromGbk("分"));
    EXPECT_EQ(texts[0].rect.left, texts[2].rect.left);
    EXPECT_EQ(texts[1].rect.top - texts[0].rect.top, 15);
    EXPECT_EQ(texts[2].rect.top - texts[1].rect.top, 30);
}

/// An odd button over a plain one of a type.
struct OddCase {
    DWORD type;
    UINT code;
};

TEST_F(Buttons, OddOnesAnswerForTheTypeTheyHad) {
    constexpr OddCase kCases[] = {
        {BS_PUSHBUTTON, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON},
        {BS_DEFPUSHBUTTON, DLGC_BUTTON | DLGC_DEFPUSHBUTTON},
        {BS_RADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON},
        {BS_AUTORADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON},
        {BS_GROUPBOX, DLGC_STATIC},
    };
    for (const auto& [type, code] : kCases) {
        COddButton button;
        button.SubclassWindow(::CreateWindowExA(0, "BUTTON", "x", WS_CHILD | type, 0, 0, 20, 20,
                                                stage_, nullptr, AfxGetInstanceHandle(), nullptr));
        EXPECT_EQ(button.SendMessage(WM_GETDLGCODE), static_cast<LRESULT>(code)) << type;
        button.DestroyWindow();
    }
}

TEST_F(Buttons, OddOnesKeepTheDefaultAndTheirDrawing) {
    CRvMsgrBtn button;
    button.SubclassWindow(::CreateWindowExA(0, "BUTTON", "x", WS_CHILD | WS_VISIBLE, 20, 20, 80, 24,
                                            stage_, nullptr, AfxGetInstanceHandle(), nullptr));
    const auto type = [&] { return button.GetStyle() & 0xF; };
    EXPECT_EQ(type(), DWORD{BS_OWNERDRAW});
    button.SendMessage(BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_EQ(type(), DWORD{BS_OWNERDRAW});
    EXPECT_NE(button.SendMessage(WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON, 0);
    button.SendMessage(BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    EXPECT_NE(button.SendMessage(WM_GETDLGCODE) & DLGC_UNDEFPUSHBUTTON, 0);
    Pump();
    const CClientDC dc(&button);
    EXPECT_EQ(dc.GetPixel(0, 0), COLORREF{0xB16023});
    MovePointer(ScreenPoint(button));
    Pump();
    EXPECT_EQ(button.State(), CTrackButton::kNormal);
    EXPECT_EQ(dc.GetPixel(1, 1), COLORREF{0x33B8FB});
}

}  // namespace
}  // namespace tests
