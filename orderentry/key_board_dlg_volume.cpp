#include "orderentry/key_board_dlg_volume.h"

#include <algorithm>

#include "orderentry/soft_key_text.h"

BEGIN_MESSAGE_MAP(CKeyBoardDlgVolume, CDialog)
    ON_WM_DRAWITEM()
END_MESSAGE_MAP()

namespace {

constexpr int kFirstPainted = 10008;
constexpr int kLastPainted = 10047;
constexpr COLORREF kCaption = 0xFF0000;
constexpr COLORREF kKeyGround = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF kKeyPressed = RGB(0xE1, 0xE6, 0xEC);
constexpr COLORREF kKeyFrame = RGB(0xCC, 0xD7, 0xE0);

std::string TextOf(HWND window, int max) {
    std::string text(static_cast<std::size_t>(max) + 1, '\0');
    text.resize(static_cast<std::size_t>(::GetWindowTextA(window, text.data(), max + 1)));
    return text;
}

}  // namespace

CKeyBoardDlgVolume::~CKeyBoardDlgVolume() {
    if (GetSafeHwnd()) DestroyWindow();
}

bool CKeyBoardDlgVolume::HasPresets() const {
    return std::any_of(m_presets.begin(), m_presets.end(),
                       [](const std::string& preset) { return !preset.empty(); });
}

void CKeyBoardDlgVolume::Open(CWnd& edit, const CWnd* anchor) {
    if (!GetSafeHwnd() && !Create(IDD, &edit)) return;
    m_hOwner = edit;
    ShowCaptions();
    CRect place;
    (anchor ? *anchor : edit).GetWindowRect(&place);
    ::SetWindowPos(m_hWnd, HWND_TOP, place.left, place.bottom - 2, 0, 0,
                   SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void CKeyBoardDlgVolume::HideUnlessPointedAt() {
    if (!GetSafeHwnd() || !IsWindowVisible()) return;
    CPoint pointer;
    CRect place;
    GetCursorPos(&pointer);
    GetWindowRect(&place);
    if (!place.PtInRect(pointer)) ShowWindow(SW_HIDE);
}

BOOL CKeyBoardDlgVolume::OnInitDialog() {
    CDialog::OnInitDialog();
    return FALSE;
}

void CKeyBoardDlgVolume::ShowCaptions() {
    for (std::size_t key = 0; key < m_presets.size(); ++key) {
        SetDlgItemText(kPresets[key], m_presets[key].c_str());
    }
}

BOOL CKeyBoardDlgVolume::OnCommand(WPARAM wParam, LPARAM lParam) {
    const int id = LOWORD(wParam);
    const bool is_preset =
        std::find(std::begin(kPresets), std::end(kPresets), id) != std::end(kPresets);
    if (HIWORD(wParam) != BN_CLICKED || (!is_preset && id != kBackspace)) {
        return CDialog::OnCommand(wParam, lParam);
    }
    if (!::IsWindow(m_hOwner)) return TRUE;
    is_preset ? OnPreset(id) : OnBackspace();
    return TRUE;
}

void CKeyBoardDlgVolume::OnPreset(int id) {
    constexpr int kLongest = 15;
    const std::string caption = TextOf(::GetDlgItem(m_hWnd, id), kLongest);
    if (caption.empty()) return;
    orderentry::SetSoftKeyText(m_hOwner, caption);
    if (GetSafeHwnd()) ShowWindow(SW_HIDE);
}

void CKeyBoardDlgVolume::OnBackspace() {
    const std::string text = TextOf(m_hOwner, static_cast<int>(orderentry::kSoftKeyTextMax));
    if (!text.empty()) orderentry::SetSoftKeyText(m_hOwner, orderentry::WithoutLastCharacter(text));
}

void CKeyBoardDlgVolume::OnDrawItem(int id, LPDRAWITEMSTRUCT item) {
    if (id < kFirstPainted || id > kLastPainted) {
        CDialog::OnDrawItem(id, item);
        return;
    }
    CDC dc;
    dc.Attach(item->hDC);
    CRect key(item->rcItem);
    CBrush ground((item->itemState & ODS_SELECTED) != 0 ? kKeyPressed : kKeyGround);
    CBrush frame(kKeyFrame);
    dc.FillRect(&key, ground);
    dc.FrameRect(&key, frame);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(kCaption);
    const std::string caption = TextOf(::GetDlgItem(m_hWnd, id), 31);
    dc.DrawText(caption.c_str(), -1, &key, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    dc.Detach();
}
