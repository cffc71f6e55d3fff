#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/toolkit/toolkit.h"

/// The test program as a module of the toolkit, and windows to look into.
namespace tests {

/// Templates of the program, see test_module.cpp.
enum TemplateId : UINT { kFormDialog = 100, kPageDialog = 101, kAskDialog = 102 };
/// Controls of kFormDialog.
enum FormControl : int { kFormLabel = 10, kFormEdit = 11, kFormButton = 12, kFormList = 13 };

class TestApp : public CWinApp {
public:
    TestApp() : CWinApp("试验") {}
    BOOL InitInstance() override { return starts; }
    int ExitInstance() override {
        ++exits;
        return CWinApp::ExitInstance();
    }
    BOOL OnIdle(LONG count) override {
        idle_counts.push_back(count);
        if (on_idle) on_idle(count);
        return count < idle_work;
    }
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message >= WM_APP) seen.push_back(message->message);
        return CWinApp::PreTranslateMessage(message);
    }

    BOOL starts = TRUE;
    int exits = 0;
    LONG idle_work = 0;
    std::function<void(LONG)> on_idle;
    std::vector<LONG> idle_counts;
    std::vector<UINT> seen;
};

TestApp& App();

/// A top-level window that is not shown.
class Frame : public CWnd {
public:
    Frame() {
        CreateEx(0, nullptr, "frame", WS_OVERLAPPEDWINDOW, CRect(40, 40, 440, 340), nullptr, 0);
    }
    ~Frame() override { DestroyWindow(); }
};

}  // namespace tests
