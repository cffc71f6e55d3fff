#pragma once

#include <windows.h>

namespace winbase {

/// Draws one of the system's message icons (LoadIconA of IDI_ERROR, IDI_QUESTION, IDI_WARNING or
/// IDI_INFORMATION) 32 pixels wide into the middle of `area`. There are no other icons.
void DrawStandardIcon(HDC dc, const RECT& area, HICON icon);

}  // namespace winbase
