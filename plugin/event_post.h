#pragma once

#include "platform/types.h"
#include "plugin/contract/messages.h"
#include "plugin/core_error.h"
#include "plugin/event_block.h"

// Core events on their way to the main dialog. They are posted and sent from any thread, to the one
// window that takes them at the time, and a block that cannot be delivered is freed.

/// From here on events go to this window. Belongs to the windows' thread, as does the next.
void BeginCoreEvents(HWND window);

/// No event goes to this window once it returns, and those that still wait for it are dropped with
/// their blocks: windows call it while they are destroyed, since their queue would go with them and
/// leave the blocks behind. Does nothing when the events go to another window.
void EndCoreEvents(HWND window);

/// Posts an event with its block, or without one when that is null.
void PostCoreEvent(CoreEvent code, Outcome outcome, EventBlock block);

/// Posts an event whose lParam is a number.
void PostCoreEventValue(CoreEvent code, LPARAM value);

/// Sends an event and returns when it is handled. `lParam` need be valid only until then.
void SendCoreEvent(CoreEvent code, Outcome outcome, LPARAM lParam);
