#include "platform/win32/controls/up_down.h"

#include <commctrl.h>

#include <algorithm>
#include <cassert>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/control_host.h"

namespace winbase {

namespace {

constexpr UINT_PTR kRepeatTimer = 1;
constexpr UINT kFirstDelay = 500;
constexpr UINT kRepeatDelay = 50;

POINT PointFrom(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

LRESULT CALLBACK UpDownControl::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return HostControl<UpDownControl>(window, message, wParam, lParam);
}

LRESULT UpDownControl::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            assert((GetWindowLongA(window_, GWL_STYLE) & 0xFFFF & ~UDS_HORZ) == 0 &&
                   "an up-down has neither a buddy nor a range");
            return 0;
        case WM_PAINT: Paint(); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_ENABLE:
            if (wParam == 0) Stop();
            InvalidateRect(window_, nullptr, FALSE);
            return 0;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: Press(PointFrom(lParam)); return 0;
        case WM_LBUTTONUP:
            if (pressed_ != Part::kNone) {
                ReleaseCapture();
                TellScroll(SB_ENDSCROLL);
            }
            return 0;
        case WM_CAPTURECHANGED: Stop(); return 0;
        case WM_MOUSEMOVE: Hover(PointFrom(lParam)); return 0;
        case WM_MOUSELEAVE:
            hovered_ = Part::kNone;
            InvalidateRect(window_, nullptr, FALSE);
            return 0;
        case WM_TIMER:
            if (wParam == kRepeatTimer) Repeat();
            return 0;
        default: return DefWindowProcA(window_, message, wParam, lParam);
    }
}

bool UpDownControl::Horizontal() const {
    return (GetWindowLongA(window_, GWL_STYLE) & UDS_HORZ) != 0;
}

RECT UpDownControl::PartRect(Part part) const {
    RECT rect{};
    GetClientRect(window_, &rect);
    const bool first = (part == Part::kUp) != Horizontal();
    LONG& near_edge = Horizontal() ? rect.left : rect.top;
    LONG& far_edge = Horizontal() ? rect.right : rect.bottom;
    const LONG middle = (near_edge + far_edge) / 2;
    (first ? far_edge : near_edge) = middle;
    return rect;
}

UpDownControl::Part UpDownControl::PartAt(POINT point) const {
    for (const Part part : {Part::kUp, Part::kDown}) {
        const RECT rect = PartRect(part);
        if (PtInRect(&rect, point)) return part;
    }
    return Part::kNone;
}

void UpDownControl::Press(POINT point) {
    const Part part = PartAt(point);
    if (part == Part::kNone) return;
    // Taking a capture that the window has already tells it of a loss first.
    SetCapture(window_);
    pressed_ = part;
    pressed_since_ = GetTickCount();
    SetTimer(window_, kRepeatTimer, kFirstDelay, nullptr);
    InvalidateRect(window_, nullptr, FALSE);
    Step(1);
}

void UpDownControl::Repeat() {
    if (pressed_ == Part::kNone) return;
    SetTimer(window_, kRepeatTimer, kRepeatDelay, nullptr);
    POINT point{};
    GetCursorPos(&point);
    ScreenToClient(window_, &point);
    // Off its arrow the pointer makes no steps; the press goes on.
    if (PartAt(point) != pressed_) return;
    const DWORD held = GetTickCount() - pressed_since_;
    Step(held >= 5000 ? 20 : held >= 2000 ? 5 : 1);
}

void UpDownControl::Stop() {
    if (pressed_ == Part::kNone) return;
    pressed_ = Part::kNone;
    KillTimer(window_, kRepeatTimer);
    InvalidateRect(window_, nullptr, FALSE);
}

// Without a range of its own the control counts from 100 down to 0: its up arrow makes less.
void UpDownControl::Step(int amount) {
    NMUPDOWN notification{};
    notification.iPos = position_;
    notification.iDelta = pressed_ == Part::kUp ? -amount : amount;
    const LRESULT refused = TellParent(window_, notification.hdr, UDN_DELTAPOS);
    if (refused == 0) {
        constexpr int kLast = 100;
        position_ = std::clamp(position_ + notification.iDelta, 0, kLast);
    }
    TellScroll(SB_THUMBPOSITION);
}

void UpDownControl::TellScroll(int code) {
    if (!IsWindow(window_)) return;
    SendMessageA(GetParent(window_), Horizontal() ? WM_HSCROLL : WM_VSCROLL,
                 MAKEWPARAM(code, position_), reinterpret_cast<LPARAM>(window_));
}

void UpDownControl::Hover(POINT point) {
    const Part part = PartAt(point);
    if (part == hovered_) return;
    hovered_ = part;
    TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window_, 0};
    TrackMouseEvent(&track);
    InvalidateRect(window_, nullptr, FALSE);
}

void UpDownControl::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    if (dc == nullptr) return;
    RECT client{};
    GetClientRect(window_, &client);
    const bool enabled = IsWindowEnabled(window_) != 0;
    DrawBox(dc, client, look::kLine, enabled ? look::kPaper : look::kGround, look::kGround);
    for (const Part part : {Part::kUp, Part::kDown}) {
        RECT rect = PartRect(part);
        RECT inside = rect;
        InflateRect(&inside, -1, -1);
        if (enabled && pressed_ == part) {
            FillColor(dc, inside, look::kPressed);
        } else if (enabled && hovered_ == part) {
            FillColor(dc, inside, look::kHover);
        }
        const bool up = part == Part::kUp;
        const Direction direction = Horizontal() ? (up ? Direction::kRight : Direction::kLeft)
                                                 : (up ? Direction::kUp : Direction::kDown);
        DrawChevron(dc, rect, direction, enabled ? look::kSecondary : look::kDisabled);
    }
    EndPaint(window_, &paint);
}

}  // namespace winbase
