#include "host/views/top_bar.h"

#include <algorithm>

#include "host/views/quote_rules.h"

namespace views {
namespace {

constexpr int kPadding = 12;
constexpr int kDot = 8;

const char* ConnectionText(Connection connection) {
    switch (connection) {
        case Connection::kConnecting: return "连接中";
        case Connection::kConnected: return "已连接";
        case Connection::kLost: return "连接中断";
        default: return "未登录";
    }
}

COLORREF ConnectionColor(const skin::Palette& colors, Connection connection) {
    switch (connection) {
        case Connection::kConnecting: return colors.accent;
        case Connection::kConnected: return colors.sell;
        case Connection::kLost: return colors.buy;
        default: return colors.disabled;
    }
}

}  // namespace

BEGIN_MESSAGE_MAP(TopBar, View)
    ON_WM_LBUTTONDOWN()
    ON_WM_MOUSEMOVE()
    ON_MESSAGE(WM_MOUSELEAVE, &TopBar::OnMouseLeave)
END_MESSAGE_MAP()

void TopBar::Set(const TopBarState& state) {
    state_ = state;
    if (GetSafeHwnd()) Invalidate(FALSE);
}

void TopBar::Paint(const Painter& painter, CSize size) {
    const skin::Palette& colors = painter.colors;
    const int bottom = size.cy - 1;
    painter.Fill({0, 0, size.cx, size.cy}, colors.raised);
    painter.Fill({0, bottom, size.cx, size.cy}, colors.line);

    const std::string paper = "模拟交易";
    const int badge_width = painter.TextWidth(paper, Type::kLabel, true) + 16;
    const RECT badge{kPadding, 6, kPadding + badge_width, bottom - 6};
    painter.Fill(badge, colors.accent);
    painter.Text(badge, paper, colors.ground, DT_CENTER, Type::kLabel, true);

    int left = badge.right + 16;
    const int middle = bottom / 2;
    painter.Fill({left, middle - kDot / 2, left + kDot, middle + kDot / 2},
                 ConnectionColor(colors, state_.connection));
    std::string text = ConnectionText(state_.connection);
    if (!state_.account.empty()) text += "  " + state_.account;
    const int width = painter.TextWidth(text);
    account_ = {left, 0, left + kDot + 6 + width, bottom};
    const bool hot = PtInRect(&account_, pointer_);
    painter.Text({left + kDot + 6, 0, account_.right + 1, bottom}, text,
                 hot ? colors.accent : colors.text);
    left = PaintFunds(painter, account_.right + 24, bottom);
    PaintClock(painter, size, left);
}

int TopBar::PaintFunds(const Painter& painter, int left, int bottom) const {
    const skin::Palette& colors = painter.colors;
    const struct {
        const char* label;
        const std::string& text;
        COLORREF color;
    } figures[] = {{"权益", state_.equity, colors.text},
                   {"可用", state_.available, colors.text},
                   {"持仓盈亏", state_.profit, TendencyColor(colors, state_.profit_sign)}};
    for (const auto& figure : figures) {
        const int label = painter.TextWidth(figure.label) + 8;
        painter.Text({left, 0, left + label, bottom}, figure.label, colors.secondary);
        const int width = std::max(painter.TextWidth(figure.text, Type::kLabel, true), 80);
        painter.Text({left + label, 0, left + label + width + 1, bottom}, figure.text, figure.color,
                     DT_LEFT, Type::kLabel, true);
        left += label + width + 16;
    }
    return left;
}

void TopBar::PaintClock(const Painter& painter, CSize size, int left) {
    const skin::Palette& colors = painter.colors;
    const int bottom = size.cy - 1;
    const std::string settings = "设置";
    settings_ = {size.cx - kPadding - painter.TextWidth(settings), 0, size.cx - kPadding, bottom};
    painter.Text({settings_.left, 0, settings_.right + 1, bottom}, settings,
                 PtInRect(&settings_, pointer_) ? colors.accent : colors.secondary);
    int right = settings_.left - 16;
    const auto put = [&](const std::string& text, COLORREF color, bool bold) {
        const int width = painter.TextWidth(text, Type::kDense, bold);
        if (text.empty() || right - width < left) return;
        painter.Text({right - width, 0, right + 1, bottom}, text, color, DT_LEFT, Type::kDense,
                     bold);
        right -= width + 12;
    };
    put(state_.clock, colors.text, true);
    put(state_.phase, colors.secondary, false);
    put(state_.speed, colors.accent, false);
}

void TopBar::OnLButtonDown(UINT keys, CPoint point) {
    CWnd::OnLButtonDown(keys, point);
    if (PtInRect(&account_, point) && on_account) on_account();
    if (PtInRect(&settings_, point) && on_settings) on_settings();
}

void TopBar::OnMouseMove(UINT keys, CPoint point) {
    CWnd::OnMouseMove(keys, point);
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, GetSafeHwnd(), 0};
    TrackMouseEvent(&track);
    pointer_ = point;
    Invalidate(FALSE);
}

LRESULT TopBar::OnMouseLeave(WPARAM, LPARAM) {
    pointer_ = CPoint(-1, -1);
    Invalidate(FALSE);
    return 0;
}

}  // namespace views
