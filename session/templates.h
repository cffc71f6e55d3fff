#pragma once

#include "platform/toolkit/toolkit.h"

namespace session {

/// Dialogs of the session: login, confirmations, verification, lock, password.
extern const toolkit::TemplateTable kTemplates;

}  // namespace session
