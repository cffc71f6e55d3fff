#pragma once

#include "platform/toolkit/toolkit.h"

/// A text that may be long, to be read and answered by one of two captioned buttons. Modal; without
/// a parent the host's frame window owns it.
class CMsgDlg : public CDialog {
public:
    static constexpr UINT IDD = 10018;
    static constexpr int kBody = 10006;

    /// GBK texts, which are not copied and must outlive the dialog. A null body leaves the text
    /// empty; a null caption or title leaves what the template has. DoModal answers IDOK for the
    /// first button and IDCANCEL for everything else.
    CMsgDlg(const char* body, const char* ok_caption, const char* cancel_caption, const char* title,
            CWnd* parent);

protected:
    BOOL OnInitDialog() override;

private:
    const char* m_pBody;
    const char* m_pOkCaption;
    const char* m_pCancelCaption;
    const char* m_pTitle;
};
