#pragma once

#include "platform/types.h"

/// Have `span` milliseconds passed from `start` to `now`? All three are readings of GetTickCount,
/// which starts over every 49.7 days: `now` counts as later than `start`, whichever is greater.
constexpr bool HasElapsed(DWORD start, DWORD now, DWORD span) { return now - start >= span; }
