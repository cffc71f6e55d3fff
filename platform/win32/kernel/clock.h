#pragma once

#include <cstdint>

// The one clock of the layer, from any thread.

namespace winbase {

/// Milliseconds that never run backwards; GetTickCount is the lower half.
std::uint64_t ClockTicks();

}  // namespace winbase
