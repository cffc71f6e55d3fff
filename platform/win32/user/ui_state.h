#pragma once

#include "platform/win32/user/window.h"

namespace winbase {

/// What there is once for the whole user interface.
struct UiState {
    HWND focus = nullptr;
    HWND active = nullptr;
    HWND capture = nullptr;
    bool application_active = false;
};

UiState& Ui();

}  // namespace winbase
