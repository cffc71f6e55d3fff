#pragma once

#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

/// Is there a session? Without a core there is none.
inline bool LoggedIn() {
    CUICallBack* core = GetUICallBack();
    return core != nullptr && core->IsLoggedIn() != 0;
}
