#include "orderentry/key_board_dlg.h"

#include <string>

#include "orderentry/soft_key_text.h"
#include "plugin/contract/messages.h"

namespace {

/// Lets the text of a password edit be read while it lives.
class ReadPermission {
public:
    explicit ReadPermission(HWND edit) : edit_(edit) {
        ::SendMessageA(edit_, WM_KEYBOARD_READ, 1, 0);
    }
    ~ReadPermission() { ::SendMessageA(edit_, WM_KEYBOARD_READ, 0, 0); }
    ReadPermission(const ReadPermission&) = delete;
    ReadPermission& operator=(const ReadPermission&) = delete;

private:
    HWND edit_;
};

std::string ReadText(HWND edit) {
    const ReadPermission permission(edit);
    char text[orderentry::kSoftKeyTextMax + 1] = {};
    ::GetWindowTextA(edit, text, sizeof text);
    return text;
}

}  // namespace

CKeyBoardDlg::~CKeyBoardDlg() {
    if (GetSafeHwnd()) DestroyWindow();
}

void CKeyBoardDlg::Open(CWnd& edit) {
    if (m_hOwner && m_hOwner != edit.m_hWnd) Close();
    if (!GetSafeHwnd() && !Create(IDD, &edit)) return;
    m_hOwner = edit;
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
    if (!m_hOwner) return;
    const HWND edit = m_hOwner;
    m_hOwner = nullptr;
    if (GetSafeHwnd()) ShowWindow(SW_HIDE);
    if (::IsWindow(edit)) ::PostMessageA(edit, WM_KEYBOARD_READ, 0, 0);
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
    // Its edit may be gone with a page; then there is nothing left but to close.
    if (!::IsWindow(m_hOwner)) {
        Close();
        return TRUE;
    }
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
    const std::string text = ReadText(m_hOwner);
    // Setting what was read would cut a longer text.
    if (text.size() >= orderentry::kSoftKeyTextMax) return;
    orderentry::SetSoftKeyText(m_hOwner, orderentry::WithKey(text, caption[0]));
}

void CKeyBoardDlg::OnBackspace() {
    const std::string text = ReadText(m_hOwner);
    if (!text.empty()) orderentry::SetSoftKeyText(m_hOwner, orderentry::WithoutLastKey(text));
}

void CKeyBoardDlg::OnCase() {
    m_bUpper = !m_bUpper;
    ShowCaptions();
}

void CKeyBoardDlg::OnEnter() {
    if (const HWND parent = ::GetParent(m_hOwner)) ::PostMessageA(parent, WM_KEYBOARD_READ, 0, 0);
}
