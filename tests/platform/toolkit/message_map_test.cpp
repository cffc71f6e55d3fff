#include "platform/toolkit/message_map.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/platform/toolkit/test_module.h"

namespace {

// A map takes a handler of the exact signature only; each of these lines would be an error in a
// map.
template <class ThisClass>
concept FitsSize = requires {
    TOOLKIT_MAKE(WM_SIZE, 0, 0, 0, void, &ThisClass::OnSize, UINT, int, int);
};
template <class ThisClass>
concept FitsTimer = requires {
    TOOLKIT_MAKE(WM_TIMER, 0, 0, 0, void, &ThisClass::OnTimer, UINT_PTR);
};

struct Right : CWnd {
    void OnSize(UINT, int, int);
    void OnTimer(UINT_PTR);
};
struct WrongAnswer : CWnd {
    BOOL OnSize(UINT, int, int);
    int OnTimer(UINT_PTR);
};
struct WrongArguments : CWnd {
    void OnSize(int, int, int);
    void OnTimer(short);
};
struct TooFew : CWnd {
    void OnSize(UINT, int);
    void OnTimer();
};
struct Constant : CWnd {
    void OnSize(UINT, int, int) const;
    void OnTimer(UINT_PTR) const;
};
struct Inherited : Right {};
struct Overloaded : CWnd {
    void OnSize(UINT, int, int);
    void OnSize(CRect);
    void OnTimer(UINT_PTR);
};
struct NoTarget {
    void OnSize(UINT, int, int);
    void OnTimer(UINT_PTR);
};

static_assert(FitsSize<Right> && FitsTimer<Right>);
static_assert(FitsSize<Inherited> && FitsTimer<Inherited>);
static_assert(FitsSize<Overloaded>);
static_assert(!FitsSize<WrongAnswer> && !FitsTimer<WrongAnswer>);
static_assert(!FitsSize<WrongArguments> && !FitsTimer<WrongArguments>);
static_assert(!FitsSize<TooFew> && !FitsTimer<TooFew>);
static_assert(!FitsSize<Constant> && !FitsTimer<Constant>);
static_assert(!FitsSize<NoTarget> && !FitsTimer<NoTarget>);

class Base : public CCmdTarget {
public:
    std::string called;

protected:
    void OnBase() { called = "base"; }
    virtual void OnVirtual() { called = "base virtual"; }
    void OnChange() { called = "change"; }
    void OnBaseRange(UINT id) { called = "base range " + std::to_string(id); }
    void OnDelta(NMHDR* header, LRESULT* result) {
        called = "delta " + std::to_string(header->idFrom);
        *result = 7;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Base, CCmdTarget)
    ON_COMMAND(1, &Base::OnBase)
    ON_BN_CLICKED(2, &Base::OnVirtual)
    ON_EN_CHANGE(3, &Base::OnChange)
    ON_COMMAND_RANGE(10, 19, &Base::OnBaseRange)
    ON_NOTIFY(UDN_DELTAPOS, 4, &Base::OnDelta)
END_MESSAGE_MAP()

// The second base moves the first one inside the object.
struct Listener {
    virtual ~Listener() = default;
    void OnListen() { heard = value; }
    int value = 5;
    int heard = 0;
};

class Derived : public Listener, public Base {
protected:
    void OnDerived() { called = "derived"; }
    void OnVirtual() override { called = "derived virtual"; }
    void OnRange(UINT id) { called = "derived range " + std::to_string(id + UINT(value) - 5); }
    void OnSelection() { called = "selection"; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Derived, Base)
    ON_COMMAND(1, &Derived::OnDerived)
    ON_CONTROL_RANGE(LBN_SELCHANGE, 10, 12, &Derived::OnRange)
    ON_COMMAND_RANGE(12, 13, &Derived::OnRange)
    ON_CBN_SELCHANGE(3, &Derived::OnSelection)
    ON_COMMAND(6, &Derived::OnListen)
    ON_COMMAND(7, &Derived::OnChange)
END_MESSAGE_MAP()

class Empty : public Derived {
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Empty, Derived)
END_MESSAGE_MAP()

template <class Target>
std::string Command(UINT id, int code) {
    Target target;
    const BOOL handled = target.OnCmdMsg(id, code, nullptr, nullptr);
    EXPECT_EQ(handled != FALSE, !target.called.empty());
    return target.called;
}

TEST(MessageMap, CommandsFindTheNearestHandler) {
    struct {
        UINT id;
        int code;
        const char* base;
        const char* derived;
    } const cases[] = {
        {1, 0, "base", "derived"},
        {2, BN_CLICKED, "base virtual", "derived virtual"},
        {3, EN_CHANGE, "change", "change"},
        {3, CBN_SELCHANGE, "", "selection"},
        {3, EN_UPDATE, "", ""},
        {9, 0, "", ""},
        {10, 0, "base range 10", "base range 10"},
        {12, 0, "base range 12", "derived range 12"},
        {13, 0, "base range 13", "derived range 13"},
        {19, 0, "base range 19", "base range 19"},
        {20, 0, "", ""},
        {12, LBN_SELCHANGE, "", "derived range 12"},
        {13, LBN_SELCHANGE, "", ""},
        // A notification's number is no command.
        {4, LOWORD(UDN_DELTAPOS), "", ""},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(std::to_string(row.id) + " code " + std::to_string(row.code));
        EXPECT_EQ(Command<Base>(row.id, row.code), row.base);
        EXPECT_EQ(Command<Derived>(row.id, row.code), row.derived);
        EXPECT_EQ(Command<Empty>(row.id, row.code), row.derived);
    }
}

TEST(MessageMap, HandlersMayComeFromAnyBase) {
    Derived target;
    EXPECT_TRUE(target.OnCmdMsg(6, 0, nullptr, nullptr));
    EXPECT_EQ(target.heard, 5);
    EXPECT_TRUE(target.OnCmdMsg(7, 0, nullptr, nullptr));
    EXPECT_EQ(target.called, "change");
}

TEST(MessageMap, NotificationsCarryHeaderAndAnswer) {
    Derived target;
    NMHDR header{nullptr, 4, UDN_DELTAPOS};
    LRESULT result = 0;
    AFX_NOTIFY notify{&result, &header};
    const int code = MAKELONG(LOWORD(UDN_DELTAPOS), WM_NOTIFY);
    EXPECT_TRUE(target.OnCmdMsg(4, code, &notify, nullptr));
    EXPECT_EQ(target.called, "delta 4");
    EXPECT_EQ(result, 7);
    EXPECT_FALSE(target.OnCmdMsg(5, code, &notify, nullptr));
}

}  // namespace
