#include "controls/skin_button.h"

void CSkinButton::SetSkin(HBITMAP skin, int count, const int* table, BOOL resize) {
    m_skin.Set(skin, count, table);
    if (!GetSafeHwnd()) return;
    const CSize size = m_skin.PictureSize();
    if (resize && size.cx > 0) {
        SetWindowPos(nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    Invalidate(FALSE);
}
