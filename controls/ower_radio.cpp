#include "controls/ower_radio.h"

#include <algorithm>

#include "plugin/contract/core_access.h"
#include "plugin/contract/messages.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr int kMarkCount = 8;
constexpr int kDisabledMark = 3;
constexpr int kCheckedMarks = 4;  // the first picture of those
constexpr int kGap = 4;           // between mark and text
constexpr int kRingGap = 2;       // between text and focus ring
constexpr int kRadioSkin = 73;
constexpr COLORREF kFocusRing = RGB(0x2F, 0x6D, 0xB3);
constexpr UINT kTextFormat = DT_LEFT | DT_VCENTER | DT_SINGLELINE;
constexpr UINT kKeyWasDown = 0x4000;  // in the flags of key messages

}  // namespace

BEGIN_MESSAGE_MAP(COwerRadio, CWnd)
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_MESSAGE(WM_LBUTTONDBLCLK, &ThisClass::OnSecondPress)
    ON_WM_MOUSEMOVE()
    ON_WM_KEYDOWN()
    ON_WM_KEYUP()
    ON_WM_CHAR()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_WM_ENABLE()
    ON_WM_GETDLGCODE()
    ON_MESSAGE(WM_MOUSELEAVE, &ThisClass::OnMouseLeave)
    ON_MESSAGE(WM_CAPTURECHANGED, &ThisClass::OnCaptureChanged)
    ON_MESSAGE(WM_SETTEXT, &ThisClass::OnSetText)
    ON_MESSAGE(WM_SETFONT, &ThisClass::OnSetFont)
    ON_MESSAGE(WM_GETFONT, &ThisClass::OnGetFont)
    ON_MESSAGE(BM_SETCHECK, &ThisClass::OnSetCheck)
    ON_MESSAGE(BM_GETCHECK, &ThisClass::OnGetCheck)
END_MESSAGE_MAP()

BOOL COwerRadio::Create(LPCSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    const LPCSTR window_class = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorA(nullptr, IDC_ARROW));
    return CWnd::Create(window_class, text, style | WS_CHILD, rect, parent, id);
}

HBITMAP COwerRadio::GetSkin() {
    CUICallBack* core = GetUICallBack();
    return core ? core->GetSkinBitmap(kSkinPages, kRadioSkin) : nullptr;
}

void COwerRadio::SetChecked(BOOL checked) {
    m_bChecked = checked ? TRUE : FALSE;
    if (m_hWnd) Invalidate();
}

void COwerRadio::SetOpaque(BOOL opaque) {
    m_bOpaque = opaque;
    if (m_hWnd) Invalidate();
}

void COwerRadio::ChangeState(int state) {
    m_nState = state;
    Invalidate();
}

void COwerRadio::OnClick() {
    if (!IsWindowEnabled()) return;
    clicking_ = true;
    SetFocus();
    clicking_ = false;
    if (m_bChecked) {
        Invalidate();
        return;
    }
    SetChecked(TRUE);
    ::SendMessageA(::GetParent(m_hWnd), WM_RADIO_CHECKED, Sender(), SenderId());
}

void COwerRadio::OnLButtonDown(UINT, CPoint) {
    SetCapture();
    m_bPressed = TRUE;
    ChangeState(kPressed);
}

// In a class with double clicks the second of two quick presses comes as one.
LRESULT COwerRadio::OnSecondPress(WPARAM wParam, LPARAM lParam) {
    OnLButtonDown(static_cast<UINT>(wParam), CPoint(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)));
    return 0;
}

void COwerRadio::OnLButtonUp(UINT, CPoint point) {
    const BOOL pressed = m_bPressed;
    m_bPressed = FALSE;  // before the capture goes, so that its loss ends nothing
    if (::GetCapture() == m_hWnd) ::ReleaseCapture();
    CRect client;
    GetClientRect(client);
    const bool clicked = pressed && client.PtInRect(point);
    ChangeState(clicked ? kHover : kNormal);
    if (clicked) TrackLeave();  // while captured the pointer may have left without a word
    if (clicked) OnClick();
}

void COwerRadio::TrackLeave() {
    TRACKMOUSEEVENT track{sizeof(track), TME_LEAVE, m_hWnd, 0};
    tracking_ = ::_TrackMouseEvent(&track);
}

void COwerRadio::OnMouseMove(UINT, CPoint) {
    if (tracking_ || m_bPressed) return;
    TrackLeave();
    ChangeState(kHover);
}

LRESULT COwerRadio::OnMouseLeave(WPARAM, LPARAM) {
    tracking_ = false;
    if (!m_bPressed) ChangeState(kNormal);
    return 0;
}

LRESULT COwerRadio::OnCaptureChanged(WPARAM, LPARAM) {
    if (m_bPressed) {
        m_bPressed = FALSE;
        ChangeState(kNormal);
    }
    return 0;
}

void COwerRadio::OnKeyDown(UINT key, UINT, UINT flags) {
    if (key == VK_SPACE && (flags & kKeyWasDown) == 0) OnClick();
}

void COwerRadio::OnSetFocus(CWnd*) {
    shows_focus_ = !clicking_;
    Invalidate();
}

// The class under a subclassed control would paint the text at once, over what stands here.
LRESULT COwerRadio::OnSetText(WPARAM wParam, LPARAM lParam) {
    const LRESULT answer = ::DefWindowProcA(m_hWnd, WM_SETTEXT, wParam, lParam);
    Invalidate();
    return answer;
}

LRESULT COwerRadio::OnSetFont(WPARAM wParam, LPARAM lParam) {
    font_ = reinterpret_cast<HFONT>(wParam);
    if (LOWORD(lParam) != 0) Invalidate();
    return 0;
}

LRESULT COwerRadio::OnGetFont(WPARAM, LPARAM) {
    return font_ ? reinterpret_cast<LRESULT>(font_) : Default();
}

LRESULT COwerRadio::OnSetCheck(WPARAM wParam, LPARAM) {
    SetChecked(wParam == BST_CHECKED);
    return 0;
}

LRESULT COwerRadio::OnGetCheck(WPARAM, LPARAM) { return m_bChecked ? BST_CHECKED : BST_UNCHECKED; }

// All painting is the erasing's; here it is called for, and the update region ends.
void COwerRadio::OnPaint() { const CPaintDC dc(this); }

BOOL COwerRadio::OnEraseBkgnd(CDC* dc) {
    CRect client;
    GetClientRect(client);
    MemorySurface surface;
    if (!surface.Create(*dc, client.Size())) return TRUE;
    PaintGround(surface.dc(), client);
    CRect text = client;
    text.left += PaintMark(surface.dc(), client);
    PaintText(surface.dc(), text);
    surface.CopyTo(*dc);
    return TRUE;
}

void COwerRadio::PaintGround(HDC dc, const CRect& client) {
    const HWND parent = ::GetParent(m_hWnd);
    const auto brush = reinterpret_cast<HBRUSH>(::SendMessageA(
        parent, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(m_hWnd)));
    ::FillRect(dc, client, ::GetSysColorBrush(COLOR_3DFACE));
    if (brush) ::FillRect(dc, client, brush);
    if (m_bOpaque) return;
    m_background.TakeOnce(*this, parent);
    m_background.CopyTo(dc);
}

/// Answers where the text may begin.
int COwerRadio::PaintMark(HDC dc, const CRect& client) {
    const HBITMAP skin = GetSkin();
    BITMAP info{};
    if (!skin || ::GetObjectA(skin, sizeof(info), &info) == 0) return 0;
    const int width = info.bmWidth / kMarkCount;
    const int height = info.bmHeight;
    if (width < 1 || height < 1) return 0;
    const int picture =
        (IsWindowEnabled() ? m_nState : kDisabledMark) + (m_bChecked ? kCheckedMarks : 0);
    CDC marks;
    marks.Attach(::CreateCompatibleDC(dc));
    const toolkit::ScopedSelect select(marks, skin);
    const BLENDFUNCTION over{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    ::AlphaBlend(dc, 0, (client.Height() - height) / 2, width, height, marks, picture * width, 0,
                 width, height, over);
    return width + kGap;
}

void COwerRadio::PaintText(HDC dc, CRect rect) {
    char text[256] = "";
    GetWindowText(text, sizeof(text));
    const toolkit::ScopedSelect font(dc, reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
    ::SetBkMode(dc, TRANSPARENT);
    if (!IsWindowEnabled()) ::SetTextColor(dc, ::GetSysColor(COLOR_GRAYTEXT));
    ::DrawTextA(dc, text, -1, rect, kTextFormat);
    if (!shows_focus_ || ::GetFocus() != m_hWnd || !IsWindowEnabled()) return;
    CRect ring = rect;
    ::DrawTextA(dc, text, -1, ring, kTextFormat | DT_CALCRECT);
    const int height = ring.Height();
    ring.top = std::max(rect.top + (rect.Height() - height) / 2 - kRingGap, rect.top);
    ring.bottom = std::min(ring.top + height + 2 * kRingGap, rect.bottom);
    ring.left -= kRingGap;
    ring.right += kRingGap;
    ::FrameRect(dc, ring, CBrush(kFocusRing));
}
