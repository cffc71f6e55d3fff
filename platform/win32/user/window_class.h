#pragma once

#include "platform/win32/user/window.h"

namespace winbase {

/// The class of that name that a module sees: its own, or one of all modules. `name` is a text or
/// an atom. Null when there is none.
WindowClass* FindClass(HINSTANCE module, LPCSTR name);

}  // namespace winbase
