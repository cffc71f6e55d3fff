#include "session/msg_dlg.h"

#include "plugin/settings/process_values.h"

namespace {

CWnd* OwnerOf(CWnd* parent) { return parent != nullptr ? parent : CWnd::FromHandle(g_hFrameWnd); }

}  // namespace

CMsgDlg::CMsgDlg(const char* body, const char* ok_caption, const char* cancel_caption,
                 const char* title, CWnd* parent)
    : CDialog(IDD, OwnerOf(parent)),
      m_pBody(body),
      m_pOkCaption(ok_caption),
      m_pCancelCaption(cancel_caption),
      m_pTitle(title) {}

BOOL CMsgDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    if (m_pTitle != nullptr) SetWindowText(m_pTitle);
    if (m_pOkCaption != nullptr) SetDlgItemText(IDOK, m_pOkCaption);
    if (m_pCancelCaption != nullptr) SetDlgItemText(IDCANCEL, m_pCancelCaption);
    if (m_pBody != nullptr) SetDlgItemText(kBody, m_pBody);
    return TRUE;
}
