#include "orderentry/price_edit_ex.h"

#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

BEGIN_MESSAGE_MAP(CPriceEditEx, CDialog)
    ON_WM_SIZE()
    ON_WM_ERASEBKGND()
END_MESSAGE_MAP()

namespace {

constexpr int kMinusSkin = 68;
constexpr int kPlusSkin = 69;
constexpr int kSkinStates = 4;
constexpr int kStateTable[kSkinStates] = {0, 1, 2, 3};

int LineHeight(CWnd& window, const CFont& font) {
    const CClientDC dc(&window);
    const toolkit::ScopedSelect select(dc, font);
    TEXTMETRICA metrics{};
    dc.GetTextMetrics(&metrics);
    return metrics.tmHeight;
}

}  // namespace

CPriceEditEx::~CPriceEditEx() {
    if (GetSafeHwnd()) DestroyWindow();
}

bool CPriceEditEx::CreateOver(CWnd& page, int place_holder) {
    const CWnd* const control = page.GetDlgItem(place_holder);
    if (!control || !Create(IDD, &page)) return false;
    CRect place;
    control->GetWindowRect(&place);
    page.ScreenToClient(&place);
    ::SetWindowPos(m_hWnd, HWND_BOTTOM, place.left, place.top, place.Width(), place.Height(),
                   SWP_NOACTIVATE | SWP_SHOWWINDOW);
    return true;
}

BOOL CPriceEditEx::OnInitDialog() {
    CDialog::OnInitDialog();
    ModifyStyle(WS_CLIPSIBLINGS, 0);
    // As the other inputs of its page; the longest price word fits between the buttons.
    m_font.CreateFont(12, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "宋体");
    m_nTextHeight = LineHeight(*this, m_font);
    MakeButton(m_btnMinus, kMinus, kMinusSkin);
    m_pEdit = CreateInnerEdit(m_nEditId);
    MakeButton(m_btnPlus, kPlus, kPlusSkin);
    m_spin.CreateEx(0, "msctls_updown32", "", WS_CHILD, CRect(0, 0, 0, 0), this,
                    static_cast<UINT>(m_nSpinId));
    if (m_pEdit) m_pEdit->SetFont(&m_font, FALSE);
    CRect client;
    GetClientRect(&client);
    LayOut(client.Width(), client.Height());
    // The page decides who gets the focus.
    return FALSE;
}

void CPriceEditEx::MakeButton(CBmpButton& button, int id, int skin_index) {
    button.CWnd::Create("BUTTON", "", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, CRect(0, 0, 0, 0), this,
                        static_cast<UINT>(id));
    CUICallBack* const core = GetUICallBack();
    const HBITMAP skin = core ? core->GetSkinBitmap(kSkinPages, skin_index) : nullptr;
    button.SetSkin(skin, kSkinStates, kStateTable, FALSE);
}

void CPriceEditEx::OnLayout(int) {}

void CPriceEditEx::OnClickOutside(int, int) {}

BOOL CPriceEditEx::PreTranslateMessage(MSG*) { return FALSE; }

void CPriceEditEx::LayOut(int width, int height) {
    const int button = height - 2;
    const int y = (height - m_nTextHeight) / 2;
    m_btnMinus.MoveWindow(1, 1, button, button);
    if (m_pEdit) m_pEdit->MoveWindow(height - 1, y, width - (2 * height - 2), m_nTextHeight);
    m_btnPlus.MoveWindow(width - height + 1, 1, button, button);
    OnLayout(y);
}

void CPriceEditEx::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    if (m_btnPlus.GetSafeHwnd()) LayOut(cx, cy);
}

BOOL CPriceEditEx::OnEraseBkgnd(CDC* dc) {
    CRect client;
    GetClientRect(&client);
    dc->FillSolidRect(client, m_crBack);
    // The edit fills no more than its line, so that the frame has to tell of the focus.
    const bool focused = m_pEdit && ::GetFocus() == m_pEdit->m_hWnd;
    const CBrush frame(focused ? ::GetSysColor(COLOR_HIGHLIGHT) : m_crFrame);
    dc->FrameRect(&client, frame);
    return TRUE;
}

void CPriceEditEx::Step(int direction) { NotifyStep(direction > 0 ? -1 : 1); }

// An up-down control reports 1 for down and -1 for up; the page moves its value the other way.
void CPriceEditEx::NotifyStep(int delta) {
    NMUPDOWN step{};
    step.hdr.hwndFrom = m_spin;
    step.hdr.idFrom = static_cast<UINT_PTR>(m_nSpinId);
    step.hdr.code = static_cast<UINT>(UDN_DELTAPOS);
    step.iDelta = delta;
    GetParent()->SendMessage(WM_NOTIFY, step.hdr.idFrom, reinterpret_cast<LPARAM>(&step));
}

void CPriceEditEx::TellPage(int code) {
    GetParent()->SendMessage(WM_COMMAND, MAKEWPARAM(m_nEditId, code),
                             reinterpret_cast<LPARAM>(m_pEdit->GetSafeHwnd()));
}

void CPriceEditEx::EnableButtons() {
    m_btnMinus.EnableWindow(TRUE);
    m_btnPlus.EnableWindow(TRUE);
}

BOOL CPriceEditEx::OnCommand(WPARAM wParam, LPARAM lParam) {
    const int id = LOWORD(wParam);
    const int code = HIWORD(wParam);
    if (id == m_nEditId && (code == EN_SETFOCUS || code == EN_KILLFOCUS)) Invalidate();
    if (id == kMinus && code == BN_CLICKED) {
        Step(-1);
    } else if (id == kPlus && code == BN_CLICKED) {
        Step(1);
    } else if (id == m_nEditId && m_pEdit && (code == EN_CHANGE || code == EN_KILLFOCUS)) {
        TellPage(code);
    } else {
        return CDialog::OnCommand(wParam, lParam);
    }
    return TRUE;
}

bool orderentry::StepByKey(const CWnd& edit, UINT key) {
    if (key != VK_UP && key != VK_DOWN) return false;
    auto* const composite = dynamic_cast<CPriceEditEx*>(edit.GetParent());
    if (!composite) return false;
    composite->Step(key == VK_UP ? 1 : -1);
    return true;
}
