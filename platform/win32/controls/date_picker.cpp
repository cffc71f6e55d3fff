#include "platform/win32/controls/date_picker.h"

#include <commctrl.h>

#include <algorithm>
#include <cassert>
#include <cstdio>
#include <cstdlib>

#include "platform/win32/controls/calendar.h"
#include "platform/win32/controls/control.h"
#include "platform/win32/controls/control_host.h"

namespace winbase {

namespace {

constexpr int kArrowWidth = 20;
constexpr int kTextInset = 4;

POINT PointFrom(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace

LRESULT CALLBACK DatePickerControl::Procedure(HWND window, UINT message, WPARAM wParam,
                                              LPARAM lParam) {
    return HostControl<DatePickerControl>(window, message, wParam, lParam);
}

LRESULT DatePickerControl::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case DTM_GETSYSTEMTIME: return GetTime(reinterpret_cast<SYSTEMTIME*>(lParam));
        case DTM_SETSYSTEMTIME: return SetTime(wParam, reinterpret_cast<const SYSTEMTIME*>(lParam));
        case DTM_SETRANGE: return SetRange(wParam, reinterpret_cast<const SYSTEMTIME*>(lParam));
        case WM_CREATE:
            assert((GetWindowLongA(window_, GWL_STYLE) & 0xFFFF & ~DTS_SHOWNONE) == 0 &&
                   "a date picker shows days in one format");
            return 0;
        case WM_PAINT: Paint(); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_SETFONT:
            font_ = reinterpret_cast<HFONT>(wParam);
            InvalidateRect(window_, nullptr, TRUE);
            return 0;
        case WM_GETFONT: return reinterpret_cast<LRESULT>(font_);
        case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_SIZE:
        case WM_ENABLE: InvalidateRect(window_, nullptr, TRUE); return 0;
        case WM_DESTROY: Close(); return 0;
        case kCalendarPick: {
            const SYSTEMTIME day = *reinterpret_cast<const SYSTEMTIME*>(lParam);
            const HWND window = window_;
            Close();
            if (!IsWindow(window)) return 0;
            SYSTEMTIME chosen = time_;
            chosen.wYear = day.wYear;
            chosen.wMonth = day.wMonth;
            chosen.wDay = day.wDay;
            Change(chosen);
            return 0;
        }
        case kCalendarCancel: Close(); return 0;
        default: return InputMessage(message, wParam, lParam);
    }
}

LRESULT DatePickerControl::InputMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: Press(PointFrom(lParam)); return 0;
        case WM_MOUSEWHEEL: Step(GET_WHEEL_DELTA_WPARAM(wParam) > 0 ? 1 : -1); return 0;
        case WM_KEYDOWN: Key(wParam); return 0;
        case WM_SYSKEYDOWN:
            if (wParam == VK_DOWN || wParam == VK_UP) {
                calendar_ != nullptr ? Close() : Open();
                return 0;
            }
            break;
        case WM_CHAR:
            if (wParam >= '0' && wParam <= '9') Digit(static_cast<int>(wParam - '0'));
            return 0;
        case WM_SETFOCUS: {
            focused_ = true;
            InvalidateRect(window_, nullptr, TRUE);
            Tell(NM_SETFOCUS);
            return 0;
        }
        case WM_KILLFOCUS: {
            const HWND window = window_;
            focused_ = false;
            FinishTyping();
            if (!IsWindow(window)) return 0;
            Close();
            InvalidateRect(window_, nullptr, TRUE);
            Tell(NM_KILLFOCUS);
            return 0;
        }
        default: break;
    }
    return DefWindowProcA(window_, message, wParam, lParam);
}

bool DatePickerControl::MayBeNone() const {
    return (GetWindowLongA(window_, GWL_STYLE) & DTS_SHOWNONE) != 0;
}

bool DatePickerControl::InRange(const SYSTEMTIME& time) const {
    if ((limits_ & GDTR_MIN) != 0 && CompareDays(time, minimum_) < 0) return false;
    return (limits_ & GDTR_MAX) == 0 || CompareDays(time, maximum_) <= 0;
}

LRESULT DatePickerControl::SetTime(WPARAM kind, const SYSTEMTIME* time) {
    if (kind == GDT_NONE) {
        if (!MayBeNone()) return FALSE;
        none_ = true;
    } else {
        if (kind != GDT_VALID || time == nullptr || !IsValidTime(*time) || !InRange(*time))
            return FALSE;
        time_ = *time;
        time_.wDayOfWeek = static_cast<WORD>(WeekdayOf(time_.wYear, time_.wMonth, time_.wDay));
        none_ = false;
    }
    typed_.clear();
    InvalidateRect(window_, nullptr, TRUE);
    return TRUE;
}

LRESULT DatePickerControl::GetTime(SYSTEMTIME* time) const {
    if (time == nullptr) return GDT_ERROR;
    *time = none_ ? SYSTEMTIME{} : time_;
    return none_ ? GDT_NONE : GDT_VALID;
}

LRESULT DatePickerControl::SetRange(WPARAM limits, const SYSTEMTIME* range) {
    if (limits != 0 && range == nullptr) return FALSE;
    if ((limits & GDTR_MIN) != 0 && !IsValidTime(range[0])) return FALSE;
    if ((limits & GDTR_MAX) != 0 && !IsValidTime(range[1])) return FALSE;
    limits_ = limits;
    if ((limits & GDTR_MIN) != 0) minimum_ = range[0];
    if ((limits & GDTR_MAX) != 0) maximum_ = range[1];
    return TRUE;
}

void DatePickerControl::Key(WPARAM key) {
    const auto field = static_cast<int>(field_);
    switch (key) {
        case VK_LEFT:
        case VK_RIGHT: {
            const HWND window = window_;
            FinishTyping();
            if (!IsWindow(window)) return;
            field_ = static_cast<Field>((field + (key == VK_RIGHT ? 1 : 2)) % 3);
            InvalidateRect(window_, nullptr, TRUE);
            return;
        }
        case VK_UP: Step(1); return;
        case VK_DOWN: Step(-1); return;
        case VK_F4: calendar_ != nullptr ? Close() : Open(); return;
        case VK_ESCAPE: Close(); return;
        default: return;
    }
}

void DatePickerControl::Digit(int digit) {
    typed_.push_back(static_cast<char>('0' + digit));
    const std::size_t full = field_ == Field::kYear ? 4 : 2;
    if (typed_.size() >= full) {
        FinishTyping();
    } else {
        InvalidateRect(window_, nullptr, TRUE);
    }
}

void DatePickerControl::FinishTyping() {
    if (typed_.empty()) return;
    const int value = std::atoi(typed_.c_str());
    typed_.clear();
    SYSTEMTIME time = time_;
    switch (field_) {
        case Field::kYear:
            time.wYear = static_cast<WORD>(value < 100 ? 2000 + value : value);
            break;
        case Field::kMonth: time.wMonth = static_cast<WORD>(value); break;
        case Field::kDay: time.wDay = static_cast<WORD>(value); break;
    }
    if (time.wYear >= 1601 && time.wMonth >= 1 && time.wMonth <= 12 && field_ != Field::kDay) {
        time.wDay =
            static_cast<WORD>(std::min<int>(time.wDay, DaysInMonth(time.wYear, time.wMonth)));
    }
    InvalidateRect(window_, nullptr, TRUE);
    if (IsValidTime(time)) Change(time);
}

void DatePickerControl::Step(int amount) {
    SYSTEMTIME time = time_;
    typed_.clear();
    switch (field_) {
        case Field::kYear: AddMonths(time, amount * 12); break;
        case Field::kMonth: AddMonths(time, amount); break;
        case Field::kDay: AddDays(time, amount); break;
    }
    Change(time);
}

void DatePickerControl::Change(const SYSTEMTIME& time) {
    if (!InRange(time) || (CompareDays(time, time_) == 0 && !none_)) return;
    time_ = time;
    time_.wDayOfWeek = static_cast<WORD>(WeekdayOf(time.wYear, time.wMonth, time.wDay));
    none_ = false;
    InvalidateRect(window_, nullptr, TRUE);
    NMDATETIMECHANGE change{};
    change.nmhdr.hwndFrom = window_;
    change.nmhdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(window_));
    change.nmhdr.code = DTN_DATETIMECHANGE;
    change.dwFlags = GDT_VALID;
    change.st = time_;
    SendMessageA(GetParent(window_), WM_NOTIFY, change.nmhdr.idFrom,
                 reinterpret_cast<LPARAM>(&change));
}

void DatePickerControl::Tell(UINT code) {
    NMHDR header{};
    TellParent(window_, header, code);
}

void DatePickerControl::Open() {
    const HWND window = window_;
    FinishTyping();
    if (!IsWindow(window) || calendar_ != nullptr) return;
    RECT field{};
    GetWindowRect(window_, &field);
    const SIZE size = Calendar::WindowSize();
    LONG top = field.bottom + 1;
    if (top + size.cy > GetSystemMetrics(SM_CYSCREEN))
        top = std::max<LONG>(field.top - size.cy - 1, 0);
    Calendar::Setup setup{window_, time_, font_};
    calendar_ = CreateWindowExA(WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE, kCalendarClass,
                                "", WS_POPUP | WS_BORDER, field.left, top, size.cx, size.cy,
                                window_, nullptr, nullptr, &setup);
    if (calendar_ == nullptr) return;
    ShowWindow(calendar_, SW_SHOWNA);
    SetCapture(calendar_);
    InvalidateRect(window_, nullptr, TRUE);
    Tell(DTN_DROPDOWN);
}

void DatePickerControl::Close() {
    if (calendar_ == nullptr) return;
    const HWND window = window_;
    const HWND calendar = calendar_;
    calendar_ = nullptr;
    ShowWindow(calendar, SW_HIDE);
    if (GetCapture() == calendar) ReleaseCapture();
    DestroyWindow(calendar);
    InvalidateRect(window, nullptr, TRUE);
    Tell(DTN_CLOSEUP);
}

void DatePickerControl::Press(POINT point) {
    const HWND window = window_;
    if (GetFocus() != window_) SetFocus(window_);
    if (!IsWindow(window)) return;
    const RECT arrow = ArrowRect();
    if (PtInRect(&arrow, point)) {
        Open();
        return;
    }
    FinishTyping();
    if (!IsWindow(window)) return;
    for (const Field field : {Field::kYear, Field::kMonth, Field::kDay}) {
        const RECT rect = FieldRect(field);
        if (PtInRect(&rect, point)) field_ = field;
    }
    InvalidateRect(window_, nullptr, TRUE);
}

RECT DatePickerControl::ArrowRect() const {
    RECT client{};
    GetClientRect(window_, &client);
    client.left = std::max<LONG>(client.right - kArrowWidth, client.left);
    return client;
}

std::string DatePickerControl::FieldText(Field field) const {
    if (field == field_ && !typed_.empty()) return typed_;
    char text[16];
    switch (field) {
        case Field::kYear: std::snprintf(text, sizeof text, "%04d", time_.wYear); break;
        case Field::kMonth: std::snprintf(text, sizeof text, "%02d", time_.wMonth); break;
        case Field::kDay: std::snprintf(text, sizeof text, "%02d", time_.wDay); break;
    }
    return text;
}

// Fields are as wide as their digits, whatever is typed at the moment.
RECT DatePickerControl::FieldRect(Field field) const {
    const HDC dc = CreateCompatibleDC(nullptr);
    SIZE digit{};
    SIZE dash{};
    {
        const UseFont use(dc, font_);
        GetTextExtentPoint32A(dc, "0", 1, &digit);
        GetTextExtentPoint32A(dc, "-", 1, &dash);
    }
    DeleteDC(dc);
    RECT rect{};
    GetClientRect(window_, &rect);
    const int before = field == Field::kYear ? 0 : field == Field::kMonth ? 4 : 6;
    const int digits = field == Field::kYear ? 4 : 2;
    rect.left = kTextInset + before * digit.cx + static_cast<int>(field) * dash.cx;
    rect.right = rect.left + digits * digit.cx;
    return rect;
}

void DatePickerControl::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    if (dc == nullptr) return;
    RECT client{};
    GetClientRect(window_, &client);
    const bool enabled = IsWindowEnabled(window_) != 0;
    const bool active = enabled && (focused_ || calendar_ != nullptr);
    DrawBox(dc, client, active ? look::kAccent : look::kLine,
            enabled ? look::kPaper : look::kGround, look::kGround);
    DrawChevron(dc, ArrowRect(), calendar_ != nullptr ? Direction::kUp : Direction::kDown,
                enabled ? look::kSecondary : look::kDisabled);
    const UseFont use(dc, font_);
    SetBkMode(dc, TRANSPARENT);
    for (const Field field : {Field::kYear, Field::kMonth, Field::kDay}) {
        if (none_) break;
        RECT rect = FieldRect(field);
        const bool marked = focused_ && field == field_;
        if (marked) {
            const int rest = (rect.bottom - rect.top - LineHeight(font_)) / 2;
            const RECT ground{rect.left, rect.top + rest, rect.right, rect.bottom - rest};
            FillColor(dc, ground, look::kAccent);
        }
        SetTextColor(dc, !enabled ? look::kDisabled : marked ? look::kPaper : look::kText);
        const std::string text = FieldText(field);
        DrawTextA(dc, text.c_str(), -1, &rect, DT_SINGLELINE | DT_RIGHT | DT_VCENTER | DT_NOCLIP);
        if (field == Field::kDay) break;
        RECT dash{rect.right, rect.top,
                  FieldRect(static_cast<Field>(static_cast<int>(field) + 1)).left, rect.bottom};
        SetTextColor(dc, enabled ? look::kText : look::kDisabled);
        DrawTextA(dc, "-", 1, &dash, DT_SINGLELINE | DT_CENTER | DT_VCENTER | DT_NOCLIP);
    }
    EndPaint(window_, &paint);
}

}  // namespace winbase
