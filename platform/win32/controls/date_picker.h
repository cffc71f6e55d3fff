#pragma once

#include <windows.h>

#include <string>

namespace winbase {

/// A day in fields that the arrows and digits change, with a calendar to drop down. Holds the local
/// day at first.
class DatePickerControl {
public:
    explicit DatePickerControl(HWND window) : window_(window) { GetLocalTime(&time_); }
    DatePickerControl(const DatePickerControl&) = delete;
    DatePickerControl& operator=(const DatePickerControl&) = delete;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam);

private:
    enum class Field { kYear, kMonth, kDay };

    LRESULT InputMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT SetTime(WPARAM kind, const SYSTEMTIME* time);
    LRESULT GetTime(SYSTEMTIME* time) const;
    LRESULT SetRange(WPARAM limits, const SYSTEMTIME* range);
    bool MayBeNone() const;
    bool InRange(const SYSTEMTIME& time) const;

    void Key(WPARAM key);
    void Digit(int digit);
    /// What was typed so far becomes the field's value, if such a day exists.
    void FinishTyping();
    void Step(int amount);
    void Change(const SYSTEMTIME& time);
    void Tell(UINT code);

    void Open();
    void Close();
    void Press(POINT point);

    RECT ArrowRect() const;
    RECT FieldRect(Field field) const;
    std::string FieldText(Field field) const;
    void Paint();

    HWND window_;
    HWND calendar_ = nullptr;
    HFONT font_ = nullptr;
    SYSTEMTIME time_{};
    SYSTEMTIME minimum_{};
    SYSTEMTIME maximum_{};
    WPARAM limits_ = 0;
    bool none_ = false;
    bool focused_ = false;
    Field field_ = Field::kYear;
    std::string typed_;
};

}  // namespace winbase
