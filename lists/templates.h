#pragma once

#include "platform/toolkit/toolkit.h"

namespace lists {

/// Dialogs that hold lists: positions, orders, trades, history.
extern const toolkit::TemplateTable kTemplates;

}  // namespace lists
