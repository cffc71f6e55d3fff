#include "controls/templates.h"

namespace controls {

namespace {

constexpr toolkit::DialogTemplate kDialogs[] = {
    {.id = kEmptyDialog, .style = toolkit::kPageStyle, .width = 40, .height = 20},
};

}  // namespace

constinit const toolkit::TemplateTable kTemplates = kDialogs;

}  // namespace controls
