#pragma once

#include "platform/toolkit/toolkit.h"

namespace funds {

/// Dialogs about money: bank transfer, funds, settlement.
extern const toolkit::TemplateTable kTemplates;

}  // namespace funds
