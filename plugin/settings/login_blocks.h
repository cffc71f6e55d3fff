#pragma once

#include <vector>

#include "platform/types.h"

// Core events about a login, which is over before the pages go live. The windows' thread only.

/// The open login dialog; null while there is none.
extern HWND g_hLoginDlg;

/// Sends a core event on to the open login dialog, if there is one. The payload stays where it is.
void TellLoginDialog(WPARAM wParam, LPARAM lParam);

/// Hands a login result to the open login dialog, which frees its block. Without one the block is
/// kept for good: the core heard of it first and may hold on to it, and there is one for each
/// login.
void TakeLoginBlock(WPARAM wParam, LPARAM lParam);

/// The blocks that were kept.
const std::vector<void*>& KeptLoginBlocks();
