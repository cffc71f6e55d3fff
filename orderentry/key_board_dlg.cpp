#include "orderentry/key_board_dlg.h"

#include <string>

#include "orderentry/soft_key_text.h"
#include "plugin/contract/messages.h"

namespace {

/// Lets the text of a password edit be read while it lives.
class ReadPermission {
public:
    explicit ReadPermission(CWnd& edit) : edit_(edit) { edit_.SendMessage(WM_KEYBOARD_READ, 1); }
    ~ReadPermission() { edit_.SendMessage(WM_KEYBOARD_READ, 0); }
    ReadPermission(const ReadPermission&) = delete;
    ReadPermission& operator=(const ReadPermission&) = delete;

private:
    CWnd& edit_;
};

std::string ReadText(CWnd& edit) {
    const ReadPermission permission(edit);
    char text[orderentry::kSoftKeyTextMax + 1] = {};
    edit.GetWindowText(text, sizeof text);
    return text;
}

}  // namespace

CKeyBoardDlg::~CKeyBoardDlg() {
    if (GetSafeHwnd()) DestroyWindow();
}

void CKeyBoardDlg::Open(CWnd& edit) {
    if (m_pOwner && m_pOwner != &edit) Close();
    if (!GetSafeHwnd() && !Create(IDD, &edit)) return;
    m_pOwner = &edit;
    Shuffle();
    ShowCaptions();
    CRect place;
    CRect own;
    edit.GetWindowRect(&place);
    GetWindowRect(&own);
    Place(CPoint(place.right - own.Width(), place.bottom + 2));
}

void CKeyBoardDlg::Place(CPoint corner) {
    ::SetWindowPos(m_hWnd, HWND_TOP, corner.x, corner.y, 0, 0,
                   SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void CKeyBoardDlg::Close() {
    if (!m_pOwner) return;
    CWnd* const edit = m_pOwner;
    m_pOwner = nullptr;
    ShowWindow(SW_HIDE);
    if (edit->GetSafeHwnd()) edit->PostMessage(WM_KEYBOARD_READ, 0);
}

BOOL CKeyBoardDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    // The edit keeps the focus.
    return FALSE;
}

void CKeyBoardDlg::Shuffle() {
    std::uint32_t seed = GetTickCount();
    orderentry::ShuffleKeys('0', kDigits, seed, m_szDigits);
    orderentry::ShuffleKeys('a', kLetters, seed, m_szLetters);
}

void CKeyBoardDlg::ShowCaptions() {
    SetDlgItemText(kCase, m_bUpper ? "小    写" : "大    写");
    char caption[2] = {};
    for (int slot = 0; slot < kDigits; ++slot) {
        caption[0] = m_szDigits[slot];
        SetDlgItemText(kFirstDigit + slot, caption);
    }
    for (int slot = 0; slot < kLetters; ++slot) {
        caption[0] =
            m_bUpper ? static_cast<char>(m_szLetters[slot] - 'a' + 'A') : m_szLetters[slot];
        SetDlgItemText(kFirstLetter + slot, caption);
    }
}

BOOL CKeyBoardDlg::OnCommand(WPARAM wParam, LPARAM lParam) {
    const int id = LOWORD(wParam);
    if (HIWORD(wParam) != BN_CLICKED || id < kFirstDigit || id > kEnter) {
        return CDialog::OnCommand(wParam, lParam);
    }
    if (!m_pOwner || !m_pOwner->GetSafeHwnd()) return TRUE;
    switch (id) {
        case kBackspace: OnBackspace(); break;
        case kCase: OnCase(); break;
        case kHide: Close(); break;
        case kEnter: OnEnter(); break;
        default: OnKey(id); break;
    }
    return TRUE;
}

void CKeyBoardDlg::OnKey(int id) {
    char caption[8] = {};
    GetDlgItemText(id, caption, sizeof caption);
    if (caption[0] == '\0') return;
    m_pOwner->SetWindowText(orderentry::WithKey(ReadText(*m_pOwner), caption[0]).c_str());
}

void CKeyBoardDlg::OnBackspace() {
    const std::string text = ReadText(*m_pOwner);
    if (!text.empty()) m_pOwner->SetWindowText(orderentry::WithoutLastKey(text).c_str());
}

void CKeyBoardDlg::OnCase() {
    m_bUpper = !m_bUpper;
    ShowCaptions();
}

void CKeyBoardDlg::OnEnter() {
    if (CWnd* const parent = m_pOwner->GetParent()) parent->PostMessage(WM_KEYBOARD_READ);
}
