#include "platform/toolkit/module.h"

#include <gtest/gtest.h>

#include "tests/platform/toolkit/test_module.h"

namespace {

constexpr toolkit::DialogTemplate kOtherTemplates[] = {{.id = 555, .style = toolkit::kPageStyle}};
constexpr toolkit::TemplateTable kOtherTables[] = {kOtherTemplates};

/// A second module, as a library with the toolkit would bring it.
struct Library {
    CWinApp app{"other"};
    AFX_MODULE_STATE state{app, kOtherTables, this};
};

Library& TheLibrary() {
    static Library library;
    return library;
}

TEST(Module, TheProgramsIsCurrentWhenNoneWasEntered) {
    EXPECT_EQ(AfxGetModuleState(), AfxGetStaticModuleState());
    EXPECT_EQ(AfxGetApp(), &tests::App());
    EXPECT_EQ(AfxGetInstanceHandle(), ::GetModuleHandleA(nullptr));
    EXPECT_EQ(AfxGetResourceHandle(), AfxGetInstanceHandle());
    EXPECT_EQ(tests::App().m_hInstance, AfxGetInstanceHandle());
}

TEST(Module, IsEnteredForAScope) {
    {
        AFX_MANAGE_STATE(&TheLibrary().state);
        EXPECT_EQ(AfxGetApp(), &TheLibrary().app);
        {
            AFX_MANAGE_STATE(AfxGetStaticModuleState());
            EXPECT_EQ(AfxGetApp(), &tests::App());
        }
        EXPECT_EQ(AfxGetApp(), &TheLibrary().app);
    }
    EXPECT_EQ(AfxGetApp(), &tests::App());
}

TEST(Module, TemplatesAreItsOwn) {
    const AFX_MODULE_STATE& program = *AfxGetStaticModuleState();
    const AFX_MODULE_STATE& library = TheLibrary().state;
    ASSERT_NE(program.FindTemplate(tests::kAskDialog), nullptr);
    EXPECT_EQ(program.FindTemplate(tests::kAskDialog)->id, UINT{tests::kAskDialog});
    EXPECT_EQ(library.FindTemplate(tests::kAskDialog), nullptr);
    EXPECT_NE(library.FindTemplate(555), nullptr);
    EXPECT_EQ(program.FindTemplate(555), nullptr);
}

class Asker : public CWnd {
public:
    CWinApp* in_handler = nullptr;

protected:
    LRESULT OnAsk(WPARAM, LPARAM) {
        in_handler = AfxGetApp();
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Asker, CWnd)
    ON_MESSAGE(WM_APP, &Asker::OnAsk)
END_MESSAGE_MAP()

TEST(Module, AWindowsHandlersRunInTheModuleThatMadeIt) {
    Asker ours;
    Asker theirs;
    ASSERT_TRUE(ours.CreateEx(0, nullptr, "", WS_POPUP, CRect(), nullptr, 0));
    {
        AFX_MANAGE_STATE(&TheLibrary().state);
        ASSERT_TRUE(theirs.CreateEx(0, nullptr, "", WS_POPUP, CRect(), nullptr, 0));
        ours.SendMessage(WM_APP);
    }
    theirs.SendMessage(WM_APP);
    EXPECT_EQ(ours.in_handler, &tests::App());
    EXPECT_EQ(theirs.in_handler, &TheLibrary().app);
    EXPECT_EQ(AfxGetApp(), &tests::App());
}

TEST(Module, RegisteredClassesAreKeptByTheirArguments) {
    const HCURSOR arrow = ::LoadCursorA(nullptr, IDC_ARROW);
    const LPCSTR first = AfxRegisterWndClass(CS_DBLCLKS, arrow);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(AfxRegisterWndClass(CS_DBLCLKS, arrow), first);
    const auto brush = reinterpret_cast<HBRUSH>(UINT_PTR{COLOR_BTNFACE + 1});
    const LPCSTR second = AfxRegisterWndClass(CS_DBLCLKS, arrow, brush);
    EXPECT_STRNE(second, first);
    WNDCLASSA window_class{};
    ASSERT_TRUE(::GetClassInfoA(AfxGetInstanceHandle(), second, &window_class));
    EXPECT_EQ(window_class.hbrBackground, brush);
    EXPECT_EQ(window_class.style, UINT{CS_DBLCLKS});
}

TEST(Module, TheMainWindowIsTheApplications) {
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
    tests::Frame frame;
    tests::App().m_pMainWnd = &frame;
    EXPECT_EQ(AfxGetMainWnd(), &frame);
    tests::App().m_pMainWnd = nullptr;
}

}  // namespace
