#pragma once

// Coordinates out of a message. They are signed: a captured pointer may stand left of the window.

#include "windef.h"

#define GET_X_LPARAM(lParam) (static_cast<int>(static_cast<short>(LOWORD(lParam))))
#define GET_Y_LPARAM(lParam) (static_cast<int>(static_cast<short>(HIWORD(lParam))))
