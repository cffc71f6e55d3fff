#include "platform/win32/kernel/clock.h"

#include <winbase_hooks.h>
#include <windows.h>

#include <atomic>
#include <chrono>
#include <ctime>
#include <limits>
#include <mutex>
#include <thread>

namespace {

struct ManualClock {
    std::atomic<bool> on = false;
    std::mutex mutex;
    std::uint64_t ticks = 0;
    std::int64_t local_millis = 0;  ///< local time, counted from 1970 as if it were UTC
    std::atomic<void (*)()> listener = nullptr;
};

ManualClock& TheManualClock() {
    static ManualClock clock;
    return clock;
}

std::int64_t MillisOf(const timespec& time) {
    return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1'000'000;
}

std::int64_t MillisOf(const SYSTEMTIME& time) {
    std::tm parts = {};
    parts.tm_year = time.wYear - 1900;
    parts.tm_mon = time.wMonth - 1;
    parts.tm_mday = time.wDay;
    parts.tm_hour = time.wHour;
    parts.tm_min = time.wMinute;
    parts.tm_sec = time.wSecond;
    return std::int64_t{timegm(&parts)} * 1000 + time.wMilliseconds;
}

SYSTEMTIME SystemTime(const std::tm& parts, std::int64_t millis) {
    const auto word = [](auto value) { return static_cast<WORD>(value); };
    return {word(parts.tm_year + 1900), word(parts.tm_mon + 1), word(parts.tm_wday),
            word(parts.tm_mday),        word(parts.tm_hour),    word(parts.tm_min),
            word(parts.tm_sec),         word(millis % 1000)};
}

}  // namespace

namespace winbase {

std::uint64_t ClockTicks() {
    ManualClock& manual = TheManualClock();
    if (manual.on) {
        const std::lock_guard lock(manual.mutex);
        return manual.ticks;
    }
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(MillisOf(now));
}

void SetClockListener(void (*listener)()) { TheManualClock().listener = listener; }

namespace hooks {

void UseManualClock(DWORD ticks, const SYSTEMTIME& local_time) {
    ManualClock& manual = TheManualClock();
    const std::lock_guard lock(manual.mutex);
    manual.ticks = ticks;
    manual.local_millis = MillisOf(local_time);
    manual.on = true;
}

void AdvanceClock(DWORD millis) {
    ManualClock& manual = TheManualClock();
    if (!manual.on) return;
    {
        const std::lock_guard lock(manual.mutex);
        manual.ticks += millis;
        manual.local_millis += millis;
    }
    if (void (*const listener)() = manual.listener) listener();
}

bool IsClockManual() { return TheManualClock().on; }

}  // namespace hooks
}  // namespace winbase

DWORD GetTickCount() { return static_cast<DWORD>(winbase::ClockTicks()); }

void GetLocalTime(LPSYSTEMTIME time) {
    if (!time) return;
    ManualClock& manual = TheManualClock();
    std::tm parts = {};
    if (manual.on) {
        const std::lock_guard lock(manual.mutex);
        const std::time_t seconds = manual.local_millis / 1000;
        *time = SystemTime(*gmtime_r(&seconds, &parts), manual.local_millis);
        return;
    }
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    *time = SystemTime(*localtime_r(&now.tv_sec, &parts), MillisOf(now));
}

void Sleep(DWORD millis) {
    if (millis == INFINITE) {
        for (;;) std::this_thread::sleep_for(std::chrono::hours(1));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(millis));
    if (millis == 0) std::this_thread::yield();
}

int MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0) return -1;
    const std::int64_t product = std::int64_t{number} * numerator;
    const std::int64_t divisor = denominator;
    // Halves are rounded away from zero.
    const std::int64_t half = (divisor < 0 ? -divisor : divisor) / 2;
    const std::int64_t quotient = (product < 0 ? product - half : product + half) / divisor;
    if (quotient > std::numeric_limits<int>::max() || quotient < std::numeric_limits<int>::min()) {
        return -1;
    }
    return static_cast<int>(quotient);
}
