#pragma once

#include "platform/toolkit/toolkit.h"

namespace plugin {

/// Dialogs of the shell: the main dialog.
extern const toolkit::TemplateTable kTemplates;

}  // namespace plugin
