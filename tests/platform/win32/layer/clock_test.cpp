#include <gtest/gtest.h>
#include <winbase_hooks.h>
#include <windows.h>

#include <cstdio>
#include <string>

namespace {

std::string LocalTime() {
    SYSTEMTIME t = {};
    GetLocalTime(&t);
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d (%d) %02d:%02d:%02d.%03d", t.wYear, t.wMonth,
                  t.wDay, t.wDayOfWeek, t.wHour, t.wMinute, t.wSecond, t.wMilliseconds);
    return text;
}

TEST(ManualClock, MovesOnlyByHand) {
    winbase::hooks::UseManualClock(5000, {2024, 2, 0, 29, 23, 59, 59, 990});
    EXPECT_TRUE(winbase::hooks::IsClockManual());
    EXPECT_EQ(GetTickCount(), 5000u);
    EXPECT_EQ(LocalTime(), "2024-02-29 (4) 23:59:59.990");
    winbase::hooks::AdvanceClock(10);
    EXPECT_EQ(GetTickCount(), 5010u);
    EXPECT_EQ(LocalTime(), "2024-03-01 (5) 00:00:00.000");
}

TEST(ManualClock, TicksWrapAt32Bits) {
    winbase::hooks::UseManualClock(0xFFFFFFF0, {2024, 1, 0, 2, 3, 4, 5, 6});
    const DWORD before = GetTickCount();
    winbase::hooks::AdvanceClock(0x20);
    EXPECT_EQ(GetTickCount(), 0x10u);
    EXPECT_EQ(GetTickCount() - before, 0x20u);
}

}  // namespace
