#pragma once

#include <vector>

#include "platform/win32/user/message_queue.h"

namespace winbase {

enum class InputKind { kMove, kButton, kWheel, kKey, kCharacter };

/// What a person did, as it waits in the queue. Who gets it is decided when it is fetched.
struct InputEvent {
    InputKind kind = InputKind::kMove;
    unsigned number = 0;  ///< names the event while messages about it are sent
    DWORD time = 0;
    POINT place{};
    int button = 0;  ///< 0 left, 1 right, 2 middle
    int wheel = 0;
    bool down = false;
    bool extended = false;
    BYTE key = 0;
    BYTE scan = 0;
    BYTE character = 0;  ///< one byte of GBK text
};

/// Puts input in the queue.
void QueueMove(POINT place);
void QueueButton(int button, bool down);
void QueueWheel(int wheel);
void QueueKey(BYTE key, BYTE scan, bool extended, bool down);
void TakeScreenEvents(const std::vector<present::Event>& events);

/// kLookAgain: a posted message arose that goes first.
enum class InputFind { kNone, kFound, kLookAgain };
InputFind TakeInput(const MessageFilter& filter, bool remove, MSG& message);
/// The kinds of input (QS_...) that wait.
UINT InputKinds();

// ---- what the two halves make of an event (mouse.cpp, keyboard.cpp) ----

/// kGone: nobody is to get the event. kOther: the filter leaves it in the queue.
enum class Resolution { kMessage, kGone, kOther, kLookAgain };
/// Says which message an event is. Windows are asked WM_NCHITTEST; a pointer that left the window
/// which waits for that is told of (kLookAgain).
Resolution ResolveMouse(const InputEvent& event, const MessageFilter& filter, MSG& message);
Resolution ResolveKey(const InputEvent& event, const MessageFilter& filter, MSG& message);
/// The event has left the queue: key states, activation, cursor. False when its message is eaten.
bool CommitMouse(const InputEvent& event, MSG& message);
void CommitKey(const InputEvent& event);

/// Whether a key or button is down, in the order of the messages.
bool IsKeyDown(int key);
void SetKeyDown(int key, bool down);
/// The same at this moment, ahead of the queue.
void SetKeyDownNow(int key, bool down);
bool IsKeyDownNow(int key);
/// MK_... of what is down.
WPARAM MouseKeys();
int ButtonKey(int button);

/// True when the pointer rests over another window or part of a window than it last told of.
bool IsPointerOverNews();
/// Forgets a window that goes away.
void ForgetPointer(HWND window);

}  // namespace winbase
