#include "platform/win32/controls/calendar.h"

#include <algorithm>
#include <cstdio>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/control_host.h"

namespace winbase {

namespace {

constexpr int kCell = 24;
constexpr int kHead = 28;
constexpr int kWeekHead = 20;
constexpr int kMargin = 4;
constexpr int kDays = 7;
constexpr int kWeeks = 6;

POINT PointFrom(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

RECT TurnRect(int direction) {
    const LONG right = kMargin + kDays * kCell;
    return direction < 0 ? RECT{kMargin, kMargin, kMargin + kCell, kHead}
                         : RECT{right - kCell, kMargin, right, kHead};
}

}  // namespace

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysInMonth(int year, int month) {
    static constexpr int kLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return kLengths[(month - 1) % 12] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

int WeekdayOf(int year, int month, int day) {
    // Months of the following spring count as the old year's, so that a leap day comes last.
    static constexpr int kShift[] = {0, 3, 2, 5, 0, 3, 5, 1, 4, 6, 2, 4};
    if (month < 3) --year;
    return (year + year / 4 - year / 100 + year / 400 + kShift[month - 1] + day) % 7;
}

bool IsValidTime(const SYSTEMTIME& time) {
    return time.wYear >= 1601 && time.wYear <= 9999 && time.wMonth >= 1 && time.wMonth <= 12 &&
           time.wDay >= 1 && time.wDay <= DaysInMonth(time.wYear, time.wMonth) && time.wHour < 24 &&
           time.wMinute < 60 && time.wSecond < 60 && time.wMilliseconds < 1000;
}

void AddMonths(SYSTEMTIME& time, int months) {
    const int count =
        std::clamp(time.wYear * 12 + time.wMonth - 1 + months, 1601 * 12, 9999 * 12 + 11);
    time.wYear = static_cast<WORD>(count / 12);
    time.wMonth = static_cast<WORD>(count % 12 + 1);
    time.wDay = static_cast<WORD>(std::min<int>(time.wDay, DaysInMonth(time.wYear, time.wMonth)));
    time.wDayOfWeek = static_cast<WORD>(WeekdayOf(time.wYear, time.wMonth, time.wDay));
}

void AddDays(SYSTEMTIME& time, int days) {
    int day = time.wDay + days;
    while (day < 1) {
        time.wDay = 1;
        AddMonths(time, -1);
        day += DaysInMonth(time.wYear, time.wMonth);
    }
    while (day > DaysInMonth(time.wYear, time.wMonth)) {
        day -= DaysInMonth(time.wYear, time.wMonth);
        time.wDay = 1;
        AddMonths(time, 1);
    }
    time.wDay = static_cast<WORD>(day);
    time.wDayOfWeek = static_cast<WORD>(WeekdayOf(time.wYear, time.wMonth, time.wDay));
}

int CompareDays(const SYSTEMTIME& a, const SYSTEMTIME& b) {
    const int left = (a.wYear * 12 + a.wMonth) * 31 + a.wDay;
    const int right = (b.wYear * 12 + b.wMonth) * 31 + b.wDay;
    return left < right ? -1 : left > right ? 1 : 0;
}

SIZE Calendar::WindowSize() {
    return {kDays * kCell + 2 * kMargin + 2, kHead + kWeekHead + kWeeks * kCell + kMargin + 2};
}

LRESULT CALLBACK Calendar::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return HostControl<Calendar>(window, message, wParam, lParam);
}

void Calendar::Create(const Setup& setup) {
    picker_ = setup.picker;
    font_ = setup.font;
    chosen_ = shown_ = setup.day;
    GetLocalTime(&today_);
}

LRESULT Calendar::Message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE: {
            const auto& create = *reinterpret_cast<const CREATESTRUCTA*>(lParam);
            if (create.lpCreateParams == nullptr) return -1;  // a picker's alone
            Create(*static_cast<const Setup*>(create.lpCreateParams));
            return 0;
        }
        case WM_PAINT: Paint(); return 0;
        case WM_ERASEBKGND: return 1;
        case WM_MOUSEACTIVATE: return MA_NOACTIVATE;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: Press(PointFrom(lParam)); return 0;
        case WM_MOUSEMOVE: {
            const int place = PlaceAt(PointFrom(lParam));
            if (place == hovered_) return 0;
            hovered_ = place;
            InvalidateRect(window_, nullptr, FALSE);
            return 0;
        }
        case WM_MOUSEWHEEL: Turn(GET_WHEEL_DELTA_WPARAM(wParam) > 0 ? -1 : 1); return 0;
        case WM_CAPTURECHANGED: SendMessageA(picker_, kCalendarCancel, 0, 0); return 0;
        default: return DefWindowProcA(window_, message, wParam, lParam);
    }
}

void Calendar::Turn(int months) {
    AddMonths(shown_, months);
    InvalidateRect(window_, nullptr, FALSE);
}

void Calendar::Press(POINT point) {
    RECT client{};
    GetClientRect(window_, &client);
    if (!PtInRect(&client, point)) {
        SendMessageA(picker_, kCalendarCancel, 0, 0);
        return;
    }
    for (const int direction : {-1, 1}) {
        const RECT turn = TurnRect(direction);
        if (PtInRect(&turn, point)) {
            Turn(direction);
            return;
        }
    }
    const int place = PlaceAt(point);
    if (place < 0) return;
    SYSTEMTIME day = DayAt(place);
    SendMessageA(picker_, kCalendarPick, 0, reinterpret_cast<LPARAM>(&day));
}

RECT Calendar::DayRect(int place) const {
    const LONG left = kMargin + place % kDays * kCell;
    const LONG top = kHead + kWeekHead + place / kDays * kCell;
    return {left, top, left + kCell, top + kCell};
}

SYSTEMTIME Calendar::DayAt(int place) const {
    SYSTEMTIME day = shown_;
    day.wDay = 1;
    // Weeks begin on Monday.
    const int first = (WeekdayOf(day.wYear, day.wMonth, 1) + 6) % 7;
    AddDays(day, place - first);
    return day;
}

int Calendar::PlaceAt(POINT point) const {
    for (int place = 0; place < kDays * kWeeks; ++place) {
        const RECT rect = DayRect(place);
        if (PtInRect(&rect, point)) return place;
    }
    return -1;
}

void Calendar::Paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window_, &paint);
    if (dc == nullptr) return;
    RECT client{};
    GetClientRect(window_, &client);
    FillColor(dc, client, look::kPaper);
    const UseFont use(dc, font_);
    SetBkMode(dc, TRANSPARENT);
    PaintHead(dc);
    for (int place = 0; place < kDays * kWeeks; ++place) PaintDay(dc, place);
    EndPaint(window_, &paint);
}

void Calendar::PaintHead(HDC dc) {
    static const char* const kWeekdays[] = {"一", "二", "三", "四", "五", "六", "日"};
    char title[32];
    std::snprintf(title, sizeof title, "%d年%d月", shown_.wYear, shown_.wMonth);
    RECT head{kMargin, kMargin, kMargin + kDays * kCell, kHead};
    SetTextColor(dc, look::kText);
    DrawTextA(dc, title, -1, &head, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    DrawChevron(dc, TurnRect(-1), Direction::kLeft, look::kSecondary);
    DrawChevron(dc, TurnRect(1), Direction::kRight, look::kSecondary);
    SetTextColor(dc, look::kSecondary);
    for (int day = 0; day < kDays; ++day) {
        RECT cell{kMargin + day * kCell, kHead, kMargin + (day + 1) * kCell, kHead + kWeekHead};
        DrawTextA(dc, kWeekdays[day], -1, &cell, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    }
}

void Calendar::PaintDay(HDC dc, int place) {
    const SYSTEMTIME day = DayAt(place);
    RECT cell = DayRect(place);
    const bool chosen = CompareDays(day, chosen_) == 0;
    if (chosen) {
        FillColor(dc, cell, look::kAccent);
    } else if (place == hovered_) {
        FillColor(dc, cell, look::kHover);
    }
    if (CompareDays(day, today_) == 0 && !chosen) DrawFocusRing(dc, cell);
    const bool other_month = day.wMonth != shown_.wMonth;
    SetTextColor(dc, chosen ? look::kPaper : other_month ? look::kDisabled : look::kText);
    char text[8];
    std::snprintf(text, sizeof text, "%d", day.wDay);
    DrawTextA(dc, text, -1, &cell, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
}

}  // namespace winbase
