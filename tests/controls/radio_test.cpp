// Radio buttons and check boxes, worked by mouse and keyboard.

#include "controls/ower_check_box.h"
#include "controls/ower_radio.h"
#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "platform/text/gbk.h"
#include "tests/controls/stage.h"

namespace tests {

namespace {

using platform::testing::Click;
using platform::testing::Key;
using platform::testing::MovePointer;
using platform::testing::Press;
using platform::testing::Pump;
using platform::testing::Release;
using platform::testing::ScreenPoint;

constexpr UINT kRadioId = 12;
constexpr UINT kCheckId = 13;
constexpr POINT kAway{350, 250};

class RadioTest : public StageTest {
protected:
    RadioTest() {
        radio_.Create("限价", WS_VISIBLE | WS_TABSTOP, CRect(20, 20, 120, 40), &stage_, kRadioId);
        check_.Create("止损", WS_VISIBLE | WS_TABSTOP, CRect(20, 60, 120, 80), &stage_, kCheckId);
        Pump();
    }

    /// Index of the skin's picture that stands at the control's left edge; -1 for none of them.
    int Picture(const CWnd& control, int skin, COLORREF ground = kStageGround) {
        HBITMAP const pictures = core_.GetSkinBitmap(kSkinPages, skin);
        BITMAP info{};
        ::GetObjectA(pictures, sizeof(info), &info);
        const CSize size(static_cast<int>(info.bmWidth) / 8, static_cast<int>(info.bmHeight));
        int found = -1;
        for (int index = 0; index < 8; ++index) {
            if (Shows(control, pictures, index, size, ground)) found = index;
        }
        return found;
    }
    int RadioPicture() { return Picture(radio_, 73); }
    int CheckPicture() { return Picture(check_, 74); }

    COwerRadio radio_;
    COwerCheckBox check_;

private:
    static bool Shows(const CWnd& control, HBITMAP pictures, int index, CSize size,
                      COLORREF ground) {
        CClientDC window(nullptr);
        MemorySurface expected;
        expected.Create(window, size);
        ::FillRect(expected.dc(), CRect(CPoint(), size), CBrush(ground));
        CDC source;
        source.CreateCompatibleDC(&window);
        const toolkit::ScopedSelect select(source, pictures);
        const BLENDFUNCTION over{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
        ::AlphaBlend(expected.dc(), 0, 0, size.cx, size.cy, source,
                     index * static_cast<int>(size.cx), 0, size.cx, size.cy, over);
        CRect client;
        control.GetClientRect(client);
        const int top = (client.Height() - static_cast<int>(size.cy)) / 2;
        for (int y = 0; y < size.cy; ++y) {
            for (int x = 0; x < size.cx; ++x) {
                if (PixelOf(control, x, top + y) != ::GetPixel(expected.dc(), x, y)) return false;
            }
        }
        return true;
    }
};

TEST_F(RadioTest, AClickChecksARadioOnceAndTellsItsParent) {
    Click(radio_);
    EXPECT_EQ(stage_.Heard(), "radio 12");
    EXPECT_TRUE(radio_.IsChecked());
    EXPECT_EQ(::GetFocus(), radio_.m_hWnd);
    Click(radio_);
    EXPECT_EQ(stage_.Heard(), "");
    EXPECT_TRUE(radio_.IsChecked());
}

TEST_F(RadioTest, EveryClickInvertsACheckBoxHoweverQuick) {
    const HWND focus = ::GetFocus();
    Click(check_);
    EXPECT_TRUE(check_.IsChecked());
    Click(check_);  // at once: the system calls its press a double click
    EXPECT_FALSE(check_.IsChecked());
    EXPECT_EQ(stage_.Heard(), "check 13; check 13");
    EXPECT_EQ(::GetFocus(), focus);
}

TEST_F(RadioTest, ARadioSendsAndACheckBoxPosts) {
    for (CWnd* control : {static_cast<CWnd*>(&radio_), static_cast<CWnd*>(&check_)}) {
        control->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        control->SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    }
    EXPECT_EQ(stage_.Heard(), "radio 12");
    Pump();
    EXPECT_EQ(stage_.Heard(), "check 13");
}

TEST_F(RadioTest, OnlyAPressAndAReleaseInsideAreAClick) {
    const struct {
        const char* what;
        void (*act)(COwerRadio& control);
    } cases[] = {
        {"released outside",
         [](COwerRadio& control) {
             MovePointer(ScreenPoint(control));
             Press();
             MovePointer(ScreenPoint(*control.GetParent(), kAway.x, kAway.y));
             Release();
         }},
        {"released on the first pixel outside",
         [](COwerRadio& control) {
             MovePointer(ScreenPoint(control));
             Press();
             MovePointer(ScreenPoint(control, 100, 10));
             Release();
         }},
        {"pressed outside",
         [](COwerRadio& control) {
             MovePointer(ScreenPoint(*control.GetParent(), kAway.x, kAway.y));
             Press();
             MovePointer(ScreenPoint(control));
             Release();
         }},
        {"capture lost",
         [](COwerRadio& control) {
             MovePointer(ScreenPoint(control));
             Press();
             ::ReleaseCapture();
             Release();
         }},
        {"disabled",
         [](COwerRadio& control) {
             control.EnableWindow(FALSE);
             Click(control);
             control.EnableWindow(TRUE);
         }},
    };
    for (const auto& each : cases) {
        for (COwerRadio* control : {&radio_, static_cast<COwerRadio*>(&check_)}) {
            each.act(*control);
            EXPECT_FALSE(control->IsChecked()) << each.what;
            EXPECT_EQ(stage_.Heard(), "") << each.what;
            EXPECT_EQ(::GetCapture(), nullptr) << each.what;
        }
    }
    MovePointer({5, 5});
    EXPECT_EQ(RadioPicture(), 0);
    EXPECT_EQ(CheckPicture(), 0);
}

TEST_F(RadioTest, ThePictureFollowsStateAndCheck) {
    EXPECT_EQ(RadioPicture(), 0);
    MovePointer(ScreenPoint(radio_));
    EXPECT_EQ(RadioPicture(), 1);
    Press();
    EXPECT_EQ(RadioPicture(), 2);
    MovePointer(ScreenPoint(stage_, kAway.x, kAway.y));
    EXPECT_EQ(RadioPicture(), 2) << "pressed until the button is let go";
    MovePointer(ScreenPoint(radio_));
    Release();
    EXPECT_EQ(RadioPicture(), 4 + 1);
    MovePointer(ScreenPoint(stage_, kAway.x, kAway.y));
    EXPECT_EQ(RadioPicture(), 4);
    radio_.EnableWindow(FALSE);
    Pump();
    EXPECT_EQ(RadioPicture(), 4 + 3);
    check_.EnableWindow(FALSE);
    Pump();
    EXPECT_EQ(CheckPicture(), 3);
}

TEST_F(RadioTest, TheGroundIsWhatTheParentShowedAtFirst) {
    stage_.ChangeGround(RGB(0x20, 0x40, 0xA0));
    radio_.SetWindowText("市价");
    Pump();
    EXPECT_EQ(PixelOf(stage_, 10, 10), RGB(0x20, 0x40, 0xA0));
    EXPECT_EQ(PixelOf(radio_, 98, 1), kStageGround);
    radio_.SetOpaque(TRUE);
    Pump();
    EXPECT_EQ(PixelOf(radio_, 98, 1), kBrushGround);
    EXPECT_EQ(Picture(radio_, 73, kBrushGround), 0);
}

TEST_F(RadioTest, PaintingWithoutErasingLeavesWhatStands) {
    for (const CWnd* control : {static_cast<CWnd*>(&radio_), static_cast<CWnd*>(&check_)}) {
        Smear(*control, 90, 3, RGB(1, 2, 3));
        ::InvalidateRect(control->m_hWnd, nullptr, FALSE);
        Pump();
        EXPECT_EQ(PixelOf(*control, 90, 3), RGB(1, 2, 3));
        EXPECT_FALSE(::GetUpdateRect(control->m_hWnd, nullptr, FALSE));
        ::InvalidateRect(control->m_hWnd, nullptr, TRUE);
        Pump();
        EXPECT_EQ(PixelOf(*control, 90, 3), kStageGround);
    }
}

TEST_F(RadioTest, TheTextTakesTheParentsColour) {
    const auto seen = platform::testing::SeenTexts(radio_);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].utf8, text::Utf8FromGbk("限价"));
    EXPECT_EQ(seen[0].color, kStageText);
    EXPECT_GE(seen[0].rect.left, 14);
    radio_.EnableWindow(FALSE);
    Pump();
    EXPECT_EQ(platform::testing::SeenTexts(radio_)[0].color, ::GetSysColor(COLOR_GRAYTEXT));
}

TEST_F(RadioTest, WithoutASkinOnlyTheTextIsShown) {
    core_.has_skin = false;
    Click(radio_);
    EXPECT_TRUE(radio_.IsChecked());
    EXPECT_EQ(platform::testing::SeenTexts(radio_).at(0).rect.left, 0);
    EXPECT_EQ(PixelOf(radio_, 98, 10), kStageGround);
}

TEST_F(RadioTest, SpaceClicksOnAFreshPressOnly) {
    check_.SetFocus();
    ::keybd_event(VK_SPACE, 0, 0, 0);
    Pump();
    ::keybd_event(VK_SPACE, 0, 0, 0);
    Pump();
    ::keybd_event(VK_SPACE, 0, KEYEVENTF_KEYUP, 0);
    Pump();
    EXPECT_TRUE(check_.IsChecked());
    EXPECT_EQ(stage_.Heard(), "check 13");
    Key(VK_SPACE);
    EXPECT_FALSE(check_.IsChecked());
}

TEST_F(RadioTest, TheFocusIsShownWhenAKeyBroughtIt) {
    constexpr COLORREF kRing = RGB(0x2F, 0x6D, 0xB3);
    const auto rings = [this] {
        int pixels = 0;
        for (int y = 0; y < 20; ++y) {
            for (int x = 16; x < 100; ++x) pixels += PixelOf(radio_, x, y) == kRing ? 1 : 0;
        }
        return pixels;
    };
    Click(radio_);
    EXPECT_EQ(rings(), 0);
    stage_.SetFocus();
    radio_.SetFocus();
    Pump();
    EXPECT_GT(rings(), 20);
    radio_.EnableWindow(FALSE);
    Pump();
    EXPECT_EQ(rings(), 0);
}

TEST_F(RadioTest, StandsForAButtonOfATemplate) {
    const HWND button = ::CreateWindowExA(
        0, "Button", "开仓", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_AUTORADIOBUTTON, 20, 100, 100,
        20, stage_, reinterpret_cast<HMENU>(UINT_PTR{14}), nullptr, nullptr);
    COwerRadio radio;
    ASSERT_TRUE(radio.SubclassWindow(button));
    Pump();
    EXPECT_EQ(Picture(radio, 73), 0);
    Click(radio);
    EXPECT_EQ(stage_.Heard(), "radio 14");
    EXPECT_EQ(stage_.IsDlgButtonChecked(14), UINT{BST_CHECKED});
    stage_.CheckDlgButton(14, BST_UNCHECKED);
    radio.SetWindowText("平仓");
    MovePointer({5, 5});
    EXPECT_EQ(stage_.Heard(), "") << "set from outside";
    EXPECT_EQ(Picture(radio, 73), 0);
    const auto seen = platform::testing::SeenTexts(radio);
    ASSERT_EQ(seen.size(), 1U);
    EXPECT_EQ(seen[0].utf8, text::Utf8FromGbk("平仓"));
    radio.DestroyWindow();
}

}  // namespace

}  // namespace tests
