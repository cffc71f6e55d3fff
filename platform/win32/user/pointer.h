#pragma once

#include <windows.h>

namespace winbase {

/// Where the pointer is on the screen. From any thread.
POINT PointerPlace();
/// Moves it, kept within the desktop.
void SetPointerPlace(POINT place);

/// What lies under a place: a window and its answer to WM_NCHITTEST. Null over the bare desktop.
/// A disabled top-level window answers HTERROR for itself and its children.
struct Hit {
    HWND window = nullptr;
    int code = HTNOWHERE;
};
Hit HitTest(POINT place);

/// A place on the screen as the client coordinates of a window, packed as in mouse messages.
LPARAM ClientPoint(HWND window, POINT place);
inline LPARAM ScreenPointOf(POINT place) { return MAKELPARAM(place.x, place.y); }
/// The same the other way.
inline POINT UnpackPoint(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

}  // namespace winbase
