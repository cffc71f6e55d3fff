#pragma once

// The one place that selects the system's headers: the real ones on Windows, the layer's elsewhere.

// clang-format off
#include <windows.h>
#include <windowsx.h>
#include <commctrl.h>
#include <commdlg.h>
#include <richedit.h>
#include <objbase.h>
// clang-format on
