#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "platform/testing/input.h"
#include "tests/platform/toolkit/test_module.h"

namespace {

using platform::testing::Pump;

constexpr UINT kProbe = WM_APP + 10;
constexpr UINT kStop = WM_APP + 11;

/// Counts how often a message is offered and how often it arrives.
class Probe : public CWnd {
public:
    Probe() { CreateEx(0, nullptr, "", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0); }
    explicit Probe(CWnd* parent) { Create(nullptr, "", WS_CHILD, CRect(0, 0, 9, 9), parent, 1); }
    ~Probe() override { DestroyWindow(); }
    int offered = 0;
    int arrived = 0;
    bool takes = false;
    CWinApp* app_at_offer = nullptr;
    std::function<void()> on_probe;

    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message != kProbe) return FALSE;
        ++offered;
        app_at_offer = AfxGetApp();
        return takes;
    }

protected:
    LRESULT OnProbe(WPARAM, LPARAM) {
        ++arrived;
        if (on_probe) on_probe();
        return 0;
    }
    LRESULT OnStop(WPARAM, LPARAM) {
        ::PostQuitMessage(9);
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Probe, CWnd)
    ON_MESSAGE(kProbe, &Probe::OnProbe)
    ON_MESSAGE(kStop, &Probe::OnStop)
END_MESSAGE_MAP()

/// Loops of programs that know nothing of the toolkit, until the queue is empty.
void GetLoop() {
    MSG message{};
    ::PostThreadMessageA(::GetCurrentThreadId(), kStop, 0, 0);
    while (::GetMessageA(&message, nullptr, 0, 0) > 0 && message.message != kStop) {
        ::TranslateMessage(&message);
        ::DispatchMessageA(&message);
    }
}

void LookFirstLoop() {
    MSG message{};
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) {
        ::GetMessageA(&message, nullptr, 0, 0);
        ::TranslateMessage(&message);
        ::DispatchMessageA(&message);
    }
}

void RunLoop() {
    ::PostQuitMessage(0);
    tests::App().Run();
}

struct NamedLoop {
    const char* name;
    void (*run)();
};
constexpr NamedLoop kLoops[] = {{"GetMessage", GetLoop},
                                {"PeekMessage", Pump},
                                {"look, then get", LookFirstLoop},
                                {"CWinApp::Run", RunLoop}};

TEST(MessageFilter, OffersEachMessageOnceWhicheverLoopRuns) {
    for (const NamedLoop& loop : kLoops) {
        SCOPED_TRACE(loop.name);
        Probe probe;
        probe.PostMessage(kProbe);
        probe.PostMessage(kProbe);
        loop.run();
        EXPECT_EQ(probe.offered, 2);
        EXPECT_EQ(probe.arrived, 2);

        probe.takes = true;
        probe.PostMessage(kProbe);
        loop.run();
        EXPECT_EQ(probe.offered, 3);
        EXPECT_EQ(probe.arrived, 2);
    }
}

TEST(MessageFilter, AsksTheWindowThenThoseAboveIt) {
    Probe outer;
    Probe inner(&outer);
    const HWND bare =
        ::CreateWindowExA(0, "Static", "", WS_CHILD, 0, 0, 5, 5, inner, nullptr, nullptr, nullptr);
    ::PostMessageA(bare, kProbe, 0, 0);
    Pump();
    EXPECT_EQ(inner.offered, 1);
    EXPECT_EQ(outer.offered, 1);
    inner.takes = true;
    ::PostMessageA(bare, kProbe, 0, 0);
    Pump();
    EXPECT_EQ(inner.offered, 2);
    EXPECT_EQ(outer.offered, 1);
}

TEST(MessageFilter, WorksInLoopsInsideHandlers) {
    Probe probe;
    probe.on_probe = [&] {
        probe.on_probe = nullptr;
        probe.PostMessage(kProbe);
        Pump();
    };
    probe.PostMessage(kProbe);
    RunLoop();
    EXPECT_EQ(probe.offered, 2);
    EXPECT_EQ(probe.arrived, 2);
}

TEST(MessageFilter, SurvivesAWindowThatEndsWhileItIsAsked) {
    class Ending : public Probe {
    public:
        BOOL PreTranslateMessage(MSG* message) override {
            if (message->message == kProbe) delete this;
            return FALSE;
        }
    };
    auto* ending = new Ending;
    const HWND handle = *ending;
    ending->PostMessage(kProbe);
    Pump();
    EXPECT_FALSE(::IsWindow(handle));
}

TEST(MessageFilter, TheRunningApplicationSeesEverything) {
    tests::TestApp& app = tests::App();
    app.seen.clear();
    Probe probe;
    probe.PostMessage(kProbe);
    Pump();
    EXPECT_TRUE(app.seen.empty()) << "its loop does not run";
    probe.PostMessage(kProbe);
    RunLoop();
    EXPECT_EQ(app.seen, std::vector<UINT>{kProbe});
}

TEST(Application, RunIdlesWhenNothingWaitsAndEndsWithTheCode) {
    tests::TestApp& app = tests::App();
    Probe probe;
    app.idle_work = 2;
    app.idle_counts.clear();
    app.on_idle = [&](LONG count) {
        EXPECT_EQ(probe.arrived, 1) << "something was waiting";
        if (count == app.idle_work) probe.PostMessage(kStop);
    };
    probe.PostMessage(kProbe);
    EXPECT_EQ(app.Run(), 9);
    EXPECT_EQ(app.idle_counts, (std::vector<LONG>{0, 1, 2}));
    app.idle_work = 0;
    app.on_idle = nullptr;
}

TEST(Application, AProgramStartsRunsAndEnds) {
    tests::TestApp& app = tests::App();
    app.exits = 0;
    ::PostQuitMessage(4);
    EXPECT_EQ(AfxWinMain(nullptr, nullptr, nullptr, 0), 4);
    EXPECT_EQ(app.exits, 1);
    app.starts = FALSE;
    AfxWinMain(nullptr, nullptr, nullptr, 0);
    EXPECT_EQ(app.exits, 2);
    app.starts = TRUE;
}

}  // namespace
