#pragma once

#include "platform/types.h"

class CMainDlg;

/// Handles a core event: the core hears of it first, then its case runs, then its block is freed.
/// An event without a case ends after the first step.
void DispatchCoreEvent(CMainDlg& shell, WPARAM wParam, LPARAM lParam);
