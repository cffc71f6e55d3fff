// Where the edit control's lines stand and how they are painted.

#include <algorithm>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/control_host.h"
#include "platform/win32/controls/edit_control.h"

namespace winbase {

namespace {

constexpr int kMargin = 3;  // between the border and the text
constexpr int kCaretMillis = 530;
constexpr UINT_PTR kCaretTimer = 0xFFF1;
constexpr COLORREF kCaretColor = RGB(0x1F, 0x29, 0x33);

}  // namespace

RECT EditControl::TextArea() const {
    RECT area{};
    GetClientRect(window_, &area);
    InflateRect(&area, -kMargin, 0);
    if (area.right < area.left) area.right = area.left;
    if (multi_line()) {
        area.top += std::min<LONG>(kMargin - 1, area.bottom - area.top);
        return area;
    }
    // One line stands in the middle, whatever the height.
    const int rest = area.bottom - area.top - widths_.line_height();
    area.top += std::max(rest / 2, 0);
    area.bottom = area.top + widths_.line_height();
    return area;
}

void EditControl::Relayout() {
    const RECT area = TextArea();
    const bool wraps = multi_line() && !HasStyle(ES_AUTOHSCROLL) && !HasStyle(WS_HSCROLL);
    layout_.Break(text_, widths_, wraps ? std::max<int>(area.right - area.left, 1) : 0);
    UpdateScrollBar();
}

int EditControl::VisibleLines() const {
    const RECT area = TextArea();
    return std::max((area.bottom - area.top) / widths_.line_height(), 1);
}

int EditControl::LineLeft(const TextLine& line) const {
    const RECT area = TextArea();
    const DWORD alignment = Style() & (ES_CENTER | ES_RIGHT);
    const int width =
        widths_.Of(std::u16string_view(text_.codes()).substr(line.start, line.end - line.start));
    const int rest = area.right - area.left - width;
    if (alignment == 0 || rest < 0) return area.left - scroll_x_;
    return area.left + (alignment == ES_RIGHT ? rest - 1 : rest / 2);
}

POINT EditControl::PointOf(std::size_t position) const {
    const std::size_t index = layout_.LineOf(position);
    const TextLine& line = layout_.lines()[index];
    const RECT area = TextArea();
    const int x = LineLeft(line) +
                  widths_.Of(std::u16string_view(text_.codes())
                                 .substr(line.start, std::min(position, line.end) - line.start));
    return {x, area.top + (static_cast<int>(index) - first_line_) * widths_.line_height()};
}

std::size_t EditControl::PositionAt(POINT point) const {
    const RECT area = TextArea();
    const int height = widths_.line_height();
    const int below = point.y - area.top;
    const int row = first_line_ + (below >= 0 ? below / height : -1);
    const int last = static_cast<int>(layout_.lines().size()) - 1;
    const TextLine& line =
        layout_.lines()[static_cast<std::size_t>(multi_line() ? std::clamp(row, 0, last) : 0)];
    int x = LineLeft(line);
    std::size_t position = line.start;
    while (position < line.end) {
        const int width = widths_.Of(text_.codes()[position]);
        if (point.x < x + (width + 1) / 2) break;
        x += width;
        ++position;
    }
    return position;
}

void EditControl::ScrollToCaret() {
    if (multi_line()) {
        const auto line = static_cast<int>(layout_.LineOf(text_.caret()));
        const int visible = VisibleLines();
        if (line < first_line_) ScrollTo(line);
        if (line >= first_line_ + visible) ScrollTo(line - visible + 1);
    }
    const RECT area = TextArea();
    const int width = area.right - area.left;
    const int x = PointOf(text_.caret()).x - area.left;
    if (x < 0) scroll_x_ += x;
    if (x > width - 1) scroll_x_ += x - (width - 1);
    // Nothing empty is shown at the right while text is hidden at the left.
    scroll_x_ = std::clamp(scroll_x_, 0, std::max(layout_.width() + 1 - width, 0));
}

void EditControl::ScrollTo(int first_line) {
    const int lines = static_cast<int>(layout_.lines().size());
    const int target = std::clamp(first_line, 0, std::max(lines - VisibleLines(), 0));
    if (target == first_line_) return;
    first_line_ = target;
    UpdateScrollBar();
    Repaint();
    Tell(EN_VSCROLL);
}

void EditControl::UpdateScrollBar() {
    if (!multi_line()) return;
    const int lines = static_cast<int>(layout_.lines().size());
    first_line_ = std::clamp(first_line_, 0, std::max(lines - VisibleLines(), 0));
    if (!HasStyle(WS_VSCROLL)) return;
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    info.nMax = std::max(lines - 1, 0);
    info.nPage = static_cast<UINT>(VisibleLines());
    info.nPos = first_line_;
    SetScrollInfo(window_, SB_VERT, &info, TRUE);
}

void EditControl::Scroll(int code, int position) {
    const int page = std::max(VisibleLines() - 1, 1);
    switch (code) {
        case SB_LINEUP: ScrollTo(first_line_ - 1); return;
        case SB_LINEDOWN: ScrollTo(first_line_ + 1); return;
        case SB_PAGEUP: ScrollTo(first_line_ - page); return;
        case SB_PAGEDOWN: ScrollTo(first_line_ + page); return;
        case SB_TOP: ScrollTo(0); return;
        case SB_BOTTOM: ScrollTo(static_cast<int>(layout_.lines().size())); return;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION: ScrollTo(position); return;
        default: return;
    }
}

void EditControl::Repaint() {
    caret_shown_ = true;
    InvalidateRect(window_, nullptr, TRUE);
}

COLORREF EditControl::Ground(HDC dc, HBRUSH* brush) const {
    const bool editable = IsWindowEnabled(window_) && !HasStyle(ES_READONLY);
    *brush = AskColors(window_, dc, editable ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC);
    return IsWindowEnabled(window_) ? GetTextColor(dc) : GetSysColor(COLOR_GRAYTEXT);
}

void EditControl::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    if (dc == nullptr) return;
    TellPainting();
    {
        const UseFont use(dc, font_);
        HBRUSH brush = nullptr;
        const COLORREF color = Ground(dc, &brush);
        FillRect(dc, &paint.rcPaint, brush);
        SetTextColor(dc, color);
        SetBkMode(dc, TRANSPARENT);
        PaintLines(dc);
        if (paint.rcPaint.left == 0 && paint.rcPaint.top == 0) PaintFrame(brush);
    }
    EndPaint(window_, &paint);
}

// The border tells of the focus; what it leaves of the frame continues the ground.
void EditControl::PaintFrame(HBRUSH inside) const {
    if (HasFrame(window_)) PaintInputFrame(window_, focused_, inside);
}

void EditControl::PaintLines(HDC dc) {
    const RECT area = TextArea();
    const int saved = SaveDC(dc);
    // The caret may stand one pixel behind the last character.
    IntersectClipRect(dc, area.left, area.top, area.right + 1, area.bottom);
    const int height = widths_.line_height();
    int y = area.top;
    // Whole lines only, but one at least.
    const auto first = static_cast<std::size_t>(first_line_);
    const auto last =
        std::min(first + static_cast<std::size_t>(VisibleLines()), layout_.lines().size());
    for (std::size_t line = first; line < last; ++line, y += height) {
        PaintLine(dc, layout_.lines()[line], y);
    }
    PaintCaret(dc);
    RestoreDC(dc, saved);
}

void EditControl::PaintLine(HDC dc, const TextLine& line, int y) {
    const bool marked = focused_ || HasStyle(ES_NOHIDESEL);
    const std::size_t from =
        marked ? std::clamp(text_.selection_start(), line.start, line.end) : line.end;
    const std::size_t to =
        marked ? std::clamp(text_.selection_end(), line.start, line.end) : line.end;
    const auto codes = std::u16string_view(text_.codes());
    int x = LineLeft(line);
    PaintRun(dc, line.start, from, x, y, false);
    x += widths_.Of(codes.substr(line.start, from - line.start));
    PaintRun(dc, from, to, x, y, true);
    x += widths_.Of(codes.substr(from, to - from));
    PaintRun(dc, to, line.end, x, y, false);
}

void EditControl::PaintRun(HDC dc, std::size_t from, std::size_t to, int x, int y, bool selected) {
    if (from >= to) return;
    const auto codes = std::u16string_view(text_.codes()).substr(from, to - from);
    const COLORREF old = GetTextColor(dc);
    if (selected) {
        const RECT ground{x, y, x + widths_.Of(codes), y + widths_.line_height()};
        FillRect(dc, &ground, GetSysColorBrush(COLOR_HIGHLIGHT));
        SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    }
    if (mask_ != 0) {
        PaintMask(dc, codes.size(), x, y);
    } else {
        PaintCharacters(dc, codes, x, y);
    }
    SetTextColor(dc, old);
}

// Tabs have a width and no glyph, line ends in a single line neither.
void EditControl::PaintCharacters(HDC dc, std::u16string_view codes, int x, int y) const {
    std::size_t start = 0;
    while (start < codes.size()) {
        const std::size_t blank = std::min(codes.find_first_of(u"\t\r\n", start), codes.size());
        const std::string bytes = BytesFromCodes(codes.substr(start, blank - start));
        if (!bytes.empty()) TextOutA(dc, x, y, bytes.data(), static_cast<int>(bytes.size()));
        x += widths_.Of(codes.substr(start, std::min(blank + 1, codes.size()) - start));
        start = blank + 1;
    }
}

void EditControl::PaintMask(HDC dc, std::size_t count, int x, int y) {
    // A star hangs high in its cell; what a password field is expected to show is a round dot.
    if (mask_ != '*') {
        const std::string bytes(count, static_cast<char>(mask_));
        TextOutA(dc, x, y, bytes.data(), static_cast<int>(bytes.size()));
        return;
    }
    const int step = widths_.Of(mask_);
    const int size = std::max(step - 2, 3);
    const int top = y + (widths_.line_height() - size) / 2;
    const HBRUSH brush = CreateSolidBrush(GetTextColor(dc));
    const HGDIOBJ old_brush = SelectObject(dc, brush);
    const HGDIOBJ old_pen = SelectObject(dc, GetStockObject(NULL_PEN));
    for (std::size_t dot = 0; dot < count; ++dot) {
        const int left = x + static_cast<int>(dot) * step + (step - size) / 2;
        Ellipse(dc, left, top, left + size + 1, top + size + 1);
    }
    SelectObject(dc, old_pen);
    SelectObject(dc, old_brush);
    DeleteObject(brush);
}

void EditControl::PaintCaret(HDC dc) {
    if (!focused_ || !caret_shown_) return;
    const POINT point = PointOf(text_.caret());
    const RECT bar{point.x, point.y, point.x + 1, point.y + widths_.line_height()};
    const HBRUSH brush = CreateSolidBrush(kCaretColor);
    FillRect(dc, &bar, brush);
    DeleteObject(brush);
}

void EditControl::StartCaret() {
    caret_shown_ = true;
    SetTimer(window_, kCaretTimer, kCaretMillis, BlinkCaret);
}

void CALLBACK EditControl::BlinkCaret(HWND window, UINT, UINT_PTR id, DWORD) {
    const auto control = HostedControl<EditControl>(window);
    if (control == nullptr || !control->focused_) {
        KillTimer(window, id);
        return;
    }
    control->caret_shown_ = !control->caret_shown_;
    const POINT point = control->PointOf(control->text_.caret());
    const RECT bar{point.x, point.y, point.x + 1, point.y + control->widths_.line_height()};
    InvalidateRect(window, &bar, TRUE);
}

}  // namespace winbase
