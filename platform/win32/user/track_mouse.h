#pragma once

#include "platform/win32/user/message_queue.h"
#include "platform/win32/user/pointer.h"

namespace winbase {

/// Posts WM_MOUSELEAVE when the pointer is no longer over the window that waits for that. True when
/// it did.
bool PostLeave(const Hit& hit);
/// The pointer was told to be somewhere: a rest begins anew when it has moved.
void NotePointer(const Hit& hit, POINT place);
/// WM_MOUSEHOVER when the pointer has rested for long enough.
bool TakeHover(const MessageFilter& filter, bool remove, MSG& message);
int MillisToHover(const MessageFilter& filter);
void ForgetTracking(HWND window);

}  // namespace winbase
