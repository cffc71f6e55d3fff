#include "controls/wy_edit.h"

#include "controls/ower_draw_list_view.h"
#include "platform/text/bounded_text.h"

BEGIN_MESSAGE_MAP(CWyEdit, CEdit)
    ON_WM_CREATE()
    ON_WM_KILLFOCUS()
    ON_WM_CHAR()
    ON_WM_CONTEXTMENU()
END_MESSAGE_MAP()

CWyEdit::CWyEdit() : m_logFont{} {
    m_logFont.lfHeight = 12;
    m_logFont.lfWeight = FW_NORMAL;
    m_logFont.lfCharSet = DEFAULT_CHARSET;
    text::CopyText(m_logFont.lfFaceName, "宋体");
}

int CWyEdit::OnCreate(LPCREATESTRUCT create) {
    if (CEdit::OnCreate(create) == -1) return -1;
    font_.CreateFontIndirect(&m_logFont);
    SetFont(&font_, FALSE);
    return 0;
}

void CWyEdit::OnKillFocus(CWnd*) {
    Default();
    if (auto* list = dynamic_cast<COwerDrawListView*>(GetParent())) list->EndEdit();
}

void CWyEdit::OnChar(UINT, UINT, UINT) {
    if (m_bEnabled) Default();
}

// The handler's being there keeps the edit's own menu away.
void CWyEdit::OnContextMenu(CWnd*, CPoint) {}
