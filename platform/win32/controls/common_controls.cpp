#include <commctrl.h>
#include <windows.h>

#include "platform/win32/controls/register.h"

BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls) {
    constexpr DWORD kThere = ICC_TREEVIEW_CLASSES | ICC_TAB_CLASSES | ICC_UPDOWN_CLASS |
                             ICC_DATE_CLASSES | ICC_STANDARD_CLASSES;
    if (controls == nullptr || controls->dwSize != sizeof *controls) return FALSE;
    if ((controls->dwICC & ~kThere) != 0) return FALSE;
    winbase::RegisterStandardControls();
    return TRUE;
}

BOOL WINAPI _TrackMouseEvent(LPTRACKMOUSEEVENT track) { return TrackMouseEvent(track); }
