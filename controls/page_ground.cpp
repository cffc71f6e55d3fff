#include "controls/page_ground.h"

#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

COLORREF PageGroundColor() {
    CUICallBack* core = GetUICallBack();
    return core != nullptr ? core->GetSkinColor() : ::GetSysColor(COLOR_3DFACE);
}

void FillPageGround(const CWnd& page, CDC* dc) {
    CRect client;
    page.GetClientRect(&client);
    const CBrush brush(PageGroundColor());
    ::FillRect(dc->GetSafeHdc(), &client, brush);
}

HBRUSH PageGroundBrush(CDC* dc, UINT kind) {
    if (kind != CTLCOLOR_STATIC && kind != CTLCOLOR_BTN) return nullptr;
    // The answer must outlive the call, so the brush of the last colour is kept.
    static CBrush brush;
    static COLORREF color = 0;
    const COLORREF wanted = PageGroundColor();
    if (brush.GetSafeHandle() == nullptr || color != wanted) {
        brush.DeleteObject();
        brush.CreateSolidBrush(wanted);
        color = wanted;
    }
    dc->SetBkColor(wanted);
    return brush;
}

void SetGroundOfRichEdit(CWnd& page, int id) {
    page.SendDlgItemMessage(id, EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(PageGroundColor()));
}

void SetPageSkin(CSkinButton& button, int group, int index) {
    static constexpr int kPictureOfState[] = {0, 1, 2, 3};
    CUICallBack* core = GetUICallBack();
    if (core == nullptr) return;
    button.SetSkin(core->GetSkinBitmap(group, index), 4, kPictureOfState, FALSE);
}
