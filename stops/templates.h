#pragma once

#include "platform/toolkit/toolkit.h"

namespace stops {

/// Dialogs about stops, and the combination page.
extern const toolkit::TemplateTable kTemplates;

}  // namespace stops
