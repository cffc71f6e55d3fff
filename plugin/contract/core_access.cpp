#include "plugin/contract/core_access.h"

CUICallBack* g_pUICallBack = nullptr;
HostFunction g_pfnHostCallBack = nullptr;

CUICallBack* GetUICallBack() { return g_pUICallBack; }
