#include "tests/platform/toolkit/test_module.h"

namespace {

using namespace toolkit;

constexpr DialogControl kFormControls[] = {
    Label(tests::kFormLabel, "数量:", {4, 6, 30, 8}),
    TextEdit(tests::kFormEdit, {40, 4, 60, 12}),
    PushButton(tests::kFormButton, "查询", {4, 20, 40, 14}),
    Control(tests::kFormList, "ListBox", "", LBS_NOTIFY | WS_BORDER, {50, 20, 60, 40}),
};
constexpr DialogControl kAskControls[] = {
    TextEdit(tests::kFormEdit, {4, 4, 60, 12}),
    DefaultButton(IDOK, "确定", {4, 30, 40, 14}),
    PushButton(IDCANCEL, "取消", {50, 30, 40, 14}),
};
constexpr DialogTemplate kPages[] = {
    {.id = tests::kFormDialog,
     .title = "表单",
     .style = WS_POPUP | WS_CAPTION,
     .width = 120,
     .height = 70,
     .controls = kFormControls},
    {.id = tests::kPageDialog,
     .style = kPageStyle,
     .ex_style = WS_EX_CONTROLPARENT,
     .width = 60,
     .height = 30},
};
constexpr DialogTemplate kQuestions[] = {
    {.id = tests::kAskDialog,
     .title = "提问",
     .width = 100,
     .height = 50,
     .controls = kAskControls},
};
constexpr TemplateTable kTables[] = {kPages, kQuestions};

tests::TestApp app;

}  // namespace

IMPLEMENT_MODULE(app, kTables)

tests::TestApp& tests::App() { return app; }
