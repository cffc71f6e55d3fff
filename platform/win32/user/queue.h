#pragma once

#include "platform/win32/user/message_queue.h"

namespace winbase {

/// Looks for a message in the order of the queue: sent, posted, quit, input, paint, timer. Serves
/// what was sent from other threads on the way. False when there is none.
bool FetchMessage(MSG& message, const MessageFilter& filter, bool remove);

/// Handles what other threads sent.
void ServeRequests();

/// Looks after what the person at the screen did, and shows what was drawn.
void PumpScreen();

/// The message and the answer for callers that want to leave an inner loop for WM_QUIT: asks for it
/// again, for the loop outside.
void RepeatQuit(const MSG& message);

}  // namespace winbase
