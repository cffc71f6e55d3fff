#include "tests/controls/test_module.h"

#include "controls/templates.h"

namespace {

constexpr toolkit::DialogControl kOddControls[] = {
    toolkit::TextEdit(tests::kOddEdit, {4, 4, 60, 12}),
    toolkit::DefaultButton(tests::kOddFirst, "确定", {4, 24, 40, 14}),
    toolkit::PushButton(tests::kOddSecond, "应用", {50, 24, 40, 14}),
    toolkit::PushButton(tests::kOddPlain, "帮助", {96, 24, 40, 14}),
};
constexpr toolkit::DialogTemplate kDialogs[] = {
    {.id = tests::kOddDialog,
     .style = WS_POPUP | WS_CAPTION | WS_VISIBLE,
     .x = 60,
     .y = 60,
     .width = 140,
     .height = 44,
     .controls = kOddControls},
};
const toolkit::TemplateTable kTables[] = {controls::kTemplates, kDialogs};

CWinApp app;

}  // namespace

IMPLEMENT_MODULE(app, kTables)
