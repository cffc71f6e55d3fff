#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "platform/testing/input.h"
#include "platform/testing/sight.h"
#include "platform/toolkit/toolkit.h"
#include "tests/support/front_end/recording_core.h"
#include "tests/support/front_end/recording_host.h"
#include "tests/support/gbk_text.h"

namespace tests {

/// A page in the place of the real ones: keeps what its children report.
class HostPage : public CWnd {
public:
    std::vector<std::pair<int, int>> commands;  ///< id, notification code
    std::vector<std::pair<int, int>> steps;     ///< id, direction of the up-down control
    std::vector<UINT> messages;                 ///< private messages

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_COMMAND) commands.emplace_back(LOWORD(wParam), HIWORD(wParam));
        if (message == WM_NOTIFY) {
            const auto& step = *reinterpret_cast<const NMUPDOWN*>(lParam);
            if (step.hdr.code == static_cast<UINT>(UDN_DELTAPOS)) {
                steps.emplace_back(static_cast<int>(step.hdr.idFrom), step.iDelta);
            }
        }
        if (message >= WM_USER) messages.push_back(message);
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

/// A shown page of 400 x 300 pixels, with a core and a host behind it.
class PageTest : public ::testing::Test {
protected:
    PageTest() {
        platform::testing::RememberTexts();
        platform::testing::StopClock();
        platform::testing::MovePointer({1200, 780});
        page_.CreateEx(WS_EX_CONTROLPARENT, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE,
                       CRect(100, 100, 500, 400), nullptr, 0);
        platform::testing::Pump();
    }
    ~PageTest() override {
        page_.DestroyWindow();
        platform::testing::Pump();
    }

    static std::string TextOf(const CWnd& window) {
        char text[256] = {};
        window.GetWindowText(text, sizeof text);
        return text;
    }

    RecordingCore core_;
    RecordingHost host_;
    FrontEndDoors doors_{core_, host_};
    HostPage page_;
};

}  // namespace tests
