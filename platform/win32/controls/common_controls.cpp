#include <commctrl.h>
#include <windows.h>

namespace {

constexpr DWORD kKnownClasses = ICC_TREEVIEW_CLASSES | ICC_TAB_CLASSES | ICC_UPDOWN_CLASS |
                                ICC_DATE_CLASSES | ICC_STANDARD_CLASSES;

}  // namespace

BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls) {
    return controls && controls->dwSize == sizeof *controls &&
           (controls->dwICC & ~kKnownClasses) == 0;
}

BOOL _TrackMouseEvent(LPTRACKMOUSEEVENT track) { return TrackMouseEvent(track); }
