#pragma once

#include <vector>

#include "platform/types.h"

// Where the block of a login result goes. They belong to the windows' thread.

/// The open login dialog; null while there is none. It gets the core events about the login as the
/// main dialog got them, and frees the blocks of login results.
extern HWND g_hLoginDlg;

/// Hands a login result to the open login dialog. Without one the block is kept for good: the core
/// heard of it first and may hold on to it, and there is one for each login.
void TakeLoginBlock(WPARAM wParam, LPARAM lParam);

/// The blocks that were kept.
const std::vector<void*>& KeptLoginBlocks();
