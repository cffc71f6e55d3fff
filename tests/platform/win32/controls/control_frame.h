#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/system.h"

namespace tests {

/// A frame that is active, a window in it that has the focus at first, and one control under test
/// with id 10. What the control tells its parent is written down in short:
///
///     EN_SETFOCUS UPD+CHG
///
/// where UPD+CHG stands for EN_UPDATE EN_CHANGE.
class ControlFrame : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Makes the control under test, in place of an earlier one; the focus is elsewhere.
    HWND Make(const char* window_class, DWORD style, int width, int height, const char* text = "",
              DWORD ex_style = 0);
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    LRESULT Send(UINT message, WPARAM wParam, const char* text);
    std::string Text() const;

    /// A click that no other click before it turns into a double click.
    void ClickOnce(int x, int y);
    void EndClickSequence();
    void FocusElsewhere() { SetFocus(next_); }

    /// Dispatches what the queue holds; then what was told since the last call.
    std::string Take();

    /// One thing that is done, what is told of it and how the control stands behind it.
    struct Step {
        const char* what;
        std::function<void()> act;
        const char* told;
        std::string state;
    };
    void Run(const std::vector<Step>& steps);
    virtual std::string State() { return {}; }

    /// Writes messages of these kinds down as well (WM_CTLCOLOR..., WM_DRAWITEM, ...).
    void Show(std::vector<UINT> messages) { shown_ = std::move(messages); }
    void Note(const std::string& text);

    HWND frame_ = nullptr;
    HWND next_ = nullptr;
    HWND ctl_ = nullptr;
    std::map<UINT, LRESULT> answers_;  ///< to notifications, by code
    /// Called for every message of the frame first; true ends it with the answer.
    std::function<bool(UINT, WPARAM, LPARAM, LRESULT&)> handler_;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Message(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Notified(const NMHDR& header);
    std::string CommandName(HWND control, int code) const;

    std::string told_;
    std::vector<UINT> shown_;
};

/// What the notification says beyond its code, as in "(1 -> 2 by 1 state 2)"; empty for most.
std::string NotificationDetails(const NMHDR& header);
std::string NotificationName(UINT code);

}  // namespace tests
