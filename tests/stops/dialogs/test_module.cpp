#include "controls/templates.h"
#include "platform/toolkit/toolkit.h"
#include "stops/templates.h"

namespace {

const toolkit::TemplateTable kTables[] = {controls::kTemplates, stops::kTemplates};

CWinApp app;

}  // namespace

IMPLEMENT_MODULE(app, kTables)
