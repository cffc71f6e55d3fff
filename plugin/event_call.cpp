#include "plugin/event_call.h"

#include <cstring>

#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

EventCall::EventCall(CMainDlg& shell, WPARAM event, LPARAM payload)
    : wParam(event), lParam(payload), m_shell(&shell), m_window(shell.GetSafeHwnd()) {}

std::string EventCall::Text(int offset) const {
    const int size = TaggedBlockSize(m_block.get()) - offset;
    if (size <= 0) return {};
    const char* begin = static_cast<const char*>(m_block.get()) + offset;
    return {begin, strnlen(begin, static_cast<std::size_t>(size))};
}

std::string EventCall::TextOr(const char* otherwise) const {
    return HasBlock() ? Text() : otherwise;
}

CMainDlg* EventCall::Shell() const {
    // Both are compared, as the window's number may be another's by now.
    return CWnd::FromHandlePermanent(m_window) == m_shell ? m_shell : nullptr;
}

CUICallBack* EventCall::Core() const { return GetUICallBack(); }

void EventCall::Box(const std::string& text, const char* title, UINT flags) const {
    ShowEventBox(m_window, {.text = text, .title = title, .flags = flags});
}

void EventCall::Forward() const {
    if (CUICallBack* core = Core()) core->ForwardEvent(WM_CORE_EVENT, wParam, lParam);
}
