#include "controls/templates.h"
#include "orderentry/templates.h"
#include "platform/toolkit/toolkit.h"

namespace {

const toolkit::TemplateTable kTables[] = {controls::kTemplates, orderentry::kTemplates};

CWinApp app;

}  // namespace

IMPLEMENT_MODULE(app, kTables)
