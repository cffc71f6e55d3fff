#pragma once

#include <string>

#include "plugin/contract/messages.h"
#include "plugin/event_block.h"
#include "plugin/event_boxes.h"
#include "plugin/main_dlg.h"

class CUICallBack;

/// A core event while it is handled. It lives on the stack of its own handling, because a case with
/// a box runs other events meanwhile, and the main dialog may be gone when the box returns.
class EventCall {
public:
    EventCall(CMainDlg& shell, WPARAM wParam, LPARAM lParam);
    EventCall(const EventCall&) = delete;
    EventCall& operator=(const EventCall&) = delete;

    const WPARAM wParam;
    const LPARAM lParam;

    WORD Code() const { return LOWORD(wParam); }
    bool Failed() const { return HIWORD(wParam) == kCoreEventFailed; }

    /// The parameter is a block from here on and freed with this object.
    void TakeBlock() { m_block.reset(reinterpret_cast<void*>(lParam)); }
    bool HasBlock() const { return m_block != nullptr; }
    /// The record in the block; null without one, and when the block is too small for it.
    template <class T>
    const T* Record() const {
        const bool fits = TaggedBlockSize(m_block.get()) >= static_cast<int>(sizeof(T));
        return fits ? static_cast<const T*>(m_block.get()) : nullptr;
    }
    /// The text in the block, which may fill it to the end.
    std::string Text(int offset = 0) const;
    /// The same, or a fixed one when there is no block.
    std::string TextOr(const char* otherwise) const;

    /// Null once the main dialog is gone.
    CMainDlg* Shell() const;
    HWND Window() const { return m_window; }
    /// The core; null when the host has taken it away.
    CUICallBack* Core() const;

    /// A message box over the main dialog.
    void Box(const std::string& text, const char* title, UINT flags) const;
    /// Passes the event on; the core copies what it keeps of the block.
    void Forward() const;

private:
    CMainDlg* m_shell;
    HWND m_window;
    EventBlock m_block;
};
