#include "controls/templates.h"
#include "lists/templates.h"
#include "platform/toolkit/toolkit.h"

namespace {

const toolkit::TemplateTable kTables[] = {controls::kTemplates, lists::kTemplates};

CWinApp app("成交");

}  // namespace

IMPLEMENT_MODULE(app, kTables)
