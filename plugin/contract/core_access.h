#pragma once

#include "plugin/contract/host_function.h"

class CUICallBack;

// The two doors out of the front end, set by the host before anything else is asked of it. Both are
// null until then; whoever may run earlier tests them.

extern CUICallBack* g_pUICallBack;
extern HostFunction g_pfnHostCallBack;

/// The core as it was set, unchecked.
CUICallBack* GetUICallBack();
