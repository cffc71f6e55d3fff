#pragma once

#include "platform/win32/gdi/dc.h"

namespace winbase {

/// Draws with the context's pen from one point (surface coordinates) up to but without the other.
void DrawLine(Dc& dc, POINT from, POINT to);

}  // namespace winbase
