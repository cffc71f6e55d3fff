#include <gtest/gtest.h>

#include "tests/platform/win32/controls/control_frame.h"
// The controls' header needs the types of the one above.
#include <commctrl.h>

#include "platform/testing/input.h"

namespace tests {
namespace {

using platform::testing::Key;
using platform::testing::Type;

SYSTEMTIME Day(int year, int month, int day) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    return time;
}

class DatePickers : public ControlFrame {
protected:
    void Use(DWORD style = DTS_SHORTDATEFORMAT) {
        Make(DATETIMEPICK_CLASS, style, 120, 24);
        Take();
    }
    LRESULT Set(const SYSTEMTIME& time) {
        return Send(DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&time));
    }
    SYSTEMTIME Get() {
        SYSTEMTIME time{};
        EXPECT_EQ(GDT_VALID, Send(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)));
        return time;
    }
    std::string State() override {
        const SYSTEMTIME time = Get();
        return std::to_string(time.wYear) + "-" + std::to_string(time.wMonth) + "-" +
               std::to_string(time.wDay) + "/" + std::to_string(time.wDayOfWeek);
    }
};

TEST_F(DatePickers, HoldTodayAtFirst) {
    SYSTEMTIME before{};
    SYSTEMTIME after{};
    GetLocalTime(&before);
    Use();
    const SYSTEMTIME held = Get();
    GetLocalTime(&after);
    const bool today = held.wDay == before.wDay && held.wMonth == before.wMonth;
    EXPECT_TRUE(today || held.wDay == after.wDay);
    EXPECT_GE(held.wYear, before.wYear);
}

TEST_F(DatePickers, TakeDaysThatExist) {
    Use();
    SYSTEMTIME leap = Day(2024, 2, 29);
    leap.wHour = 10;
    leap.wDayOfWeek = 1;
    Run({
        {"a leap day", [&] { EXPECT_TRUE(Set(leap)); }, "", "2024-2-29/4"},
        {"no such day", [&] { EXPECT_FALSE(Set(Day(2023, 2, 29))); }, "", "2024-2-29/4"},
        {"no such month", [&] { EXPECT_FALSE(Set(Day(2024, 13, 1))); }, "", "2024-2-29/4"},
        {"no day", [&] { EXPECT_FALSE(Send(DTM_SETSYSTEMTIME, GDT_NONE)); }, "", "2024-2-29/4"},
    });
    EXPECT_EQ(10, Get().wHour);
    Use(DTS_SHOWNONE);
    EXPECT_TRUE(Send(DTM_SETSYSTEMTIME, GDT_NONE));
    SYSTEMTIME time{};
    EXPECT_EQ(GDT_NONE, Send(DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)));
}

// Which field comes first depends on the system's format; each of the three is reached.
TEST_F(DatePickers, KeysChangeOneFieldAfterTheOther) {
    Use();
    Set(Day(2024, 5, 31));
    SetFocus(ctl_);
    EXPECT_EQ("NM_SETFOCUS", Take());
    for (int field = 0; field < 3; ++field) {
        Key(VK_UP);
        Key(VK_RIGHT);
    }
    const SYSTEMTIME all = Get();
    EXPECT_EQ(2025, all.wYear);
    EXPECT_TRUE(all.wMonth == 6 || all.wMonth == 7);
    EXPECT_EQ(0u, Take().find("DTN_DATETIMECHANGE("));
}

TEST_F(DatePickers, DigitsCountWhenTheFieldIsLeft) {
    Use();
    Set(Day(2024, 5, 31));
    SetFocus(ctl_);
    Run({
        {"year", [&] { Type("2023"); }, "DTN_DATETIMECHANGE(2023-5-31)", "2023-5-31/3"},
        {"one digit of the month",
         [&] {
             Key(VK_RIGHT);
             Type("6");
         },
         "", "2023-5-31/3"},
        {"on to the day", [&] { Key(VK_RIGHT); }, "DTN_DATETIMECHANGE(2023-6-30)", "2023-6-30/5"},
        {"no such day", [&] { Type("45"); }, "", "2023-6-30/5"},
        {"away with a digit typed",
         [&] {
             Type("9");
             FocusElsewhere();
         },
         "DTN_DATETIMECHANGE(2023-6-9) NM_KILLFOCUS", "2023-6-9/5"},
    });
}

TEST_F(DatePickers, KeepToTheirRange) {
    Use();
    Set(Day(2024, 5, 1));
    const SYSTEMTIME range[2] = {Day(2024, 1, 1), Day(2024, 12, 31)};
    EXPECT_TRUE(Send(DTM_SETRANGE, GDTR_MIN | GDTR_MAX, reinterpret_cast<LPARAM>(range)));
    Set(Day(2025, 3, 1));
    EXPECT_EQ("2024-5-1/3", State());
    SetFocus(ctl_);
    Take();
    Key(VK_UP);
    EXPECT_EQ("2024-5-1/3", State());
    EXPECT_EQ("", Take());
}

// September 2026 begins on a Tuesday: the 8th is the second day of the second week.
TEST_F(DatePickers, TheCalendarPicksADay) {
    Use();
    Set(Day(2026, 9, 1));
    Run({
        {"open", [&] { ClickOnce(112, 12); }, "NM_SETFOCUS DTN_DROPDOWN", "2026-9-1/2"},
        {"elsewhere", [&] { platform::testing::Click(frame_, 400, 300); }, "DTN_CLOSEUP",
         "2026-9-1/2"},
        {"by key and back",
         [&] {
             Key(VK_F4);
             Key(VK_F4);
         },
         "DTN_DROPDOWN DTN_CLOSEUP", "2026-9-1/2"},
        {"pick",
         [&] {
             Key(VK_F4);
             // Beneath the field: frame, head, names of the days, one week.
             platform::testing::Click(ctl_, 2 + 4 + 24 + 12, 24 + 2 + 28 + 20 + 24 + 12);
         },
         "DTN_DROPDOWN DTN_CLOSEUP DTN_DATETIMECHANGE(2026-9-8)", "2026-9-8/2"},
    });
    DestroyWindow(ctl_);
    Use();
    SetFocus(ctl_);
    Key(VK_F4);
    DestroyWindow(ctl_);
    EXPECT_EQ(nullptr, GetCapture());
}

}  // namespace
}  // namespace tests
