#pragma once

// Handle and integer types of the system, and nothing else of it.

#ifdef _WIN32
#include <windows.h>
#else
#include <windef.h>
#endif
