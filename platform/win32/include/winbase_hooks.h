#pragma once

// What a test, an automation run or the start of a program asks of the layer beyond the Windows
// functions. Nothing here exists on Windows.

#include <string>
#include <vector>

#include "winbase_types.h"

#define WINBASE_HOOK __attribute__((visibility("default")))

namespace winbase::hooks {

/// Stops the clock behind ticks, timers and local time and sets it; from then on it moves by
/// AdvanceClock only. For good: the real clock does not come back. Safe from any thread.
WINBASE_HOOK void UseManualClock(DWORD ticks, const SYSTEMTIME& local_time);
/// Does nothing while the clock is real.
WINBASE_HOOK void AdvanceClock(DWORD millis);
WINBASE_HOOK bool IsClockManual();

/// Called on the user interface thread each time a loop is about to wait for input; answers true
/// when it did something, and the loop looks at its queue again. Null takes it away.
using IdleHandler = bool (*)();
WINBASE_HOOK void SetIdleHandler(IdleHandler handler);

/// A text as it is seen: the bytes that were drawn, and what is left of its cell under later paint,
/// in the coordinates of the context that is asked.
struct ShownText {
    std::string text;
    RECT rect;
    COLORREF color;
    int weight;
};

/// Whether surfaces remember the texts that are drawn on them; off at first. What was drawn while
/// it was off is not known.
WINBASE_HOOK void RecordTexts(bool on);
/// The texts within what the context can draw on, in the order in which they were drawn. Empty for
/// a dead context.
WINBASE_HOOK std::vector<ShownText> ShownTexts(HDC dc);
/// The smallest rectangle around what the context can draw on, as an RGB picture; `path` is the
/// system's own. False when there is nothing to see or the file can't be written.
WINBASE_HOOK bool WritePng(HDC dc, const char* path);
/// The texts that a window's client area shows, in its coordinates.
WINBASE_HOOK std::vector<ShownText> WindowTexts(HWND window);
/// A window with its frame as a picture, or the whole desktop for null.
WINBASE_HOOK bool SaveWindowPng(HWND window, const char* path);
/// Windows that exist.
WINBASE_HOOK std::size_t LiveWindowCount();
/// Pixels of one logical pixel each way, 1 to 3, on surfaces and bitmaps that are made from now on.
WINBASE_HOOK void SetScale(int scale);

}  // namespace winbase::hooks
