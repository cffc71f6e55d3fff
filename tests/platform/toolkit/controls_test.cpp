#include "platform/toolkit/controls.h"

#include <gtest/gtest.h>

#include "platform/toolkit/file_dialog.h"
#include "tests/platform/toolkit/test_module.h"
#include "tests/support/gbk_text.h"

namespace {

template <class Control>
void Make(Control& control, CWnd& parent, const char* class_name, DWORD style = 0) {
    ASSERT_TRUE(control.CWnd::Create(class_name, "", style, CRect(0, 0, 120, 90), &parent, 5));
}

TEST(Controls, EditSelectsAndLimits) {
    tests::Frame frame;
    CEdit edit;
    ASSERT_TRUE(edit.Create(ES_AUTOHSCROLL, CRect(0, 0, 80, 20), &frame, 5));
    edit.SetWindowText("hello");
    edit.SetSel(1, 3);
    int start = 0;
    int end = 0;
    edit.GetSel(start, end);
    EXPECT_EQ(start, 1);
    EXPECT_EQ(end, 3);
    edit.ReplaceSel("XY");
    EXPECT_EQ(edit.GetWindowTextLength(), 5);
    EXPECT_TRUE(edit.SetReadOnly());
    EXPECT_TRUE(edit.GetStyle() & ES_READONLY);
    edit.SetLimitText(20);
    EXPECT_EQ(edit.SendMessage(EM_GETLIMITTEXT), 20);
}

TEST(Controls, RichEditSelectsAndColours) {
    tests::Frame frame;
    CRichEditCtrl edit;
    ASSERT_TRUE(edit.Create(ES_MULTILINE, CRect(0, 0, 80, 60), &frame, 5));
    edit.SetWindowText("hello");
    edit.SetSel(2, 4);
    long start = 0;
    long end = 0;
    edit.GetSel(start, end);
    EXPECT_EQ(start, 2);
    EXPECT_EQ(end, 4);
    CHARRANGE range{};
    edit.SetSel(CHARRANGE{0, 1});
    edit.GetSel(range);
    EXPECT_EQ(range.cpMax, 1);
    edit.SetBackgroundColor(FALSE, RGB(1, 2, 3));
    EXPECT_EQ(edit.SetBackgroundColor(FALSE, 0), RGB(1, 2, 3));
    EXPECT_EQ(edit.SetEventMask(ENM_CHANGE), 0u);
    EXPECT_EQ(edit.SetEventMask(ENM_NONE), DWORD{ENM_CHANGE});
}

TEST(Controls, ComboBoxKeepsItems) {
    tests::Frame frame;
    CComboBox combo;
    Make(combo, frame, "ComboBox", CBS_DROPDOWN);
    EXPECT_EQ(combo.AddString("Au(T+D)"), 0);
    EXPECT_EQ(combo.AddString("白银"), 1);
    EXPECT_EQ(combo.GetCount(), 2);
    combo.SetItemData(1, 77);
    EXPECT_EQ(combo.GetItemData(1), DWORD_PTR{77});
    EXPECT_EQ(combo.GetItemData(-1), static_cast<DWORD_PTR>(CB_ERR));
    EXPECT_EQ(combo.SetCurSel(1), 1);
    EXPECT_EQ(combo.GetCurSel(), 1);
    EXPECT_EQ(combo.SetCurSel(9), CB_ERR);
    EXPECT_EQ(combo.GetCurSel(), CB_ERR);
    EXPECT_EQ(combo.FindString(-1, "au"), 0);
    char text[16] = "";
    EXPECT_EQ(combo.GetLBTextLen(1), combo.GetLBText(1, text));
    EXPECT_GBK_EQ("白银", text);
    combo.ResetContent();
    EXPECT_EQ(combo.GetCount(), 0);
}

TEST(Controls, ListBoxKeepsItems) {
    tests::Frame frame;
    CListBox list;
    Make(list, frame, "ListBox", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT);
    for (const char* item : {"a", "b", "c"}) list.AddString(item);
    EXPECT_EQ(list.GetCount(), 3);
    list.SetItemHeight(0, 18);
    BOOL outside = TRUE;
    EXPECT_EQ(list.ItemFromPoint(CPoint(5, 20), outside), 1u);
    EXPECT_FALSE(outside);
    list.ItemFromPoint(CPoint(5, 200), outside);
    EXPECT_TRUE(outside);
    EXPECT_EQ(list.SetCurSel(2), 2);
    EXPECT_EQ(list.GetCurSel(), 2);
    list.SetItemData(0, 5);
    EXPECT_EQ(list.GetItemData(0), DWORD_PTR{5});
    char text[8] = "";
    EXPECT_EQ(list.GetTextLen(2), list.GetText(2, text));
    EXPECT_STREQ(text, "c");
}

TEST(Controls, ButtonChecks) {
    tests::Frame frame;
    CButton button;
    Make(button, frame, "Button", BS_AUTOCHECKBOX);
    EXPECT_EQ(button.GetCheck(), BST_UNCHECKED);
    button.SetCheck(BST_CHECKED);
    EXPECT_EQ(button.GetCheck(), BST_CHECKED);
    EXPECT_EQ(frame.IsDlgButtonChecked(5), UINT{BST_CHECKED});
    button.SetState(TRUE);
    EXPECT_TRUE(button.GetState() & BST_PUSHED);
    button.SetButtonStyle(BS_PUSHBUTTON);
    EXPECT_EQ(button.GetStyle() & 0xF, DWORD{BS_PUSHBUTTON});
}

TEST(Controls, TabsAndDates) {
    tests::Frame frame;
    CTabCtrl tab;
    const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_TAB_CLASSES | ICC_DATE_CLASSES};
    ASSERT_TRUE(::InitCommonControlsEx(&classes));
    Make(tab, frame, WC_TABCONTROLA);
    EXPECT_EQ(tab.InsertItem(0, "止损止盈"), 0);
    EXPECT_EQ(tab.InsertItem(9, "参数"), 1);
    EXPECT_EQ(tab.SetCurSel(1), 0);
    EXPECT_EQ(tab.GetCurSel(), 1);

    CDateTimeCtrl date;
    Make(date, frame, DATETIMEPICK_CLASSA);
    SYSTEMTIME today{};
    ::GetLocalTime(&today);
    SYSTEMTIME time{};
    EXPECT_EQ(date.GetTime(time), DWORD{GDT_VALID});
    EXPECT_EQ(time.wYear, today.wYear);
}

TEST(FileDialog, PassesItsArgumentsOn) {
    CFileDialog dialog(FALSE, "csv", "trades", OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                       "Values (*.csv)|*.csv|All (*.*)|*.*||");
    EXPECT_STREQ(dialog.m_ofn.lpstrFile, "trades");
    EXPECT_STREQ(dialog.m_ofn.lpstrDefExt, "csv");
    EXPECT_EQ(dialog.m_ofn.Flags, DWORD{OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT});
    constexpr char kFilter[] = "Values (*.csv)\0*.csv\0All (*.*)\0*.*\0";
    EXPECT_EQ(std::string(dialog.m_ofn.lpstrFilter, sizeof(kFilter)),
              std::string(kFilter, sizeof(kFilter)));

    const CFileDialog longest(FALSE, nullptr, std::string(999, 'x').c_str(), 0, nullptr);
    EXPECT_EQ(longest.GetPathName(), std::string(MAX_PATH - 1, 'x'));
    EXPECT_EQ(longest.m_ofn.lpstrFilter, nullptr);
}

}  // namespace
