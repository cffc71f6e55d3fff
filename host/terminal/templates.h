#pragma once

#include "platform/toolkit/toolkit.h"

namespace terminal {

/// The terminal's own dialogs.
extern const toolkit::TemplateTable kTemplates;

}  // namespace terminal
