#include "stops/gold_combination_dlg.h"

#include "controls/page_ground.h"
#include "plugin/contract/messages.h"

BEGIN_MESSAGE_MAP(CGOLDCombinationDlg, CDialog)
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

void CGOLDCombinationDlg::OnCoreEvent(WPARAM wParam, LPARAM lParam) {
    if (HIWORD(wParam) != 0) return;
    const WORD code = LOWORD(wParam);
    const bool one_group = code == EV_COMBINATION_MSG;
    OnGroupEvent(code, one_group ? reinterpret_cast<const char*>(lParam) : nullptr);
}

void CGOLDCombinationDlg::OnGroupEvent(int, const char*) {}

BOOL CGOLDCombinationDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
