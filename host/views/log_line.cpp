#include "host/views/log_line.h"

#include <algorithm>

namespace views {
namespace {

constexpr int kPadding = 12;
constexpr int kTimeWidth = 64;
constexpr int kLineHeight = 20;
constexpr int kButtonWidth = 64;

void PaintEntry(const Painter& painter, const RECT& row, const LogText& line) {
    painter.Text({row.left, row.top, row.left + kTimeWidth, row.bottom}, line.time,
                 painter.colors.secondary);
    painter.Text({row.left + kTimeWidth, row.top, row.right, row.bottom}, line.text,
                 line.bad ? painter.colors.accent : painter.colors.text);
}

}  // namespace

BEGIN_MESSAGE_MAP(LogLine, View)
    ON_WM_LBUTTONDOWN()
END_MESSAGE_MAP()

void LogLine::Set(const LogText& newest) {
    newest_ = newest;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void LogLine::SetOpen(bool open) {
    open_ = open;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void LogLine::Paint(const Painter& painter, CSize size) {
    painter.Fill({0, 0, size.cx, size.cy}, painter.colors.raised);
    painter.Fill({0, 0, size.cx, 1}, painter.colors.line);
    PaintEntry(painter, {kPadding, 1, size.cx - kButtonWidth - kPadding, size.cy}, newest_);
    painter.Text({size.cx - kButtonWidth, 1, size.cx - kPadding, size.cy},
                 open_ ? "日志 ▼" : "日志 ▲", painter.colors.secondary, DT_RIGHT);
}

void LogLine::OnLButtonDown(UINT keys, CPoint point) {
    CWnd::OnLButtonDown(keys, point);
    if (on_press) on_press();
}

BEGIN_MESSAGE_MAP(LogList, View)
    ON_WM_MOUSEWHEEL()
    ON_WM_KEYDOWN()
    ON_WM_KILLFOCUS()
    ON_WM_GETDLGCODE()
END_MESSAGE_MAP()

void LogList::ShowAbove(CPoint corner, CSize size) {
    skipped_ = 0;
    ::SetWindowPos(GetSafeHwnd(), HWND_TOP, corner.x, corner.y - size.cy, size.cx, size.cy,
                   SWP_SHOWWINDOW);
    SetFocus();
}

void LogList::Hide() {
    if (!IsWindowVisible()) return;
    ShowWindow(SW_HIDE);
    if (on_hide) on_hide();
}

void LogList::Set(std::vector<LogText> lines) {
    lines_ = std::move(lines);
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void LogList::Paint(const Painter& painter, CSize size) {
    painter.Fill({0, 0, size.cx, size.cy}, painter.colors.raised);
    painter.Frame({0, 0, size.cx, size.cy}, painter.colors.line);
    if (lines_.empty()) {
        painter.Text({0, 0, size.cx, size.cy}, "暂无消息", painter.colors.secondary, DT_CENTER);
        return;
    }
    int bottom = size.cy - 4;
    for (auto index = static_cast<int>(lines_.size()) - 1 - skipped_; index >= 0; --index) {
        if (bottom - kLineHeight < 2) break;
        PaintEntry(painter, {kPadding, bottom - kLineHeight, size.cx - kPadding, bottom},
                   lines_[static_cast<std::size_t>(index)]);
        bottom -= kLineHeight;
    }
}

void LogList::Scroll(int lines) {
    const int shown = std::max<int>(ClientSize().cy / kLineHeight, 1);
    const int most = std::max(static_cast<int>(lines_.size()) - shown, 0);
    skipped_ = std::clamp(skipped_ + lines, 0, most);
    Invalidate(FALSE);
}

BOOL LogList::OnMouseWheel(UINT, short delta, CPoint) {
    Scroll(3 * delta / WHEEL_DELTA);
    return TRUE;
}

void LogList::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    CWnd::OnKeyDown(key, repeat, flags);
    const int page = std::max<int>(ClientSize().cy / kLineHeight - 1, 1);
    switch (key) {
        case VK_ESCAPE: Hide(); break;
        case VK_UP: Scroll(1); break;
        case VK_DOWN: Scroll(-1); break;
        case VK_PRIOR: Scroll(page); break;
        case VK_NEXT: Scroll(-page); break;
        default: break;
    }
}

void LogList::OnKillFocus(CWnd* next) {
    CWnd::OnKillFocus(next);
    Hide();
}

}  // namespace views
