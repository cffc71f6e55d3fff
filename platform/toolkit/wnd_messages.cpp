#include "platform/toolkit/data_exchange.h"
#include "platform/toolkit/thread_state.h"
#include "platform/toolkit/wnd.h"

namespace {

/// The number under which a message stands in maps.
UINT MapNumber(UINT message) {
    const bool colours = message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
    return colours ? toolkit::kCtlColor : message;
}

}  // namespace

// Messages about a control that its parent does not handle go back to the control.
BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
    ON_WM_CTLCOLOR()
    ON_WM_DRAWITEM()
    ON_WM_MEASUREITEM()
END_MESSAGE_MAP()

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCDESTROY) return Leave(wParam, lParam);
    LRESULT result = 0;
    if (OnWndMsg(message, wParam, lParam, &result)) return result;
    return DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (former_procedure_ == nullptr) return ::DefWindowProcA(m_hWnd, message, wParam, lParam);
    return ::CallWindowProcA(former_procedure_, m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
    const MSG& message = toolkit::State().message;
    return DefWindowProc(message.message, message.wParam, message.lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_COMMAND) return OnCommand(wParam, lParam);
    if (message == WM_NOTIFY) return OnNotify(wParam, lParam, result);
    const AFX_MSGMAP_ENTRY* entry = toolkit::FindMessage(GetMessageMap(), MapNumber(message));
    return entry != nullptr &&
           entry->invoke(*this, entry->handler, {message, wParam, lParam, result});
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    const int code = lParam != 0 ? HIWORD(wParam) : 0;
    return OnCmdMsg(LOWORD(wParam), code, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* result) {
    auto* header = reinterpret_cast<NMHDR*>(lParam);
    if (header == nullptr) return FALSE;
    if (Reflect(header->hwndFrom, result)) return TRUE;
    AFX_NOTIFY notify{result, header};
    return OnCmdMsg(static_cast<UINT>(header->idFrom), MAKELONG(LOWORD(header->code), WM_NOTIFY),
                    &notify, nullptr);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    const UINT number = toolkit::kReflected | MapNumber(message);
    const AFX_MSGMAP_ENTRY* entry = nullptr;
    if (message == WM_NOTIFY) {
        const auto* header = reinterpret_cast<const NMHDR*>(lParam);
        entry = toolkit::FindCommand(GetMessageMap(), number, header->code, 0);
    } else {
        entry = toolkit::FindMessage(GetMessageMap(), number);
    }
    return entry != nullptr &&
           entry->invoke(*this, entry->handler, {message, wParam, lParam, result});
}

BOOL CWnd::Reflect(HWND control, LRESULT* result) {
    CWnd* window = FromHandlePermanent(control);
    if (window == nullptr || window == this) return FALSE;
    const toolkit::CallFrame frame(*window);
    const MSG message = toolkit::State().message;
    return window->OnChildNotify(message.message, message.wParam, message.lParam, result);
}

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* control, UINT) {
    LRESULT result = 0;
    if (!Reflect(control != nullptr ? control->m_hWnd : nullptr, &result)) result = Default();
    return reinterpret_cast<HBRUSH>(result);
}

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT item) {
    LRESULT result = 0;
    if (item != nullptr && !Reflect(item->hwndItem, &result)) Default();
}

void CWnd::OnMeasureItem(int id, LPMEASUREITEMSTRUCT) {
    LRESULT result = 0;
    if (!Reflect(::GetDlgItem(m_hWnd, id), &result)) Default();
}

LRESULT CWnd::Leave(WPARAM wParam, LPARAM lParam) {
    const WNDPROC procedure = former_procedure_;
    const HWND handle = UnsubclassWindow();
    toolkit::State().left_behind.erase(handle);  // no message comes after this one
    left_ = true;
    return ::CallWindowProcA(procedure, handle, WM_NCDESTROY, wParam, lParam);
}

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

BOOL CWnd::UpdateData(BOOL save_and_validate) {
    CDataExchange exchange(this, save_and_validate);
    DoDataExchange(&exchange);
    return TRUE;
}
