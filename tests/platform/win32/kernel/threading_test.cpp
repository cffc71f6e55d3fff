#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

namespace {

bool OtherThreadCanEnter(CRITICAL_SECTION& section) {
    bool entered = false;
    std::thread([&] {
        entered = TryEnterCriticalSection(&section) != FALSE;
        if (entered) LeaveCriticalSection(&section);
    }).join();
    return entered;
}

TEST(CriticalSections, AreFreeAfterAsManyLeavesAsEntries) {
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    EnterCriticalSection(&section);
    EnterCriticalSection(&section);
    EXPECT_TRUE(TryEnterCriticalSection(&section));
    for (int left = 0; left < 3; ++left) {
        EXPECT_FALSE(OtherThreadCanEnter(section)) << left;
        LeaveCriticalSection(&section);
    }
    EXPECT_TRUE(OtherThreadCanEnter(section));
    DeleteCriticalSection(&section);
}

TEST(CriticalSections, KeepThreadsApart) {
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    int count = 0;
    const auto work = [&] {
        for (int i = 0; i < 10'000; ++i) {
            EnterCriticalSection(&section);
            ++count;
            LeaveCriticalSection(&section);
        }
    };
    std::thread first(work);
    std::thread second(work);
    first.join();
    second.join();
    EXPECT_EQ(count, 20'000);
    DeleteCriticalSection(&section);
}

TEST(LastError, BelongsToTheThread) {
    SetLastError(1234);
    std::thread([] {
        EXPECT_EQ(GetLastError(), 0u);
        SetLastError(4321);
    }).join();
    EXPECT_EQ(GetLastError(), 1234u);
}

TEST(ThreadId, IsTheThreadsOwn) {
    const DWORD here = GetCurrentThreadId();
    EXPECT_NE(here, 0u);
    EXPECT_EQ(GetCurrentThreadId(), here);
    std::thread([here] { EXPECT_NE(GetCurrentThreadId(), here); }).join();
}

TEST(Time, LocalTimeIsADate) {
    SYSTEMTIME time = {};
    GetLocalTime(&time);
    EXPECT_GE(time.wYear, 2024);
    EXPECT_TRUE(time.wMonth >= 1 && time.wMonth <= 12) << time.wMonth;
    EXPECT_TRUE(time.wDay >= 1 && time.wDay <= 31) << time.wDay;
    EXPECT_LE(time.wDayOfWeek, 6);
    EXPECT_LE(time.wMilliseconds, 999);
}

}  // namespace
