#pragma once

#include "platform/toolkit/toolkit.h"

namespace tests {

/// A dialog with an edit and three push buttons; kOddFirst is the default one.
inline constexpr UINT kOddDialog = 200;
enum OddControl : int { kOddEdit = 20, kOddFirst = 21, kOddSecond = 22, kOddPlain = 23 };

}  // namespace tests
