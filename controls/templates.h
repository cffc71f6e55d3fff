#pragma once

#include "platform/toolkit/toolkit.h"

namespace controls {

/// The number of the one empty template. Everything that paints itself is made of it: tips and the
/// parts of panels.
inline constexpr UINT kEmptyDialog = 10008;

extern const toolkit::TemplateTable kTemplates;

}  // namespace controls
