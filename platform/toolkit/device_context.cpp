#include "platform/toolkit/device_context.h"

#include "platform/toolkit/wnd.h"

namespace {

HWND HandleOf(const CWnd* window) { return window != nullptr ? window->m_hWnd : nullptr; }

}  // namespace

CDC::~CDC() { DeleteDC(); }

BOOL CDC::Attach(HDC dc) {
    m_hDC = dc;
    return dc != nullptr;
}

HDC CDC::Detach() {
    HDC dc = m_hDC;
    m_hDC = nullptr;
    return dc;
}

BOOL CDC::CreateCompatibleDC(const CDC* like) {
    return Attach(::CreateCompatibleDC(like != nullptr ? like->m_hDC : nullptr));
}

BOOL CDC::DeleteDC() { return m_hDC != nullptr && ::DeleteDC(Detach()); }

CSize CDC::GetTextExtent(LPCSTR text, int count) const {
    CSize size;
    ::GetTextExtentPoint32A(m_hDC, text, count, &size);
    return size;
}

void CDC::FillSolidRect(const RECT& rect, COLORREF color) const {
    const CBrush brush(color);
    ::FillRect(m_hDC, &rect, brush);
}

int CDC::IntersectClipRect(LPCRECT rect) const {
    return ::IntersectClipRect(m_hDC, rect->left, rect->top, rect->right, rect->bottom);
}

CPaintDC::CPaintDC(CWnd* window) : window_(HandleOf(window)) {
    Attach(::BeginPaint(window_, &m_ps));
}

CPaintDC::~CPaintDC() {
    Detach();
    ::EndPaint(window_, &m_ps);
}

CClientDC::CClientDC(CWnd* window) : window_(HandleOf(window)) { Attach(::GetDC(window_)); }

CClientDC::~CClientDC() { ::ReleaseDC(window_, Detach()); }

CWindowDC::CWindowDC(CWnd* window) : window_(HandleOf(window)) { Attach(::GetWindowDC(window_)); }

CWindowDC::~CWindowDC() { ::ReleaseDC(window_, Detach()); }
