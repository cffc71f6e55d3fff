#pragma once

#include "platform/toolkit/device_context.h"
#include "platform/toolkit/message_handlers.h"
#include "platform/toolkit/module.h"

class CDataExchange;

namespace toolkit {
class CallFrame;
class CreationScope;
LRESULT CALLBACK WindowProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam);
}  // namespace toolkit

/// A window and the object that answers its messages. The two are bound before the window's first
/// message and parted with its last. Destroying either destroys the other, except that an object
/// outlives its window; PostNcDestroy is where one that owns itself deletes itself.
///
/// Messages take three steps: the class's handler (message map), the toolkit's default (the handler
/// of CWnd, which hands some messages back to the control they are about), the system's default.
class TOOLKIT_API CWnd : public CCmdTarget {
public:
    HWND m_hWnd = nullptr;

    CWnd() = default;
    ~CWnd() override;

    /// The object of a window. One without gets an object that only visits: it lives as long as the
    /// window at least, has no handlers and must not be deleted. Null for null.
    static CWnd* FromHandle(HWND handle);
    /// The object bound to the window, or null.
    static CWnd* FromHandlePermanent(HWND handle);
    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }

    // Creation, binding, destruction
    virtual BOOL Create(LPCSTR class_name, LPCSTR text, DWORD style, const RECT& rect, CWnd* parent,
                        UINT id);
    BOOL CreateEx(DWORD ex_style, LPCSTR class_name, LPCSTR text, DWORD style, const RECT& rect,
                  CWnd* parent, UINT id, LPVOID parameter = nullptr);
    BOOL CreateEx(DWORD ex_style, LPCSTR class_name, LPCSTR text, DWORD style, int x, int y,
                  int width, int height, HWND parent, HMENU menu_or_id, LPVOID parameter = nullptr);
    virtual BOOL DestroyWindow();
    /// Binds without taking messages.
    BOOL Attach(HWND handle);
    HWND Detach();
    /// Not for a window that an object left while others had taken its messages.
    BOOL SubclassWindow(HWND handle);
    BOOL SubclassDlgItem(UINT id, CWnd* parent);
    HWND UnsubclassWindow();

    // Tree
    CWnd* GetDlgItem(int id) const { return FromHandle(::GetDlgItem(m_hWnd, id)); }
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }

    // Style, position, visibility
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongA(m_hWnd, GWL_STYLE)); }
    /// With `position_flags` (SWP_...) the frame is drawn anew. False when nothing changed.
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT position_flags = 0);
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE) {
        ::MoveWindow(m_hWnd, x, y, width, height, repaint);
    }
    void MoveWindow(LPCRECT rect, BOOL repaint = TRUE);
    BOOL SetWindowPos(const CWnd* insert_after, int x, int y, int width, int height, UINT flags);
    BOOL ShowWindow(int command) { return ::ShowWindow(m_hWnd, command); }
    BOOL EnableWindow(BOOL enable = TRUE) { return ::EnableWindow(m_hWnd, enable); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    void GetClientRect(LPRECT rect) const { ::GetClientRect(m_hWnd, rect); }
    void GetWindowRect(LPRECT rect) const { ::GetWindowRect(m_hWnd, rect); }
    void ClientToScreen(LPPOINT point) const { ::ClientToScreen(m_hWnd, point); }
    void ClientToScreen(LPRECT rect) const;
    void ScreenToClient(LPPOINT point) const { ::ScreenToClient(m_hWnd, point); }
    void ScreenToClient(LPRECT rect) const;
    /// Over the owner or parent, inside the work area.
    void CenterWindow();

    // Painting
    void Invalidate(BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, erase); }
    void InvalidateRect(LPCRECT rect, BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, rect, erase); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    BOOL RedrawWindow(LPCRECT rect = nullptr, HRGN region = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE) {
        return ::RedrawWindow(m_hWnd, rect, region, flags);
    }
    void SetRedraw(BOOL redraw = TRUE) { SendMessage(WM_SETREDRAW, static_cast<WPARAM>(redraw)); }
    /// Each context wants one ReleaseDC, which ends the object too.
    CDC* GetDC();
    CDC* GetWindowDC();
    int ReleaseDC(CDC* dc);
    void SetFont(const CFont* font, BOOL redraw = TRUE);
    /// Stays the window's and is overwritten by the next call; null for the system's font.
    CFont* GetFont();

    // Text and controls
    void SetWindowText(LPCSTR text) { ::SetWindowTextA(m_hWnd, text); }
    int GetWindowText(LPSTR text, int size) const { return ::GetWindowTextA(m_hWnd, text, size); }
    int GetWindowTextLength() const { return ::GetWindowTextLengthA(m_hWnd); }
    void SetDlgItemText(int id, LPCSTR text) { ::SetDlgItemTextA(m_hWnd, id, text); }
    int GetDlgItemText(int id, LPSTR text, int size) const {
        return static_cast<int>(::GetDlgItemTextA(m_hWnd, id, text, size));
    }
    void CheckDlgButton(int id, UINT check) { ::CheckDlgButton(m_hWnd, id, check); }
    UINT IsDlgButtonChecked(int id) const { return ::IsDlgButtonChecked(m_hWnd, id); }
    LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return ::SendDlgItemMessageA(m_hWnd, id, message, wParam, lParam);
    }
    int MessageBox(LPCSTR text, LPCSTR title = nullptr, UINT flags = MB_OK);

    // Focus, capture, timers, messages
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    CWnd* SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }
    UINT_PTR SetTimer(UINT_PTR id, UINT millis, TIMERPROC procedure) {
        return ::SetTimer(m_hWnd, id, millis, procedure);
    }
    BOOL KillTimer(UINT_PTR id) { return ::KillTimer(m_hWnd, id); }
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessageA(m_hWnd, message, wParam, lParam);
    }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::PostMessageA(m_hWnd, message, wParam, lParam);
    }

    /// Moves texts and states between controls (DoDataExchange) and members; TRUE reads the
    /// controls.
    BOOL UpdateData(BOOL save_and_validate = TRUE);
    /// Sees what a loop fetched for this window or one below it; TRUE keeps it from being
    /// dispatched.
    virtual BOOL PreTranslateMessage(MSG* message);

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    /// A message about this control that its parent handed back; TRUE when it was handled.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual BOOL PreCreateWindow(CREATESTRUCT& create);
    virtual void PreSubclassWindow() {}
    virtual void PostNcDestroy() {}
    virtual void DoDataExchange(CDataExchange*) {}
    /// The default step for the message that is being handled.
    LRESULT Default();

    int OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
    void OnDestroy() { Default(); }
    void OnSize(UINT, int, int) { Default(); }
    void OnMove(int, int) { Default(); }
    void OnShowWindow(BOOL, UINT) { Default(); }
    void OnEnable(BOOL) { Default(); }
    void OnTimer(UINT_PTR) { Default(); }
    BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    void OnPaint() { Default(); }
    void OnNcPaint() { Default(); }
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind);
    void OnDrawItem(int id, LPDRAWITEMSTRUCT item);
    void OnMeasureItem(int id, LPMEASUREITEMSTRUCT item);
    void OnSetFocus(CWnd*) { Default(); }
    void OnKillFocus(CWnd*) { Default(); }
    void OnChar(UINT, UINT, UINT) { Default(); }
    void OnKeyDown(UINT, UINT, UINT) { Default(); }
    void OnKeyUp(UINT, UINT, UINT) { Default(); }
    UINT OnGetDlgCode() { return static_cast<UINT>(Default()); }
    void OnLButtonDown(UINT, CPoint) { Default(); }
    void OnLButtonUp(UINT, CPoint) { Default(); }
    void OnLButtonDblClk(UINT, CPoint) { Default(); }
    void OnRButtonUp(UINT, CPoint) { Default(); }
    void OnNcLButtonDown(UINT, CPoint) { Default(); }
    void OnMouseMove(UINT, CPoint) { Default(); }
    BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
    void OnHScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnVScroll(UINT, UINT, CScrollBar*) { Default(); }
    BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
    void OnContextMenu(CWnd*, CPoint) { Default(); }

    DECLARE_MESSAGE_MAP()

private:
    friend class toolkit::CallFrame;
    friend class toolkit::CreationScope;
    friend LRESULT CALLBACK toolkit::WindowProcedure(HWND, UINT, WPARAM, LPARAM);

    void Bind(HWND handle);
    void TakeMessages();
    LRESULT Leave(WPARAM wParam, LPARAM lParam);
    BOOL Reflect(HWND control, LRESULT* result);

    WNDPROC former_procedure_ = nullptr;  ///< null while the window's messages are not ours
    AFX_MODULE_STATE* module_ = nullptr;
    toolkit::CallFrame* frames_ = nullptr;  ///< calls into this object, the innermost first
    bool left_ = false;  ///< the window has gone and PostNcDestroy is still to be called
    CFont font_;
};

/// A scroll bar that is a control. The bars of a window's frame have no object.
class TOOLKIT_API CScrollBar : public CWnd {};

// The maps of classes call their handlers by it.
#include "platform/toolkit/message_invoke.h"  // IWYU pragma: export
