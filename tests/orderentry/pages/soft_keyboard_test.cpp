#include <algorithm>
#include <memory>

#include "orderentry/key_board_dlg.h"
#include "orderentry/key_board_dlg_volume.h"
#include "orderentry/soft_key_text.h"
#include "plugin/contract/messages.h"
#include "tests/orderentry/pages/page_frame.h"

namespace tests {
namespace {

/// A password edit that tells when its text may be read.
class GuardedEdit : public CEdit {
public:
    std::string guard;  ///< 1 and 0 in the order in which reading was allowed and ended

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_KEYBOARD_READ) guard += wParam != 0 ? '1' : '0';
        return CEdit::WindowProc(message, wParam, lParam);
    }
};

class SoftKeyboard : public PageTest {
protected:
    SoftKeyboard() {
        edit_.Create(WS_CHILD | WS_VISIBLE | ES_PASSWORD, CRect(200, 20, 380, 44), &page_, 10020);
        edit_.SetFocus();
    }
    ~SoftKeyboard() override {
        if (keyboard_.GetSafeHwnd()) keyboard_.DestroyWindow();
    }

    static std::string Caption(const CDialog& dialog, int id) {
        return TextOf(*dialog.GetDlgItem(id));
    }
    static void Press(const CDialog& dialog, int id) {
        platform::testing::Click(*dialog.GetDlgItem(id));
    }
    std::string Captions(int first, int count) {
        std::string captions;
        for (int id = first; id < first + count; ++id) captions += Caption(keyboard_, id);
        return captions;
    }
    static std::string Sorted(std::string text) {
        std::sort(text.begin(), text.end());
        return text;
    }

    GuardedEdit edit_;
    CKeyBoardDlg keyboard_;
};

TEST_F(SoftKeyboard, EveryKeyIsThereOnceInAnOrderOfTheMoment) {
    keyboard_.Open(edit_);
    const std::string digits = Captions(CKeyBoardDlg::kFirstDigit, 10);
    const std::string letters = Captions(CKeyBoardDlg::kFirstLetter, 26);
    EXPECT_EQ(Sorted(digits), "0123456789");
    EXPECT_EQ(Sorted(letters), "abcdefghijklmnopqrstuvwxyz");
    // Nothing has passed: the same order. Later: another one.
    keyboard_.Open(edit_);
    EXPECT_EQ(Captions(CKeyBoardDlg::kFirstDigit, 10), digits);
    platform::testing::PumpFor(1234);
    keyboard_.Open(edit_);
    EXPECT_NE(Captions(CKeyBoardDlg::kFirstLetter, 26), letters);
}

TEST_F(SoftKeyboard, StandsBelowTheRightEndOfItsEdit) {
    keyboard_.Open(edit_);
    CRect edit;
    CRect keyboard;
    edit_.GetWindowRect(&edit);
    keyboard_.GetWindowRect(&keyboard);
    EXPECT_EQ(keyboard.top, edit.bottom + 2);
    EXPECT_EQ(keyboard.right, edit.right);
}

TEST_F(SoftKeyboard, KeysGoBehindTheTextWithinThePermission) {
    keyboard_.Open(edit_);
    const std::string first = Caption(keyboard_, CKeyBoardDlg::kFirstDigit);
    Press(keyboard_, CKeyBoardDlg::kFirstDigit);
    EXPECT_EQ(TextOf(edit_), first);
    EXPECT_EQ(edit_.guard, "10");
    const std::string letters = Captions(CKeyBoardDlg::kFirstLetter, 26);
    Press(keyboard_, CKeyBoardDlg::kCase);
    std::string capitals = letters;
    for (char& letter : capitals) letter = static_cast<char>(letter - 'a' + 'A');
    EXPECT_EQ(Captions(CKeyBoardDlg::kFirstLetter, 26), capitals);
    EXPECT_GBK_EQ(Caption(keyboard_, CKeyBoardDlg::kCase), "小    写");
    Press(keyboard_, CKeyBoardDlg::kFirstLetter + 25);
    EXPECT_EQ(TextOf(edit_), first + capitals.back());
    Press(keyboard_, CKeyBoardDlg::kBackspace);
    Press(keyboard_, CKeyBoardDlg::kBackspace);
    Press(keyboard_, CKeyBoardDlg::kBackspace);
    EXPECT_EQ(TextOf(edit_), "");
    const std::string full(127, 'x');
    edit_.SetWindowText(full.c_str());
    Press(keyboard_, CKeyBoardDlg::kFirstDigit);
    EXPECT_EQ(edit_.GetWindowTextLength(), 127);
    edit_.SetWindowText((full + "yz").c_str());
    Press(keyboard_, CKeyBoardDlg::kFirstDigit);
    EXPECT_EQ(edit_.GetWindowTextLength(), 129);
}

TEST_F(SoftKeyboard, TheRealKeyboardGoesOnBehindSoftKeys) {
    keyboard_.Open(edit_);
    edit_.SetWindowText("ab");
    const std::string digit = Caption(keyboard_, CKeyBoardDlg::kFirstDigit);
    Press(keyboard_, CKeyBoardDlg::kFirstDigit);
    edit_.SetFocus();
    platform::testing::Type("x");
    EXPECT_EQ(TextOf(edit_), "ab" + digit + "x");
}

TEST_F(SoftKeyboard, ClosingTellsTheEditAndEnterTellsTheDialog) {
    keyboard_.Open(edit_);
    Press(keyboard_, CKeyBoardDlg::kHide);
    EXPECT_FALSE(keyboard_.IsWindowVisible());
    EXPECT_EQ(edit_.guard, "0");
    EXPECT_TRUE(page_.messages.empty());
    keyboard_.Open(edit_);
    EXPECT_TRUE(keyboard_.IsWindowVisible());
    Press(keyboard_, CKeyBoardDlg::kEnter);
    EXPECT_EQ(page_.messages, std::vector<UINT>{WM_KEYBOARD_READ});
}

TEST_F(SoftKeyboard, AnEditThatIsGoneIsLeftAlone) {
    auto edit = std::make_unique<CEdit>();
    edit->Create(WS_CHILD | WS_VISIBLE, CRect(20, 20, 80, 44), &page_, 10021);
    keyboard_.Open(*edit);
    edit->DestroyWindow();
    edit.reset();
    Press(keyboard_, CKeyBoardDlg::kFirstDigit);
    EXPECT_FALSE(keyboard_.IsWindowVisible());
    keyboard_.Open(edit_);
    Press(keyboard_, CKeyBoardDlg::kFirstDigit);
    EXPECT_EQ(edit_.GetWindowTextLength(), 1);
}

TEST_F(SoftKeyboard, VolumesAreChosenWhole) {
    CKeyBoardDlgVolume volumes;
    EXPECT_FALSE(volumes.HasPresets());
    volumes.SetPresets({"1", "5", "", "123456789012345678"});
    EXPECT_TRUE(volumes.HasPresets());
    volumes.Open(edit_);
    CRect edit;
    CRect keyboard;
    edit_.GetWindowRect(&edit);
    volumes.GetWindowRect(&keyboard);
    EXPECT_EQ(keyboard.left, edit.left);
    EXPECT_EQ(keyboard.top, edit.bottom - 2);
    Press(volumes, CKeyBoardDlgVolume::kPresets[2]);
    EXPECT_TRUE(volumes.IsWindowVisible());
    Press(volumes, CKeyBoardDlgVolume::kPresets[1]);
    EXPECT_FALSE(volumes.IsWindowVisible());
    EXPECT_EQ(TextOf(edit_), "5");
    volumes.Open(edit_);
    Press(volumes, CKeyBoardDlgVolume::kPresets[3]);
    EXPECT_EQ(TextOf(edit_), "123456789012345");
    volumes.Open(edit_);
    Press(volumes, CKeyBoardDlgVolume::kBackspace);
    EXPECT_EQ(TextOf(edit_), "12345678901234");
    edit_.SetWindowText("3手");
    volumes.Open(edit_);
    Press(volumes, CKeyBoardDlgVolume::kBackspace);
    EXPECT_EQ(TextOf(edit_), "3");
}

TEST_F(SoftKeyboard, VolumeKeysAreBlue) {
    CKeyBoardDlgVolume volumes;
    volumes.SetPresets({"77"});
    volumes.Open(edit_);
    platform::testing::Pump();
    for (const auto& text : platform::testing::SeenTexts(volumes)) {
        if (text.utf8 == "77") {
            EXPECT_EQ(text.color, COLORREF{0xFF0000});
            return;
        }
    }
    FAIL() << "the key is not painted";
}

}  // namespace
}  // namespace tests
