#include "orderentry/rich_volume_edit.h"

#include "orderentry/price_edit_ex.h"

BEGIN_MESSAGE_MAP(CRichVolumeEdit, CRichEditCtrl)
    ON_WM_LBUTTONUP()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_WM_CHAR()
    ON_WM_KEYDOWN()
    ON_WM_TIMER()
    ON_WM_DESTROY()
END_MESSAGE_MAP()

namespace {

constexpr UINT_PTR kSelectTimer = 1;
constexpr UINT kSelectMillis = 100;

}  // namespace

CRichVolumeEdit::~CRichVolumeEdit() {
    if (m_keyboard.GetSafeHwnd()) m_keyboard.DestroyWindow();
}

std::string CRichVolumeEdit::Text() const {
    char text[64] = {};
    GetWindowText(text, sizeof text);
    return text;
}

void CRichVolumeEdit::OnLButtonUp(UINT, CPoint) {
    const HWND window = m_hWnd;
    Default();
    if (::IsWindow(window) && m_keyboard.HasPresets()) m_keyboard.Open(*this);
}

void CRichVolumeEdit::OnSetFocus(CWnd*) {
    Default();
    const std::string text = Text();
    if (!text.empty()) m_strSaved = text;
    m_bSelectPending = SetTimer(kSelectTimer, kSelectMillis, nullptr) != 0;
}

void CRichVolumeEdit::SelectNow() {
    if (!m_bSelectPending) return;
    m_bSelectPending = false;
    KillTimer(kSelectTimer);
    SetSel(0, -1);
}

void CRichVolumeEdit::OnKillFocus(CWnd*) {
    // First, so that whoever hears of the lost focus finds a volume.
    if (GetWindowTextLength() == 0 && !m_strSaved.empty()) SetWindowText(m_strSaved.c_str());
    m_keyboard.HideUnlessPointedAt();
    Default();
}

void CRichVolumeEdit::OnChar(UINT character, UINT, UINT) {
    if (character < '0' || character > '9') return;
    SelectNow();
    Default();
}

void CRichVolumeEdit::OnKeyDown(UINT key, UINT, UINT) {
    SelectNow();
    if (!orderentry::StepByKey(*this, key)) Default();
}

void CRichVolumeEdit::OnTimer(UINT_PTR id) {
    if (id != kSelectTimer) {
        Default();
        return;
    }
    SelectNow();
}

void CRichVolumeEdit::OnDestroy() {
    if (m_keyboard.GetSafeHwnd()) m_keyboard.DestroyWindow();
    CRichEditCtrl::OnDestroy();
}
