#include <string>

#include "platform/win32/controls/button.h"
#include "platform/win32/controls/control.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

// Push buttons lie a shade below the ground, so that the pointer can lift them.
constexpr COLORREF kPushFill = RGB(0xE9, 0xEE, 0xF3);
constexpr COLORREF kPushHover = RGB(0xF9, 0xFB, 0xFD);
constexpr COLORREF kPushPressed = RGB(0xCF, 0xDA, 0xE5);
constexpr COLORREF kPushBorder = RGB(0xB3, 0xC1, 0xCE);
constexpr COLORREF kAccentHover = RGB(0x39, 0x75, 0xBC);
constexpr COLORREF kAccentPressed = RGB(0x25, 0x58, 0x91);

constexpr int kMark = 13;     // side of check boxes and radio buttons
constexpr int kMarkGap = 5;   // between mark and text
constexpr int kCaptionX = 9;  // where a group box's caption starts

struct PushColors {
    COLORREF border;
    COLORREF fill;
    COLORREF text;
    COLORREF ring;
};

enum class PushState { kRest, kHover, kPressed, kDisabled };

PushColors ColorsOf(PushState state, bool is_default) {
    if (state == PushState::kDisabled) {
        return {look::kLine, look::kGround, look::kDisabled, look::kLine};
    }
    if (is_default) {
        const COLORREF fill = state == PushState::kPressed ? kAccentPressed
                              : state == PushState::kHover ? kAccentHover
                                                           : look::kAccent;
        return {fill, fill, look::kPaper, look::kPaper};
    }
    const COLORREF fill = state == PushState::kPressed ? kPushPressed
                          : state == PushState::kHover ? kPushHover
                                                       : kPushFill;
    return {kPushBorder, fill, look::kText, look::kAccent};
}

std::string TextOf(HWND window) {
    const Window* const found = LookUp(window);
    return found != nullptr ? found->text : std::string();
}

void Frame(HDC dc, const RECT& box, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    FrameRect(dc, &box, brush);
    DeleteObject(brush);
}

/// Keeps the four corner pixels of a box, whatever the parent put there.
class KeepCorners {
public:
    KeepCorners(HDC dc, const RECT& box) : dc_(dc), box_(box) {
        for (int i = 0; i < 4; ++i) colors_[i] = GetPixel(dc_, X(i), Y(i));
    }
    ~KeepCorners() {
        for (int i = 0; i < 4; ++i) {
            if (colors_[i] != CLR_INVALID) SetPixel(dc_, X(i), Y(i), colors_[i]);
        }
    }
    KeepCorners(const KeepCorners&) = delete;
    KeepCorners& operator=(const KeepCorners&) = delete;

private:
    int X(int corner) const { return (corner & 1) == 0 ? box_.left : box_.right - 1; }
    int Y(int corner) const { return (corner & 2) == 0 ? box_.top : box_.bottom - 1; }

    HDC dc_;
    RECT box_;
    COLORREF colors_[4];
};

void DrawTick(HDC dc, const RECT& box, COLORREF color) {
    constexpr POINT kDots[] = {{3, 6}, {4, 7}, {5, 8}, {6, 7}, {7, 6}, {8, 5}, {9, 4}};
    for (const POINT& dot : kDots) {
        const LONG x = box.left + dot.x;
        const LONG y = box.top + dot.y - 1;
        FillColor(dc, {x, y, x + 1, y + 3}, color);
    }
}

void DrawCheckBox(HDC dc, const RECT& box, UINT check, bool enabled, bool active) {
    const bool marked = check != BST_UNCHECKED;
    const COLORREF mark = enabled ? look::kPaper : look::kDisabled;
    COLORREF fill = enabled ? look::kPaper : look::kGround;
    COLORREF border = enabled ? look::kSecondary : look::kLine;
    if (enabled && active) border = look::kAccent;
    if (enabled && marked) fill = border = look::kAccent;
    {
        const KeepCorners keep(dc, box);
        DrawBox(dc, box, border, fill, border);
    }
    if (check == BST_CHECKED) DrawTick(dc, box, mark);
    if (check == BST_INDETERMINATE) {
        FillColor(dc, {box.left + 3, box.top + 6, box.right - 3, box.top + 8}, mark);
    }
}

void DrawRadio(HDC dc, const RECT& box, UINT check, bool enabled, bool active) {
    const bool marked = check != BST_UNCHECKED;
    COLORREF border = enabled ? look::kSecondary : look::kLine;
    if (enabled && (active || marked)) border = look::kAccent;
    const HBRUSH brush = CreateSolidBrush(enabled ? look::kPaper : look::kGround);
    const HPEN pen = CreatePen(PS_SOLID, 1, border);
    const HGDIOBJ old_brush = SelectObject(dc, brush);
    const HGDIOBJ old_pen = SelectObject(dc, pen);
    Ellipse(dc, box.left, box.top, box.right, box.bottom);
    SelectObject(dc, old_pen);
    SelectObject(dc, old_brush);
    DeleteObject(pen);
    DeleteObject(brush);
    if (!marked) return;
    const COLORREF dot = enabled ? look::kAccent : look::kDisabled;
    FillColor(dc, {box.left + 4, box.top + 5, box.right - 4, box.bottom - 5}, dot);
    FillColor(dc, {box.left + 5, box.top + 4, box.right - 5, box.bottom - 4}, dot);
}

UINT AlignmentOf(DWORD style, UINT usual) {
    switch (style & BS_CENTER) {
        case BS_LEFT: return DT_LEFT;
        case BS_RIGHT: return DT_RIGHT;
        case BS_CENTER: return DT_CENTER;
        default: return usual;
    }
}

/// Text of one line, or of several with BS_MULTILINE, in the vertical middle of `area`. Answers
/// what it takes.
RECT DrawCaption(HDC dc, const std::string& text, const RECT& area, DWORD style, UINT alignment) {
    const int length = static_cast<int>(text.size());
    const UINT lines = (style & BS_MULTILINE) != 0 ? DT_WORDBREAK : DT_SINGLELINE;
    RECT used = area;
    DrawTextA(dc, text.c_str(), length, &used, lines | DT_CALCRECT);
    const LONG width = used.right - used.left;
    const LONG height = used.bottom - used.top;
    RECT place = area;
    place.top = area.top + (area.bottom - area.top - height) / 2;
    place.bottom = place.top + height;
    DrawTextA(dc, text.c_str(), length, &place, lines | alignment);
    if (alignment == DT_RIGHT) place.left = place.right - width;
    if (alignment == DT_CENTER) place.left += (place.right - place.left - width) / 2;
    place.right = place.left + width;
    return place;
}

}  // namespace

bool ButtonControl::Erase(HDC dc) {
    if (Type() == BS_OWNERDRAW) {
        RECT client{};
        GetClientRect(window_, &client);
        FillRect(dc, &client, AskColors(window_, dc, WM_CTLCOLORBTN));
    }
    return true;  // the others paint their ground with themselves
}

void ButtonControl::PaintUpdate() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    if (dc == nullptr) return;
    Paint(dc, ODA_DRAWENTIRE);
    EndPaint(window_, &paint);
}

void ButtonControl::PaintNow(UINT action) {
    if (!IsWindowVisible(window_)) return;
    const HDC dc = GetDC(window_);
    if (dc == nullptr) return;
    Paint(dc, action);
    ReleaseDC(window_, dc);
}

void ButtonControl::Paint(HDC dc, UINT action) {
    const UseFont font(dc, font_);
    if (Type() == BS_OWNERDRAW) return AskOwner(dc, action);
    RECT client{};
    GetClientRect(window_, &client);
    const HBRUSH ground = AskColors(window_, dc, ColorMessage());
    if (Type() == BS_GROUPBOX) return PaintGroup(dc, client, ground);
    FillRect(dc, &client, ground);
    if (IsPush()) {
        PaintPush(dc, client);
    } else {
        PaintCheck(dc, client);
    }
}

void ButtonControl::AskOwner(HDC dc, UINT action) {
    AskColors(window_, dc, WM_CTLCOLORBTN);
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
    item.itemAction = action;
    item.itemState = (pushed_ ? ODS_SELECTED : 0u) | (focused_ ? ODS_FOCUS : 0u) |
                     (IsWindowEnabled(window_) ? 0u : ODS_DISABLED);
    item.hwndItem = window_;
    item.hDC = dc;
    GetClientRect(window_, &item.rcItem);
    const int saved = SaveDC(dc);
    SendMessageA(GetParent(window_), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    RestoreDC(dc, saved);
}

void ButtonControl::PaintPush(HDC dc, const RECT& client) {
    const bool held = pushed_ || (HasStyle(BS_PUSHLIKE) && check_ != BST_UNCHECKED);
    const PushState state = !IsWindowEnabled(window_) ? PushState::kDisabled
                            : held                    ? PushState::kPressed
                            : hovered_                ? PushState::kHover
                                                      : PushState::kRest;
    const PushColors colors = ColorsOf(state, Type() == BS_DEFPUSHBUTTON);
    {
        const KeepCorners keep(dc, client);
        DrawBox(dc, client, colors.border, colors.fill, colors.border);
    }
    if (focused_) {
        RECT ring = client;
        InflateRect(&ring, -2, -2);
        Frame(dc, ring, colors.ring);
    }
    RECT area = client;
    InflateRect(&area, -4, -2);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, colors.text);
    DrawCaption(dc, TextOf(window_), area, Style(), AlignmentOf(Style(), DT_CENTER));
}

void ButtonControl::PaintCheck(HDC dc, const RECT& client) {
    const bool enabled = IsWindowEnabled(window_) != FALSE;
    const bool mark_right = HasStyle(BS_LEFTTEXT);
    RECT box = client;
    box.top += (client.bottom - client.top - kMark) / 2;
    box.bottom = box.top + kMark;
    RECT area = client;
    if (mark_right) {
        box.left = box.right - kMark;
        area.right = box.left - kMarkGap;
    } else {
        box.right = box.left + kMark;
        area.left = box.right + kMarkGap;
    }
    const bool active = hovered_ || pushed_ || focused_;
    if (IsRadio()) {
        DrawRadio(dc, box, check_, enabled, active);
    } else {
        DrawCheckBox(dc, box, check_, enabled, active);
    }
    const std::string text = TextOf(window_);
    if (text.empty()) return;
    SetBkMode(dc, TRANSPARENT);
    if (!enabled) SetTextColor(dc, look::kDisabled);
    RECT used = DrawCaption(dc, text, area, Style(), AlignmentOf(Style(), DT_LEFT));
    if (!focused_) return;
    InflateRect(&used, 2, 1);
    IntersectRect(&used, &used, &client);
    DrawFocusRing(dc, used);
}

void ButtonControl::PaintGroup(HDC dc, const RECT& client, HBRUSH ground) {
    const std::string text = TextOf(window_);
    const int length = static_cast<int>(text.size());
    RECT caption{client.left + kCaptionX, client.top, client.right - kCaptionX, client.bottom};
    RECT used = caption;
    DrawTextA(dc, text.empty() ? " " : text.c_str(), text.empty() ? 1 : length, &used,
              DT_SINGLELINE | DT_CALCRECT);
    caption.bottom = used.bottom;
    // The strip of the caption only: the inside belongs to the parent and to other controls.
    const RECT strip{client.left, client.top, client.right, caption.bottom};
    FillRect(dc, &strip, ground);
    Frame(dc, {client.left, (strip.top + strip.bottom) / 2, client.right, client.bottom},
          look::kLine);
    if (text.empty()) return;
    caption.right = used.right < caption.right ? used.right : caption.right;
    const RECT gap{caption.left - 4, caption.top, caption.right + 4, caption.bottom};
    FillRect(dc, &gap, ground);
    SetBkMode(dc, TRANSPARENT);
    if (!IsWindowEnabled(window_)) SetTextColor(dc, look::kDisabled);
    DrawTextA(dc, text.c_str(), length, &caption, DT_SINGLELINE);
}

}  // namespace winbase
