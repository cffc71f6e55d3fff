#pragma once

#include <string>

#include "platform/system.h"

/// Input as a person makes it: through the pointer and the keyboard of the desktop, so that hit
/// tests, activation, capture and focus decide who gets it. Every call dispatches what it caused
/// before it returns, unless it says otherwise.
namespace platform::testing {

enum class Button { kLeft, kRight };

/// Dispatches all that the queue holds, without waiting. A WM_QUIT is left to its loop.
void Pump();
/// From now on and for good time passes in PumpFor only, so that no test waits for it. Where the
/// system's clock can't be stopped, it goes on.
void StopClock();
/// Lets `millis` pass and dispatches what comes in that time: advances the manual clock step by
/// step, or waits where the clock is real.
void PumpFor(DWORD millis);
/// Advances a stopped clock and dispatches nothing; timers that are due come by whatever loop runs.
void LetTimePass(DWORD millis);

/// Screen coordinates.
void MovePointer(POINT screen);
void Press(Button button = Button::kLeft);
void Release(Button button = Button::kLeft);
void ClickAt(POINT screen, Button button = Button::kLeft);
/// Presses at one place, moves in a few steps, releases at the other.
void Drag(POINT from, POINT to);
/// Notches of the wheel, away from the user positive.
void Wheel(int notches);

/// A place in the window's client area on the screen; the middle when none is named.
POINT ScreenPoint(HWND window, int x, int y);
POINT ScreenPoint(HWND window);
/// Clicks into the client area of a window, wherever it stands.
void Click(HWND window, Button button = Button::kLeft);
void Click(HWND window, int x, int y, Button button = Button::kLeft);
void DoubleClick(HWND window, int x, int y);

/// Presses and releases a key (VK_...), with Shift or Control held if asked.
enum class Modifier { kNone, kShift, kControl, kAlt };
void Key(BYTE key, Modifier modifier = Modifier::kNone);
/// Types text into the focus: ASCII through the keys, other characters as WM_CHAR in code page 936.
void Type(const char* gbk);

/// Does `action` once the user interface waits for the user: the way to answer a modal box or
/// dialog that a later call opens. Actions run in the order in which they were given, one each
/// time.
using Action = void (*)(void* context);
void WhenIdle(Action action, void* context);
/// Presses the button `id` of the topmost active dialog when the user interface waits for the user.
/// `seen`, if given, gets the dialog's title and the text of its longest static, as UTF-8.
struct SeenBox {
    std::string title;
    std::string text;
    bool shown = false;
};
void AnswerNextBox(int button_id, SeenBox* seen = nullptr);

}  // namespace platform::testing
