#include "controls/ower_check_box.h"

#include "plugin/contract/core_access.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kCheckSkin = 74;

}  // namespace

HBITMAP COwerCheckBox::GetSkin() {
    CUICallBack* core = GetUICallBack();
    return core ? core->GetSkinBitmap(kSkinPages, kCheckSkin) : nullptr;
}

void COwerCheckBox::OnClick() {
    SetChecked(!m_bChecked);
    ::PostMessageA(::GetParent(m_hWnd), WM_CHECK_CHANGED, Sender(), SenderId());
}
