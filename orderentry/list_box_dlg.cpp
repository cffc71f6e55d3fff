#include "orderentry/list_box_dlg.h"

#include <algorithm>

BEGIN_MESSAGE_MAP(CListBoxDlg, CDialog)
    ON_WM_SIZE()
END_MESSAGE_MAP()

bool CListBoxDlg::Make(CWnd& edit) {
    m_list.SetEdit(&edit);
    if (!Create(IDD, &edit)) return false;
    m_list.SetFont(edit.GetFont(), FALSE);
    return true;
}

BOOL CListBoxDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    m_list.SubclassDlgItem(kList, this);
    // The focus stays in the edit.
    return FALSE;
}

void CListBoxDlg::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    if (m_list.GetSafeHwnd()) m_list.MoveWindow(0, 0, cx, cy);
}

void CListBoxDlg::ShowAt(CPoint corner, int width) {
    CRect window;
    CRect client;
    GetWindowRect(&window);
    GetClientRect(&client);
    CRect list_frame;
    CRect list_client;
    m_list.GetWindowRect(&list_frame);
    m_list.GetClientRect(&list_client);
    const int row = std::max(1, static_cast<int>(m_list.SendMessage(LB_GETITEMHEIGHT)));
    const int frames =
        window.Height() - client.Height() + list_frame.Height() - list_client.Height();
    ::SetWindowPos(m_hWnd, HWND_TOPMOST, corner.x, corner.y, width,
                   m_list.GetCount() * row + frames, SWP_NOACTIVATE | SWP_SHOWWINDOW);
}
