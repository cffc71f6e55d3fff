#pragma once

// Windows and what they draw, receive and ask.

// clang-format off
#include "windef.h"
#include "winuser_messages.h"
#include "winuser_styles.h"
#include "winuser_keys.h"
#include "winuser_types.h"
#include "winuser_functions.h"
#include "winuser_draw.h"
#include "winuser_dialog.h"
#include "winuser_names.h"
// clang-format on
