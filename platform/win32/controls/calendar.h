#pragma once

#include <windows.h>

namespace winbase {

/// Days of the Gregorian calendar; no window.
bool IsLeapYear(int year);
int DaysInMonth(int year, int month);  ///< month 1 to 12
/// 0 Sunday to 6 Saturday.
int WeekdayOf(int year, int month, int day);
/// A day that exists, between the years 1601 and 9999, and a time of day.
bool IsValidTime(const SYSTEMTIME& time);
/// Months further or back; the day stays within the month.
void AddMonths(SYSTEMTIME& time, int months);
void AddDays(SYSTEMTIME& time, int days);
/// -1, 0, 1 as the day of `a` lies before, on or behind that of `b`.
int CompareDays(const SYSTEMTIME& a, const SYSTEMTIME& b);

// From the calendar to its date picker: the chosen day's address in lParam; closed without choice.
inline constexpr UINT kCalendarPick = WM_USER + 0x3F2;
inline constexpr UINT kCalendarCancel = WM_USER + 0x3F3;
inline constexpr const char* kCalendarClass = "DatePickerCalendar";

/// One month as a popup: a click picks a day, the chevrons and the wheel turn the month.
class Calendar {
public:
    explicit Calendar(HWND window) : window_(window) {}
    Calendar(const Calendar&) = delete;
    Calendar& operator=(const Calendar&) = delete;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static SIZE WindowSize();

    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam);

    struct Setup {
        HWND picker = nullptr;
        SYSTEMTIME day{};
        HFONT font = nullptr;
    };

private:
    void Create(const Setup& setup);
    void Turn(int months);
    void Press(POINT point);
    RECT DayRect(int place) const;  ///< 0 to 41, six weeks from Monday
    SYSTEMTIME DayAt(int place) const;
    int PlaceAt(POINT point) const;
    void Paint();
    void PaintHead(HDC dc);
    void PaintDay(HDC dc, int place);

    HWND window_;
    HWND picker_ = nullptr;
    HFONT font_ = nullptr;
    SYSTEMTIME chosen_{};
    SYSTEMTIME shown_{};
    SYSTEMTIME today_{};
    int hovered_ = -1;
};

}  // namespace winbase
