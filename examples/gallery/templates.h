#pragma once

#include "platform/toolkit/toolkit.h"

namespace gallery {

/// All dialogs of the gallery.
extern const std::span<const toolkit::TemplateTable> kTables;

}  // namespace gallery
