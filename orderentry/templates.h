#pragma once

#include "platform/toolkit/toolkit.h"

namespace orderentry {

/// Dialogs of order entry: the order page and the panel's ticket with their parts.
extern const toolkit::TemplateTable kTemplates;

}  // namespace orderentry
