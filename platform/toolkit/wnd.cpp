#include "platform/toolkit/wnd.h"

#include <cassert>

#include "platform/toolkit/app.h"
#include "platform/toolkit/thread_state.h"

namespace {

HWND HandleOf(const CWnd* window) { return window != nullptr ? window->m_hWnd : nullptr; }

/// Drops visiting objects of windows that are gone, each time their number has doubled.
void DropVisitors(toolkit::ThreadState& state) {
    static thread_local std::size_t limit = 64;
    if (state.visitors.size() < limit) return;
    std::erase_if(state.visitors, [](auto& visitor) {
        if (::IsWindow(visitor.first)) return false;
        visitor.second->m_hWnd = nullptr;
        return true;
    });
    limit = state.visitors.size() * 2 + 64;
}

}  // namespace

CWnd::~CWnd() {
    if (m_hWnd != nullptr) CWnd::DestroyWindow();
    for (toolkit::CallFrame* frame = frames_; frame != nullptr; frame = frame->outer_) {
        frame->window_ = nullptr;
    }
    font_.Detach();
}

CWnd* CWnd::FromHandle(HWND handle) {
    if (handle == nullptr) return nullptr;
    if (CWnd* window = FromHandlePermanent(handle)) return window;
    toolkit::ThreadState& state = toolkit::State();
    DropVisitors(state);
    std::unique_ptr<CWnd>& visitor = state.visitors[handle];
    if (visitor == nullptr) {
        visitor = std::make_unique<CWnd>();
        visitor->m_hWnd = handle;
    }
    return visitor.get();
}

CWnd* CWnd::FromHandlePermanent(HWND handle) {
    const auto& windows = toolkit::State().windows;
    const auto found = windows.find(handle);
    return found != windows.end() ? found->second : nullptr;
}

BOOL CWnd::Create(LPCSTR class_name, LPCSTR text, DWORD style, const RECT& rect, CWnd* parent,
                  UINT id) {
    return CreateEx(0, class_name, text, style | WS_CHILD, rect, parent, id);
}

BOOL CWnd::CreateEx(DWORD ex_style, LPCSTR class_name, LPCSTR text, DWORD style, const RECT& rect,
                    CWnd* parent, UINT id, LPVOID parameter) {
    const CRect place(rect);
    return CreateEx(ex_style, class_name, text, style, place.left, place.top, place.Width(),
                    place.Height(), HandleOf(parent),
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), parameter);
}

BOOL CWnd::CreateEx(DWORD ex_style, LPCSTR class_name, LPCSTR text, DWORD style, int x, int y,
                    int width, int height, HWND parent, HMENU menu_or_id, LPVOID parameter) {
    assert(m_hWnd == nullptr && "an object has one window at a time");
    CREATESTRUCT create{};
    create.dwExStyle = ex_style;
    create.lpszClass = class_name;
    create.lpszName = text;
    create.style = static_cast<LONG>(style);
    create.x = x;
    create.y = y;
    create.cx = width;
    create.cy = height;
    create.hwndParent = parent;
    create.hMenu = menu_or_id;
    create.hInstance = AfxGetInstanceHandle();
    create.lpCreateParams = parameter;
    if (!PreCreateWindow(create)) return FALSE;

    const toolkit::CallFrame frame(*this);
    const toolkit::CreationScope scope(*this);
    return ::CreateWindowExA(create.dwExStyle, create.lpszClass, create.lpszName,
                             static_cast<DWORD>(create.style), create.x, create.y, create.cx,
                             create.cy, create.hwndParent, create.hMenu, create.hInstance,
                             create.lpCreateParams) != nullptr;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& create) {
    if (create.lpszClass == nullptr) {
        create.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorA(nullptr, IDC_ARROW));
    }
    return create.lpszClass != nullptr;
}

BOOL CWnd::DestroyWindow() {
    if (m_hWnd == nullptr) return FALSE;
    // A window whose messages are not taken can't say when it goes.
    const HWND handle = former_procedure_ != nullptr ? m_hWnd : Detach();
    return ::DestroyWindow(handle);  // may end this object
}

void CWnd::Bind(HWND handle) {
    m_hWnd = handle;
    module_ = AfxGetModuleState();
    left_ = false;
    toolkit::State().windows[handle] = this;
    toolkit::UpdateFilter();
}

void CWnd::TakeMessages() {
    PreSubclassWindow();
    const auto procedure = reinterpret_cast<LONG_PTR>(&toolkit::WindowProcedure);
    former_procedure_ =
        reinterpret_cast<WNDPROC>(::SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, procedure));
}

BOOL CWnd::Attach(HWND handle) {
    if (handle == nullptr) return FALSE;
    assert(m_hWnd == nullptr && FromHandlePermanent(handle) == nullptr &&
           "a window has one object and an object one window");
    Bind(handle);
    return TRUE;
}

HWND CWnd::Detach() {
    const HWND handle = m_hWnd;
    if (handle == nullptr) return nullptr;
    toolkit::State().windows.erase(handle);
    m_hWnd = nullptr;
    toolkit::UpdateFilter();
    return handle;
}

BOOL CWnd::SubclassWindow(HWND handle) {
    const bool left = toolkit::State().left_behind.contains(handle);
    if (!::IsWindow(handle) || left || !Attach(handle)) return FALSE;
    TakeMessages();
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
    return SubclassWindow(::GetDlgItem(HandleOf(parent), static_cast<int>(id)));
}

HWND CWnd::UnsubclassWindow() {
    const HWND handle = Detach();
    const WNDPROC procedure = former_procedure_;
    former_procedure_ = nullptr;
    if (procedure == nullptr) return handle;
    const bool outermost = ::GetWindowLongPtrA(handle, GWLP_WNDPROC) ==
                           reinterpret_cast<LONG_PTR>(&toolkit::WindowProcedure);
    if (outermost) {
        ::SetWindowLongPtrA(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    } else {
        // Who took the messages after us goes on handing them to our procedure.
        toolkit::State().left_behind[handle] = procedure;
    }
    return handle;
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT position_flags) {
    const DWORD style = GetStyle();
    const DWORD changed = (style & ~remove) | add;
    if (changed == style) return FALSE;
    ::SetWindowLongA(m_hWnd, GWL_STYLE, static_cast<LONG>(changed));
    if (position_flags != 0) {
        ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0,
                       position_flags | SWP_FRAMECHANGED | SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER |
                           SWP_NOACTIVATE);
    }
    return TRUE;
}

void CWnd::MoveWindow(LPCRECT rect, BOOL repaint) {
    MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
}

BOOL CWnd::SetWindowPos(const CWnd* insert_after, int x, int y, int width, int height, UINT flags) {
    return ::SetWindowPos(m_hWnd, HandleOf(insert_after), x, y, width, height, flags);
}

void CWnd::ClientToScreen(LPRECT rect) const {
    ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<LPPOINT>(rect), 2);
}

void CWnd::ScreenToClient(LPRECT rect) const {
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<LPPOINT>(rect), 2);
}

void CWnd::CenterWindow() {
    CRect work;
    ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    const HWND parent = ::GetParent(m_hWnd);
    const bool child = (GetStyle() & WS_CHILD) != 0;
    CRect over = work;
    if (child) {
        ::GetClientRect(parent, over);
        work = over;
    } else if (parent != nullptr && ::IsWindowVisible(parent)) {
        ::GetWindowRect(parent, over);
    }

    CRect own;
    GetWindowRect(own);
    const CPoint middle = over.CenterPoint();
    int x = middle.x - own.Width() / 2;
    int y = middle.y - own.Height() / 2;
    if (x + own.Width() > work.right) x = work.right - own.Width();
    if (y + own.Height() > work.bottom) y = work.bottom - own.Height();
    if (x < work.left) x = work.left;
    if (y < work.top) y = work.top;
    ::SetWindowPos(m_hWnd, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

CDC* CWnd::GetDC() {
    auto* dc = new CDC;
    dc->Attach(::GetDC(m_hWnd));
    return dc;
}

CDC* CWnd::GetWindowDC() {
    auto* dc = new CDC;
    dc->Attach(::GetWindowDC(m_hWnd));
    return dc;
}

int CWnd::ReleaseDC(CDC* dc) {
    const std::unique_ptr<CDC> owned(dc);
    return ::ReleaseDC(m_hWnd, dc->Detach());
}

void CWnd::SetFont(const CFont* font, BOOL redraw) {
    const HGDIOBJ handle = font != nullptr ? font->m_hObject : nullptr;
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(handle), MAKELPARAM(redraw, 0));
}

CFont* CWnd::GetFont() {
    font_.m_hObject = reinterpret_cast<HGDIOBJ>(SendMessage(WM_GETFONT));
    return font_.m_hObject != nullptr ? &font_ : nullptr;
}

int CWnd::MessageBox(LPCSTR text, LPCSTR title, UINT flags) {
    const CWinApp* app = AfxGetApp();
    if (title == nullptr && app != nullptr) title = app->m_pszAppName;
    return ::MessageBoxA(m_hWnd, text, title, flags);
}
