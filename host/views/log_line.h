#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/views/view.h"

namespace views {

/// A line of what was reported, GBK.
struct LogText {
    std::string time;
    std::string text;
    bool bad = false;
};

/// The status line: the newest report, and a word that opens the log.
class LogLine : public View {
public:
    void Set(const LogText& newest);
    void SetOpen(bool open);

    std::function<void()> on_press;

protected:
    void Paint(const Painter& painter, CSize size) override;
    void OnLButtonDown(UINT keys, CPoint point);
    DECLARE_MESSAGE_MAP()

private:
    LogText newest_;
    bool open_ = false;
};

/// The log above the status line: the newest report at the bottom, older ones by the wheel, Page
/// Up and Page Down. It goes with Escape and when the focus leaves it.
class LogList : public View {
public:
    /// Shows it with its lower left corner at a point of the parent.
    void ShowAbove(CPoint corner, CSize size);
    void Hide();
    void Set(std::vector<LogText> lines);

    std::function<void()> on_hide;

protected:
    void Paint(const Painter& painter, CSize size) override;
    BOOL OnMouseWheel(UINT keys, short delta, CPoint point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnKillFocus(CWnd* next);
    UINT OnGetDlgCode() { return DLGC_WANTALLKEYS; }
    DECLARE_MESSAGE_MAP()

private:
    void Scroll(int lines);

    std::vector<LogText> lines_;
    int skipped_ = 0;  ///< newest lines below the view
};

}  // namespace views
