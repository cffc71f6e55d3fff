#include "platform/toolkit/wnd.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

#include "tests/platform/toolkit/test_module.h"

namespace {

constexpr UINT kDo = WM_APP + 1;

/// Notes its messages, and does on kDo what the test asks.
class Watched : public CWnd {
public:
    using Log = std::vector<UINT>;
    explicit Watched(Log* log = nullptr) : log_(log) {}
    ~Watched() override { DestroyWindow(); }

    std::function<void()> on_do;
    std::function<void()> on_gone;
    int refuse_at_creation = 0;
    HWND handle_at_first_message = nullptr;
    HWND handle_at_subclassing = nullptr;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (handle_at_first_message == nullptr) handle_at_first_message = m_hWnd;
        Log* log = log_;
        if (log != nullptr) log->push_back(message);
        if (message == WM_CREATE && refuse_at_creation == 1) return -1;
        if (message == WM_NCCREATE && refuse_at_creation == 2) return 0;
        if (message != kDo) return CWnd::WindowProc(message, wParam, lParam);
        const auto action = on_do;  // which may end this object
        action();
        return 5;
    }
    void PreSubclassWindow() override { handle_at_subclassing = m_hWnd; }
    void PostNcDestroy() override {
        const auto action = on_gone;
        if (action) action();
    }

private:
    Log* log_;
};

bool Contains(const Watched::Log& log, UINT message) {
    return std::find(log.begin(), log.end(), message) != log.end();
}

constexpr const char* kOwnClass = "ToolkitTestOwnClass";

void RegisterOwnClass() {
    WNDCLASSA window_class{};
    window_class.lpfnWndProc = ::DefWindowProcA;
    window_class.hInstance = AfxGetInstanceHandle();
    window_class.lpszClassName = kOwnClass;
    ::RegisterClassA(&window_class);
}

TEST(WindowBinding, EveryMessageReachesTheObject) {
    RegisterOwnClass();
    tests::Frame frame;
    for (const char* class_name :
         {static_cast<const char*>(nullptr), kOwnClass, "Edit", "Button"}) {
        SCOPED_TRACE(class_name != nullptr ? class_name : "the toolkit's class");
        Watched::Log log;
        Watched window(&log);
        ASSERT_TRUE(window.Create(class_name, "x", WS_CHILD, CRect(0, 0, 20, 20), &frame, 7));
        ASSERT_GE(log.size(), 3u);
        EXPECT_EQ(log.front(), UINT{WM_NCCREATE});
        EXPECT_TRUE(Contains(log, WM_CREATE));
        EXPECT_EQ(window.handle_at_first_message, window.m_hWnd);
        EXPECT_EQ(window.handle_at_subclassing, window.m_hWnd);
        EXPECT_EQ(CWnd::FromHandlePermanent(window), &window);
        EXPECT_EQ(window.GetDlgCtrlID(), 7);
        EXPECT_EQ(window.GetParent(), &frame);
        EXPECT_EQ(frame.GetDlgItem(7), &window);

        const HWND handle = window;
        EXPECT_TRUE(window.DestroyWindow());
        EXPECT_EQ(log.back(), UINT{WM_NCDESTROY});
        EXPECT_EQ(window.m_hWnd, nullptr);
        EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
        EXPECT_FALSE(window.DestroyWindow());
    }
}

TEST(WindowBinding, WindowsMadeDuringACreationHaveTheirOwnObjects) {
    class Nest : public Watched {
    public:
        CWnd inner;
        HWND bare = nullptr;

    protected:
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            if (message == WM_CREATE) {
                bare = ::CreateWindowExA(0, "Static", "", WS_CHILD, 0, 0, 5, 5, m_hWnd, nullptr,
                                         nullptr, nullptr);
                inner.Create("Static", "", WS_CHILD, CRect(0, 0, 5, 5), this, 1);
            }
            return Watched::WindowProc(message, wParam, lParam);
        }
    } window;
    ASSERT_TRUE(window.CreateEx(0, nullptr, "", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
    EXPECT_EQ(CWnd::FromHandlePermanent(window), &window);
    EXPECT_EQ(CWnd::FromHandlePermanent(window.inner), &window.inner);
    EXPECT_TRUE(::IsWindow(window.bare));
    EXPECT_EQ(CWnd::FromHandlePermanent(window.bare), nullptr);
}

TEST(WindowBinding, ARefusedCreationLeavesNothing) {
    for (const int stage : {1, 2}) {
        Watched window;
        int gone = 0;
        window.on_gone = [&] { ++gone; };
        window.refuse_at_creation = stage;
        EXPECT_FALSE(window.CreateEx(0, nullptr, "", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
        EXPECT_EQ(window.m_hWnd, nullptr);
        EXPECT_EQ(gone, 1);
        window.refuse_at_creation = 0;
        EXPECT_TRUE(window.CreateEx(0, nullptr, "", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
    }
    Watched window;
    EXPECT_FALSE(
        window.CreateEx(0, "NoSuchToolkitClass", "", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
    EXPECT_EQ(window.m_hWnd, nullptr);
}

TEST(WindowBinding, WindowsWithoutAnObjectGetAVisitor) {
    tests::Frame frame;
    const HWND bare = ::CreateWindowExA(0, "Static", "bare", WS_CHILD, 0, 0, 5, 5, frame,
                                        reinterpret_cast<HMENU>(UINT_PTR{3}), nullptr, nullptr);
    CWnd* visitor = frame.GetDlgItem(3);
    ASSERT_NE(visitor, nullptr);
    EXPECT_EQ(visitor->m_hWnd, bare);
    EXPECT_EQ(CWnd::FromHandle(bare), visitor);
    EXPECT_EQ(CWnd::FromHandlePermanent(bare), nullptr);
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    EXPECT_EQ(frame.GetDlgItem(99), nullptr);

    // A visitor stays valid however many come after it.
    for (int i = 0; i < 300; ++i) {
        const HWND passing = ::CreateWindowExA(0, "Static", "", WS_CHILD, 0, 0, 5, 5, frame,
                                               nullptr, nullptr, nullptr);
        CWnd::FromHandle(passing);
        ::DestroyWindow(passing);
    }
    char text[8] = "";
    EXPECT_EQ(visitor->GetWindowText(text, sizeof(text)), 4);
    EXPECT_TRUE(::IsWindow(bare));
}

TEST(WindowEnd, AnObjectThatDeletesItselfOutlivesItsLastHandler) {
    bool deleted = false;
    bool deleted_in_handler = true;
    auto* window = new Watched;
    ASSERT_TRUE(window->CreateEx(0, nullptr, "", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
    const HWND handle = *window;
    window->on_gone = [&, window] {
        EXPECT_EQ(window->m_hWnd, nullptr);
        deleted = true;
        delete window;
    };
    window->on_do = [&, window] {
        window->DestroyWindow();
        EXPECT_FALSE(::IsWindow(handle));
        deleted_in_handler = deleted;
    };
    EXPECT_EQ(::SendMessageA(handle, kDo, 0, 0), 5);
    EXPECT_FALSE(deleted_in_handler);
    EXPECT_TRUE(deleted);
}

TEST(WindowEnd, DeletingTheObjectDestroysTheWindow) {
    tests::Frame frame;
    auto child = std::make_unique<Watched>();
    ASSERT_TRUE(child->Create(nullptr, "", WS_CHILD, CRect(0, 0, 9, 9), &frame, 1));
    const HWND handle = *child;
    child.reset();
    EXPECT_FALSE(::IsWindow(handle));
}

TEST(WindowEnd, AnObjectMayBeDeletedInsideItsMessage) {
    tests::Frame frame;
    auto* child = new Watched;
    ASSERT_TRUE(child->Create(nullptr, "", WS_CHILD, CRect(0, 0, 9, 9), &frame, 1));
    const HWND handle = *child;
    child->on_do = [child] { delete child; };
    EXPECT_EQ(::SendMessageA(handle, kDo, 0, 0), 5);
    EXPECT_FALSE(::IsWindow(handle));
    EXPECT_EQ(frame.GetDlgItem(1), nullptr);
}

TEST(WindowEnd, ChildrenGoWithTheirParent) {
    Watched::Log log;
    Watched child(&log);
    HWND handle = nullptr;
    {
        tests::Frame frame;
        ASSERT_TRUE(child.Create(nullptr, "", WS_CHILD, CRect(0, 0, 9, 9), &frame, 1));
        handle = child;
    }
    EXPECT_EQ(child.m_hWnd, nullptr);
    EXPECT_FALSE(::IsWindow(handle));
    EXPECT_TRUE(Contains(log, WM_DESTROY));
}

TEST(Subclassing, TakesTheMessagesOfAControlAndGivesThemBack) {
    tests::Frame frame;
    const HWND edit = ::CreateWindowExA(0, "Edit", "abc", WS_CHILD, 0, 0, 50, 20, frame,
                                        reinterpret_cast<HMENU>(UINT_PTR{3}), nullptr, nullptr);
    const LONG_PTR procedure = ::GetWindowLongPtrA(edit, GWLP_WNDPROC);
    Watched::Log log;
    Watched window(&log);
    EXPECT_FALSE(window.SubclassDlgItem(4, &frame));
    ASSERT_TRUE(window.SubclassDlgItem(3, &frame));
    EXPECT_EQ(window.handle_at_subclassing, edit);
    EXPECT_EQ(window.GetWindowTextLength(), 3);
    EXPECT_TRUE(Contains(log, WM_GETTEXTLENGTH));

    EXPECT_EQ(window.UnsubclassWindow(), edit);
    EXPECT_EQ(::GetWindowLongPtrA(edit, GWLP_WNDPROC), procedure);
    log.clear();
    EXPECT_EQ(::GetWindowTextLengthA(edit), 3);
    EXPECT_TRUE(log.empty());
}

WNDPROC procedure_below = nullptr;
int messages_above = 0;

LRESULT CALLBACK AboveProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    ++messages_above;
    return ::CallWindowProcA(procedure_below, window, message, wParam, lParam);
}

TEST(Subclassing, LeavesWhoTookTheMessagesLater) {
    tests::Frame frame;
    Watched::Log log;
    Watched window(&log);
    ASSERT_TRUE(window.Create("Edit", "", WS_CHILD, CRect(0, 0, 20, 20), &frame, 1));
    const HWND handle = window;
    procedure_below = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrA(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AboveProcedure)));
    log.clear();
    messages_above = 0;
    window.SendMessage(WM_GETTEXTLENGTH);
    EXPECT_EQ(messages_above, 1);
    EXPECT_EQ(log, Watched::Log{WM_GETTEXTLENGTH});
    window.UnsubclassWindow();
    EXPECT_EQ(::GetWindowLongPtrA(handle, GWLP_WNDPROC),
              reinterpret_cast<LONG_PTR>(&AboveProcedure));
    // The control goes on without the object.
    ::SetWindowTextA(handle, "abc");
    EXPECT_EQ(::GetWindowTextLengthA(handle), 3);
    EXPECT_GT(messages_above, 1);
    EXPECT_EQ(log, Watched::Log{WM_GETTEXTLENGTH});
    EXPECT_FALSE(window.SubclassWindow(handle));
    ::DestroyWindow(handle);
}

TEST(Attaching, BindsWithoutTakingMessages) {
    tests::Frame frame;
    const HWND edit = ::CreateWindowExA(0, "Edit", "abc", WS_CHILD, 0, 0, 50, 20, frame, nullptr,
                                        nullptr, nullptr);
    Watched::Log log;
    Watched window(&log);
    ASSERT_TRUE(window.Attach(edit));
    EXPECT_EQ(CWnd::FromHandle(edit), &window);
    EXPECT_EQ(window.GetWindowTextLength(), 3);
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(window.Detach(), edit);
    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_TRUE(::IsWindow(edit));

    ASSERT_TRUE(window.Attach(edit));
    EXPECT_TRUE(window.DestroyWindow());
    EXPECT_EQ(window.m_hWnd, nullptr);
    EXPECT_FALSE(::IsWindow(edit));
    EXPECT_FALSE(window.Attach(nullptr));
}

TEST(WindowCalls, StyleFontAndPlace) {
    tests::Frame frame;
    CWnd child;
    ASSERT_TRUE(child.Create("Edit", "", WS_CHILD, CRect(10, 20, 60, 40), &frame, 1));
    EXPECT_TRUE(child.ModifyStyle(0, WS_DISABLED));
    EXPECT_FALSE(child.ModifyStyle(0, WS_DISABLED));
    EXPECT_FALSE(child.IsWindowEnabled());
    EXPECT_TRUE(child.ModifyStyle(WS_DISABLED, 0, SWP_NOREDRAW));
    EXPECT_TRUE(child.IsWindowEnabled());

    CRect rect;
    child.GetWindowRect(rect);
    frame.ScreenToClient(rect);
    EXPECT_EQ(rect, CRect(10, 20, 60, 40));
    frame.ClientToScreen(rect);
    child.CenterWindow();
    CRect area;
    frame.GetClientRect(area);
    child.GetWindowRect(rect);
    frame.ScreenToClient(rect);
    EXPECT_EQ(rect.Size(), CSize(50, 20));
    EXPECT_LE(std::abs(rect.CenterPoint().x - area.CenterPoint().x), 1);
    EXPECT_LE(std::abs(rect.CenterPoint().y - area.CenterPoint().y), 1);

    CFont font;
    ASSERT_TRUE(font.CreateFont(12, 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 0, "宋体"));
    child.SetFont(&font);
    ASSERT_NE(child.GetFont(), nullptr);
    EXPECT_EQ(child.GetFont()->m_hObject, font.m_hObject);
    child.SetFont(nullptr);
    EXPECT_EQ(child.GetFont(), nullptr);
}

}  // namespace
