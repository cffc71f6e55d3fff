#include "controls/track_button.h"

#include "controls/memory_surface.h"

BEGIN_MESSAGE_MAP(CTrackButton, CButton)
    ON_WM_MOUSEMOVE()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_LBUTTONUP()
    ON_WM_KILLFOCUS()
    ON_WM_ENABLE()
    ON_WM_ERASEBKGND()
    ON_MESSAGE(WM_MOUSELEAVE, &CTrackButton::OnMouseLeave)
    ON_MESSAGE(WM_CAPTURECHANGED, &CTrackButton::OnCaptureChanged)
END_MESSAGE_MAP()

namespace {

constexpr DWORD kTypeBits = 0xF;
constexpr UINT kFocusBit = 8;
constexpr LPARAM kRepeated = 1 << 30;  ///< of a key's message: it was down before

}  // namespace

BOOL CTrackButton::Create(LPCSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create("BUTTON", text, (style & ~kTypeBits) | BS_OWNERDRAW | WS_CHILD, rect,
                        parent, id);
}

void CTrackButton::PreSubclassWindow() {
    CButton::PreSubclassWindow();
    if ((GetStyle() & kTypeBits) != BS_OWNERDRAW) ModifyStyle(kTypeBits, BS_OWNERDRAW);
    Invalidate();
}

std::string CTrackButton::Caption() const {
    const int length = GetWindowTextLength();
    std::string caption(static_cast<std::size_t>(length) + 1, '\0');
    caption.resize(static_cast<std::size_t>(GetWindowText(caption.data(), length + 1)));
    return caption;
}

void CTrackButton::ChangeState(int state) {
    m_nState = state;
    Invalidate(FALSE);
}

int CTrackButton::ShownState() const {
    if (!IsWindowEnabled()) return kDisabled;
    if (m_nState == kPressed || m_nState == kDisabled) return m_nState;
    return IsDefault() || (GetState() & kFocusBit) != 0 ? kHover : m_nState;
}

BOOL CTrackButton::PreTranslateMessage(MSG* message) {
    const bool presses = message->wParam == VK_RETURN || message->wParam == VK_SPACE;
    const bool repeated = (message->lParam & kRepeated) != 0;
    if (message->message == WM_KEYDOWN && presses && repeated) return TRUE;
    return CButton::PreTranslateMessage(message);
}

void CTrackButton::DrawItem(LPDRAWITEMSTRUCT item) {
    const CRect client(item->rcItem);
    MemorySurface surface;
    if (!surface.Create(item->hDC, client.Size())) return;
    CDC dc;
    dc.Attach(surface.dc());
    // What a picture leaves free shows the parent's ground.
    const HWND parent = ::GetParent(m_hWnd);
    const auto ground = reinterpret_cast<HBRUSH>(
        ::SendMessageA(parent, WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(surface.dc()),
                       reinterpret_cast<LPARAM>(m_hWnd)));
    if (ground) dc.FillRect(&client, ground);
    dc.SetBkMode(TRANSPARENT);
    const toolkit::ScopedSelect font(dc, reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
    PaintState(dc, client, ShownState());
    dc.Detach();
    surface.CopyTo(item->hDC);
}

void CTrackButton::OnMouseMove(UINT, CPoint point) {
    if (m_nState == kInert) return;
    if (!m_bOverButton) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE | TME_HOVER, m_hWnd, HOVER_DEFAULT};
        m_bOverButton = _TrackMouseEvent(&track) != FALSE;
        ChangeState(kHover);
    }
    OnHover(point);
    Default();
}

void CTrackButton::OnLButtonDown(UINT, CPoint) {
    if (m_nState == kInert) return;
    if (FocusOnPress() && ::GetFocus() != m_hWnd) SetFocus();
    m_bPressing = true;
    ChangeState(kPressed);
    Default();
}

// Of two quick presses the second comes as this message; to a person it is a press.
void CTrackButton::OnLButtonDblClk(UINT flags, CPoint point) {
    SendMessage(WM_LBUTTONDOWN, flags, MAKELPARAM(point.x, point.y));
}

void CTrackButton::OnLButtonUp(UINT, CPoint point) {
    if (m_nState == kInert) return;
    m_bPressing = false;
    CRect client;
    GetClientRect(&client);
    if (client.PtInRect(point)) {
        ChangeState(kNormal);
    } else {
        EndPress();
    }
    // The click is sent from in there, and may end the window.
    Default();
}

void CTrackButton::OnKillFocus(CWnd*) {
    Default();
    if (m_nState != kInert) ChangeState(kNormal);
}

void CTrackButton::OnEnable(BOOL enable) {
    Default();
    if (enable) {
        Invalidate(FALSE);
        return;
    }
    if (::GetCapture() == m_hWnd) ::ReleaseCapture();
    OnMouseLeave(0, 0);
}

LRESULT CTrackButton::OnMouseLeave(WPARAM, LPARAM) {
    m_bOverButton = false;
    if (m_nState != kInert) ChangeState(kNormal);
    OnUnhover();
    return 0;
}

// A press of a button that holds the mouse already announces itself as a loss to the same window.
LRESULT CTrackButton::OnCaptureChanged(WPARAM, LPARAM winner) {
    if (m_bPressing && reinterpret_cast<HWND>(winner) != m_hWnd) {
        m_bPressing = false;
        EndPress();
    }
    return Default();
}

void controls::PaintCaption(const CDC& dc, const CRect& rect, const std::string& caption,
                            COLORREF color) {
    CRect place(rect);
    dc.SetTextColor(color);
    dc.DrawText(caption.c_str(), static_cast<int>(caption.size()), &place,
                DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}
