#include "orderentry/templates.h"
#include "platform/toolkit/toolkit.h"

namespace {

const toolkit::TemplateTable kTables[] = {orderentry::kTemplates};

CWinApp app;

}  // namespace

IMPLEMENT_MODULE(app, kTables)
