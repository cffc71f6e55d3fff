#include "plugin/templates.h"

#include "plugin/main_dlg.h"

namespace plugin {

namespace {

using toolkit::DialogControl;
using toolkit::DialogTemplate;

// The host sizes the dialog and OnSize lays it out, so the units here only have to be sensible.
constexpr DialogControl kMainControls[] = {
    toolkit::List(CMainDlg::kMenuId, {1, 1, 93, 298},
                  LBS_NOTIFY | LBS_OWNERDRAWFIXED | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT),
};

constexpr DialogTemplate kDialogs[] = {
    {.id = CMainDlg::IDD,
     .style = toolkit::kPageStyle | WS_CLIPCHILDREN,
     .ex_style = WS_EX_CONTROLPARENT,
     .width = 600,
     .height = 300,
     .controls = kMainControls},
};

}  // namespace

constinit const toolkit::TemplateTable kTemplates = kDialogs;

}  // namespace plugin
