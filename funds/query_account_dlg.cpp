#include "funds/query_account_dlg.h"

#include "controls/page_ground.h"

BEGIN_MESSAGE_MAP(CQueryAccountDlg, CDialog)
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

BOOL CQueryAccountDlg::OnEraseBkgnd(CDC* dc) {
    FillPageGround(*this, dc);
    return TRUE;
}
