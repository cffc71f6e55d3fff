#pragma once

#include <cstdint>

// The one clock of the layer, from any thread.

namespace winbase {

/// Milliseconds that never run backwards; GetTickCount is the lower half.
std::uint64_t ClockTicks();

/// Called after every move of the manual clock, on the thread that moved it.
void SetClockListener(void (*listener)());

}  // namespace winbase
