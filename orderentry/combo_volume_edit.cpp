#include "orderentry/combo_volume_edit.h"

std::unique_ptr<CWnd> CComboVolumeEdit::CreateInnerEdit(int id) {
    auto edit = std::make_unique<CRichVolumeEdit>();
    edit->Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL | ES_CENTER, CRect(0, 0, 0, 0),
                 this, static_cast<UINT>(id));
    edit->SetBackgroundColor(FALSE, BackColor());
    edit->SetEventMask(ENM_CHANGE);
    edit->LimitText(kTextMax);
    m_pVolume = edit.get();
    return edit;
}
