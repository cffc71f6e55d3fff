#pragma once

// Objects: of them only that a thread says that it begins and ends to use them.

#include "windef.h"
#include "winerror.h"

/// S_OK the first time in a thread, S_FALSE when it is already initialised. Each call that succeeds
/// wants one OleUninitialize. `reserved` must be null.
WIN32_EXPORT HRESULT WINAPI OleInitialize(LPVOID reserved);
WIN32_EXPORT void WINAPI OleUninitialize();
