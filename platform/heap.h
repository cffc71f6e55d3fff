#pragma once

// The process heap, for code that must know no window: of the system's functions only its services.

#ifdef _WIN32
#include <windows.h>
#else
#include <winbase.h>
#endif
