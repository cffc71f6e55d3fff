#include "platform/toolkit/dialog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <thread>
#include <vector>

#include "platform/testing/input.h"
#include "tests/platform/toolkit/test_module.h"
#include "tests/support/gbk_text.h"

namespace {

using tests::kAskDialog;
using tests::kFormDialog;

std::string TextOf(HWND window) {
    char text[64] = "";
    return std::string(text,
                       static_cast<std::size_t>(::GetWindowTextA(window, text, sizeof(text))));
}

class Form : public CDialog {
public:
    using CDialog::CDialog;
    CEdit edit;
    CListBox list;
    int initialised = 0;
    int clicks = 0;

protected:
    void DoDataExchange(CDataExchange* exchange) override {
        CDialog::DoDataExchange(exchange);
        DDX_Control(exchange, tests::kFormEdit, edit);
        DDX_Control(exchange, tests::kFormList, list);
    }
    BOOL OnInitDialog() override {
        ++initialised;
        return CDialog::OnInitDialog();
    }
    void OnClick() { ++clicks; }
    void OnOK() override {}
    void OnCancel() override {}
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Form, CDialog)
    ON_BN_CLICKED(tests::kFormButton, &Form::OnClick)
END_MESSAGE_MAP()

TEST(ModelessDialog, IsMadeFromTheTable) {
    tests::Frame frame;
    Form form;
    ASSERT_TRUE(form.Create(kFormDialog, &frame));
    EXPECT_GBK_EQ("表单", TextOf(form));
    EXPECT_EQ(::GetParent(form), frame.m_hWnd);
    EXPECT_EQ(form.initialised, 1);
    EXPECT_FALSE(form.IsWindowVisible());
    struct {
        int id;
        const char* class_name;
        const char* text;
        CRect units;
    } const controls[] = {
        {tests::kFormLabel, "Static", "数量:", {4, 6, 34, 14}},
        {tests::kFormEdit, "Edit", "", {40, 4, 100, 16}},
        {tests::kFormButton, "Button", "查询", {4, 20, 44, 34}},
    };
    for (const auto& control : controls) {
        SCOPED_TRACE(control.class_name);
        const HWND window = ::GetDlgItem(form, control.id);
        ASSERT_TRUE(::IsWindow(window));
        char class_name[16] = "";
        ::GetClassNameA(window, class_name, sizeof(class_name));
        EXPECT_STREQ(class_name, control.class_name);
        EXPECT_GBK_EQ(control.text, TextOf(window));
        CRect expected = control.units;
        ::MapDialogRect(form, expected);
        CRect place;
        ::GetWindowRect(window, place);
        form.ScreenToClient(place);
        EXPECT_EQ(place, expected);
    }
}

TEST(ModelessDialog, ExchangeBindsControlsAndCommandsReachTheMap) {
    tests::Frame frame;
    Form form;
    ASSERT_TRUE(form.Create(kFormDialog, &frame));
    EXPECT_EQ(form.GetDlgItem(tests::kFormEdit), &form.edit);
    EXPECT_EQ(form.GetDlgItem(tests::kFormList), &form.list);
    EXPECT_TRUE(form.UpdateData(FALSE));
    form.SendDlgItemMessage(tests::kFormButton, BM_CLICK);
    EXPECT_EQ(form.clicks, 1);
    form.DestroyWindow();
    EXPECT_EQ(form.edit.m_hWnd, nullptr);
    // The same object may have another window.
    ASSERT_TRUE(form.Create(kFormDialog, &frame));
    EXPECT_EQ(form.GetDlgItem(tests::kFormEdit), &form.edit);
}

TEST(ModelessDialog, NoSuchTemplate) {
    CDialog dialog;
    EXPECT_FALSE(dialog.Create(999));
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(CDialog(999).DoModal(), -1);
}

TEST(ModelessDialog, APageIsAChildWithEarlyMessages) {
    class Page : public CDialog {
    public:
        std::vector<UINT> early;

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            early.push_back(message);
            return CDialog::WindowProc(message, wParam, lParam);
        }
    } page;
    tests::Frame frame;
    ASSERT_TRUE(page.Create(tests::kPageDialog, &frame));
    EXPECT_TRUE(page.GetStyle() & WS_CHILD);
    const auto at = [&](UINT message) {
        return std::find(page.early.begin(), page.early.end(), message) - page.early.begin();
    };
    const auto end = static_cast<std::ptrdiff_t>(page.early.size());
    EXPECT_EQ(at(WM_NCCREATE), 0);
    EXPECT_LT(at(WM_CREATE), at(WM_SIZE));
    EXPECT_LT(at(WM_SIZE), at(WM_SETFONT));
    EXPECT_LT(at(WM_SETFONT), at(WM_INITDIALOG));
    EXPECT_LT(at(WM_INITDIALOG), end);
}

TEST(ModelessDialog, MayDeleteItselfWhenItIsClosed) {
    static int deleted = 0;
    class Tip : public CDialog {
    public:
        ~Tip() override { ++deleted; }

    protected:
        void OnCancel() override {
            DestroyWindow();
            EXPECT_EQ(deleted, 0) << "this handler is still running";
        }
        void PostNcDestroy() override { delete this; }
    };
    tests::Frame frame;
    deleted = 0;
    auto* tip = new Tip;
    ASSERT_TRUE(tip->Create(kAskDialog, &frame));
    const HWND handle = *tip;
    tip->ShowWindow(SW_SHOW);
    // Escape comes through the filter, the dialog's own handling of keys and WM_COMMAND.
    platform::testing::Key(VK_ESCAPE);
    EXPECT_FALSE(::IsWindow(handle));
    EXPECT_EQ(deleted, 1);
}

/// A modal dialog that does something as soon as its loop runs.
class Question : public CDialog {
public:
    explicit Question(CWnd* parent, UINT id = kAskDialog) : CDialog(id, parent) {}
    std::function<void(Question&)> at_start;
    std::function<void(Question&)> at_init;
    CButton ok;

    using CDialog::OnCancel;

protected:
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        if (at_init) at_init(*this);
        if (at_start) PostMessage(WM_APP);
        return TRUE;
    }
    LRESULT OnStart(WPARAM, LPARAM) {
        at_start(*this);
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Question, CDialog)
    ON_MESSAGE(WM_APP, &Question::OnStart)
END_MESSAGE_MAP()

TEST(ModalDialog, DisablesTheTopLevelOwnerAndAnswers) {
    tests::Frame frame;
    frame.ShowWindow(SW_SHOW);
    CWnd page;
    ASSERT_TRUE(page.Create(nullptr, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 90, 90), &frame, 1));
    struct {
        std::function<void(Question&)> action;
        INT_PTR answer;
    } const cases[] = {
        {[](Question& question) { question.SendMessage(WM_COMMAND, IDOK); }, IDOK},
        {[](Question& question) { question.SendMessage(WM_CLOSE); }, IDCANCEL},
        {[](Question& question) { question.PostMessage(WM_COMMAND, IDCANCEL); }, IDCANCEL},
        {[](Question& question) { question.EndDialog(50); }, 50},
        {[](Question& question) { question.SendDlgItemMessage(IDOK, BM_CLICK); }, IDOK},
        {[](Question& question) { question.DestroyWindow(); }, -1},
    };
    for (const auto& row : cases) {
        Question question(&page);
        question.at_start = [&](Question& self) {
            EXPECT_FALSE(frame.IsWindowEnabled());
            EXPECT_TRUE(self.IsWindowVisible());
            EXPECT_EQ(::GetWindow(self, GW_OWNER), frame.m_hWnd);
            row.action(self);
        };
        EXPECT_EQ(question.DoModal(), row.answer);
        EXPECT_TRUE(frame.IsWindowEnabled());
        EXPECT_EQ(question.m_hWnd, nullptr);
        EXPECT_EQ(::GetActiveWindow(), frame.m_hWnd);
    }
}

TEST(ModalDialog, StandsOverItsOwner) {
    tests::Frame frame;
    frame.ShowWindow(SW_SHOW);
    Question question(&frame);
    question.at_start = [&](Question& self) {
        CRect own;
        CRect owners;
        self.GetWindowRect(own);
        frame.GetWindowRect(owners);
        EXPECT_LE(std::abs(own.CenterPoint().x - owners.CenterPoint().x), 1);
        EXPECT_LE(std::abs(own.CenterPoint().y - owners.CenterPoint().y), 1);
        self.EndDialog(1);
    };
    EXPECT_EQ(question.DoModal(), 1);
}

TEST(ModalDialog, KeysWork) {
    tests::Frame frame;
    frame.ShowWindow(SW_SHOW);
    struct {
        BYTE key;
        INT_PTR answer;
    } const cases[] = {{VK_RETURN, IDOK}, {VK_ESCAPE, IDCANCEL}};
    for (const auto& row : cases) {
        Question question(&frame);
        question.at_start = [&](Question& self) {
            EXPECT_EQ(::GetFocus(), ::GetDlgItem(self, tests::kFormEdit));
            self.PostMessage(WM_NULL);
            // Only made here: the dialog's own loop takes it.
            ::keybd_event(row.key, 0, 0, 0);
            ::keybd_event(row.key, 0, KEYEVENTF_KEYUP, 0);
        };
        EXPECT_EQ(question.DoModal(), row.answer);
    }
}

TEST(ModalDialog, TheOwnerIsEnabledBeforeTheDialogGoes) {
    tests::Frame frame;
    frame.ShowWindow(SW_SHOW);
    Question question(&frame);
    question.at_start = [&](Question& self) {
        self.EndDialog(IDOK);
        EXPECT_TRUE(frame.IsWindowEnabled());
        EXPECT_EQ(::GetActiveWindow(), frame.m_hWnd);
        EXPECT_TRUE(::IsWindow(self));
        EXPECT_FALSE(self.IsWindowVisible());
    };
    EXPECT_EQ(question.DoModal(), IDOK);
}

TEST(ModalDialog, MayEndBeforeItIsShown) {
    tests::Frame frame;
    Question question(&frame);
    question.at_init = [](Question& self) { self.EndDialog(5); };
    EXPECT_EQ(question.DoModal(), 5);
    EXPECT_TRUE(frame.IsWindowEnabled());
    // The object can be used again.
    question.at_init = nullptr;
    question.at_start = [](Question& self) { self.EndDialog(6); };
    EXPECT_EQ(question.DoModal(), 6);
}

TEST(ModalDialog, MayEndWhileItsLoopWaits) {
    tests::Frame frame;
    Question question(&frame);
    std::thread sender;
    question.at_start = [&](Question& self) {
        sender =
            std::thread([window = self.m_hWnd] { ::SendMessageA(window, WM_COMMAND, IDOK, 0); });
    };
    EXPECT_EQ(question.DoModal(), IDOK);
    sender.join();
}

TEST(ModalDialog, AnOwnerThatWasDisabledStaysSo) {
    tests::Frame frame;
    frame.EnableWindow(FALSE);
    Question question(&frame);
    question.at_start = [](Question& self) { self.EndDialog(1); };
    EXPECT_EQ(question.DoModal(), 1);
    EXPECT_FALSE(frame.IsWindowEnabled());
}

TEST(ModalDialog, Nests) {
    tests::Frame frame;
    frame.ShowWindow(SW_SHOW);
    Question outer(&frame);
    outer.at_start = [&](Question& self) {
        Question inner(&self);
        inner.at_start = [&](Question& innermost) {
            EXPECT_FALSE(self.IsWindowEnabled());
            innermost.EndDialog(60);
        };
        EXPECT_EQ(inner.DoModal(), 60);
        EXPECT_TRUE(self.IsWindowEnabled());
        EXPECT_FALSE(frame.IsWindowEnabled());
        self.EndDialog(70);
    };
    EXPECT_EQ(outer.DoModal(), 70);
    EXPECT_TRUE(frame.IsWindowEnabled());
}

TEST(ModalDialog, EndsWithItsOwner) {
    tests::Frame frame;
    frame.ShowWindow(SW_SHOW);
    Question question(&frame);
    question.at_start = [&](Question&) { frame.DestroyWindow(); };
    EXPECT_EQ(question.DoModal(), -1);
    EXPECT_EQ(question.m_hWnd, nullptr);
}

TEST(ModalDialog, PassesOnTheEndOfTheProgram) {
    tests::Frame frame;
    Question question(&frame);
    question.at_start = [](Question&) { ::PostQuitMessage(3); };
    EXPECT_EQ(question.DoModal(), -1);
    EXPECT_TRUE(frame.IsWindowEnabled());
    MSG message{};
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
    }
    EXPECT_EQ(message.message, UINT{WM_QUIT});
    EXPECT_EQ(message.wParam, 3u);
}

TEST(Dialog, MovesTheFocus) {
    tests::Frame frame;
    Question dialog(nullptr);
    ASSERT_TRUE(dialog.Create(kAskDialog, &frame));
    dialog.ShowWindow(SW_SHOW);
    dialog.NextDlgCtrl();
    EXPECT_EQ(CWnd::GetFocus(), dialog.GetDlgItem(IDOK));
    dialog.PrevDlgCtrl();
    EXPECT_EQ(CWnd::GetFocus(), dialog.GetDlgItem(tests::kFormEdit));
    dialog.GotoDlgCtrl(dialog.GetDlgItem(IDCANCEL));
    EXPECT_EQ(CWnd::GetFocus(), dialog.GetDlgItem(IDCANCEL));
    platform::testing::Key(VK_TAB);
    EXPECT_EQ(CWnd::GetFocus(), dialog.GetDlgItem(tests::kFormEdit));
}

TEST(Dialog, AHeldEnterPressesNothing) {
    tests::Frame frame;
    Question dialog(nullptr);
    ASSERT_TRUE(dialog.Create(kAskDialog, &frame));
    dialog.ShowWindow(SW_SHOW);
    MSG enter{};
    enter.hwnd = dialog.GetDlgItem(tests::kFormEdit)->m_hWnd;
    enter.message = WM_KEYDOWN;
    enter.wParam = VK_RETURN;
    enter.lParam = 1 | 1 << 30;
    EXPECT_TRUE(dialog.PreTranslateMessage(&enter));
    EXPECT_TRUE(dialog.IsWindowVisible());
    enter.lParam = 1;
    EXPECT_TRUE(dialog.PreTranslateMessage(&enter));
    EXPECT_FALSE(dialog.IsWindowVisible());
}

}  // namespace
