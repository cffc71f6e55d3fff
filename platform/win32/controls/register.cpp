#include "platform/win32/controls/register.h"

#include <commctrl.h>
#include <windows.h>

#include "platform/win32/controls/button.h"
#include "platform/win32/controls/calendar.h"
#include "platform/win32/controls/combo_box.h"
#include "platform/win32/controls/date_picker.h"
#include "platform/win32/controls/edit_control.h"
#include "platform/win32/controls/list_box.h"
#include "platform/win32/controls/static_control.h"
#include "platform/win32/controls/tab_control.h"
#include "platform/win32/controls/tree_view.h"
#include "platform/win32/controls/up_down.h"

namespace winbase {

namespace {

constexpr int kPointer = sizeof(void*);  // where a control keeps its object

struct StandardClass {
    const char* name;
    WNDPROC procedure;
    UINT style;
    int extra;
    LPCSTR cursor;
};

void Register(const StandardClass& standard) {
    WNDCLASSA window_class{};
    window_class.style = standard.style | CS_GLOBALCLASS;
    window_class.lpfnWndProc = standard.procedure;
    window_class.cbWndExtra = standard.extra;
    window_class.hInstance = GetModuleHandleA(nullptr);
    window_class.hCursor = LoadCursorA(nullptr, standard.cursor);
    window_class.lpszClassName = standard.name;
    RegisterClassA(&window_class);
}

}  // namespace

void RegisterStandardControls() {
    static bool done = false;
    if (done) return;
    done = true;  // first: registering looks classes up
    constexpr UINT kResize = CS_HREDRAW | CS_VREDRAW;
    const StandardClass classes[] = {
        {"#32770", DefDlgProcA, CS_DBLCLKS | CS_SAVEBITS, DLGWINDOWEXTRA, IDC_ARROW},
        {"Button", ButtonControl::Procedure, CS_DBLCLKS | kResize, kPointer, IDC_ARROW},
        {"Static", StaticControl::Procedure, CS_DBLCLKS, kPointer, IDC_ARROW},
        {"Edit", EditControl::Procedure, CS_DBLCLKS, kPointer, IDC_IBEAM},
        {"RichEdit20A", EditControl::Procedure, CS_DBLCLKS, kPointer, IDC_IBEAM},
        {"ListBox", ListBoxControl::Procedure, CS_DBLCLKS, kPointer, IDC_ARROW},
        {"ComboLBox", ListBoxControl::Procedure, CS_DBLCLKS | CS_SAVEBITS | CS_DROPSHADOW, kPointer,
         IDC_ARROW},
        {"ComboBox", ComboBoxControl::Procedure, CS_DBLCLKS | kResize, kPointer, IDC_ARROW},
        {UPDOWN_CLASS, UpDownControl::Procedure, kResize, kPointer, IDC_ARROW},
        {"SysTabControl32", TabControl::Procedure, CS_DBLCLKS | kResize, kPointer, IDC_ARROW},
        {DATETIMEPICK_CLASS, DatePickerControl::Procedure, CS_DBLCLKS | kResize, kPointer,
         IDC_ARROW},
        {kCalendarClass, Calendar::Procedure, CS_DBLCLKS | CS_SAVEBITS | CS_DROPSHADOW, kPointer,
         IDC_ARROW},
        {WC_TREEVIEW, TreeViewControl::Procedure, CS_DBLCLKS, kPointer, IDC_ARROW},
    };
    for (const StandardClass& standard : classes) Register(standard);
}

}  // namespace winbase
