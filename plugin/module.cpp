#include "controls/templates.h"
#include "funds/templates.h"
#include "lists/templates.h"
#include "orderentry/templates.h"
#include "plugin/qm_gold_trade_ui_app.h"
#include "plugin/templates.h"
#include "session/templates.h"
#include "stops/templates.h"

namespace {

CQmGoldTradeUIApp g_theApp;

// The pages' tables are finished before this one is copied from them: they are constants.
const toolkit::TemplateTable kTables[] = {
    plugin::kTemplates,     controls::kTemplates, session::kTemplates, funds::kTemplates,
    orderentry::kTemplates, stops::kTemplates,    lists::kTemplates,
};

}  // namespace

IMPLEMENT_MODULE(g_theApp, kTables)
