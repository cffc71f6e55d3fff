#pragma once

// Windows, messages, timers and input.

#include "winuser_types.h"

// Classes and creation
WIN32_EXPORT ATOM WINAPI RegisterClassA(const WNDCLASSA* window_class);
WIN32_EXPORT BOOL WINAPI UnregisterClassA(LPCSTR name, HINSTANCE instance);
WIN32_EXPORT BOOL WINAPI GetClassInfoA(HINSTANCE instance, LPCSTR name, WNDCLASSA* window_class);
WIN32_EXPORT int WINAPI GetClassNameA(HWND window, LPSTR name, int size);
WIN32_EXPORT HWND WINAPI CreateWindowExA(DWORD ex_style, LPCSTR class_name, LPCSTR window_name,
                                         DWORD style, int x, int y, int width, int height,
                                         HWND parent, HMENU menu_or_id, HINSTANCE instance,
                                         LPVOID parameter);
WIN32_EXPORT BOOL WINAPI DestroyWindow(HWND window);
WIN32_EXPORT LRESULT WINAPI DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WIN32_EXPORT LRESULT WINAPI CallWindowProcA(WNDPROC procedure, HWND window, UINT message,
                                            WPARAM wParam, LPARAM lParam);

// Words of a window
WIN32_EXPORT LONG WINAPI GetWindowLongA(HWND window, int index);
WIN32_EXPORT LONG WINAPI SetWindowLongA(HWND window, int index, LONG value);
WIN32_EXPORT LONG_PTR WINAPI GetWindowLongPtrA(HWND window, int index);
WIN32_EXPORT LONG_PTR WINAPI SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
WIN32_EXPORT ULONG_PTR WINAPI GetClassLongPtrA(HWND window, int index);
WIN32_EXPORT ULONG_PTR WINAPI SetClassLongPtrA(HWND window, int index, LONG_PTR value);
WIN32_EXPORT BOOL WINAPI SetPropA(HWND window, LPCSTR name, HANDLE data);
WIN32_EXPORT HANDLE WINAPI GetPropA(HWND window, LPCSTR name);
WIN32_EXPORT HANDLE WINAPI RemovePropA(HWND window, LPCSTR name);

// Text
WIN32_EXPORT BOOL WINAPI SetWindowTextA(HWND window, LPCSTR text);
WIN32_EXPORT int WINAPI GetWindowTextA(HWND window, LPSTR text, int size);
WIN32_EXPORT int WINAPI GetWindowTextLengthA(HWND window);

// Tree
WIN32_EXPORT BOOL WINAPI IsWindow(HWND window);
WIN32_EXPORT BOOL WINAPI IsChild(HWND parent, HWND window);
WIN32_EXPORT HWND WINAPI GetParent(HWND window);
WIN32_EXPORT HWND WINAPI SetParent(HWND window, HWND parent);
WIN32_EXPORT HWND WINAPI GetAncestor(HWND window, UINT kind);
WIN32_EXPORT HWND WINAPI GetWindow(HWND window, UINT relation);
WIN32_EXPORT HWND WINAPI GetTopWindow(HWND window);
WIN32_EXPORT HWND WINAPI GetDesktopWindow();
WIN32_EXPORT HWND WINAPI GetDlgItem(HWND window, int id);
WIN32_EXPORT int WINAPI GetDlgCtrlID(HWND window);
WIN32_EXPORT BOOL WINAPI EnumChildWindows(HWND window, WNDENUMPROC callback, LPARAM lParam);
WIN32_EXPORT BOOL WINAPI EnumWindows(WNDENUMPROC callback, LPARAM lParam);
WIN32_EXPORT BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC callback, LPARAM lParam);
WIN32_EXPORT HWND WINAPI FindWindowA(LPCSTR class_name, LPCSTR title);
WIN32_EXPORT HWND WINAPI WindowFromPoint(POINT point);
WIN32_EXPORT HWND WINAPI ChildWindowFromPoint(HWND window, POINT point);
WIN32_EXPORT DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD process);

// Position and visibility
WIN32_EXPORT BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
WIN32_EXPORT BOOL WINAPI SetWindowPos(HWND window, HWND insert_after, int x, int y, int width,
                                      int height, UINT flags);
WIN32_EXPORT HDWP WINAPI BeginDeferWindowPos(int count);
WIN32_EXPORT HDWP WINAPI DeferWindowPos(HDWP defer, HWND window, HWND insert_after, int x, int y,
                                        int width, int height, UINT flags);
WIN32_EXPORT BOOL WINAPI EndDeferWindowPos(HDWP defer);
WIN32_EXPORT BOOL WINAPI ShowWindow(HWND window, int command);
WIN32_EXPORT BOOL WINAPI IsWindowVisible(HWND window);
WIN32_EXPORT BOOL WINAPI IsIconic(HWND window);
WIN32_EXPORT BOOL WINAPI IsZoomed(HWND window);
WIN32_EXPORT BOOL WINAPI BringWindowToTop(HWND window);
WIN32_EXPORT BOOL WINAPI EnableWindow(HWND window, BOOL enable);
WIN32_EXPORT BOOL WINAPI IsWindowEnabled(HWND window);
WIN32_EXPORT BOOL WINAPI GetWindowRect(HWND window, LPRECT rect);
WIN32_EXPORT BOOL WINAPI GetClientRect(HWND window, LPRECT rect);
WIN32_EXPORT BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
WIN32_EXPORT BOOL WINAPI ScreenToClient(HWND window, LPPOINT point);
WIN32_EXPORT int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);
WIN32_EXPORT BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD ex_style);
WIN32_EXPORT BOOL WINAPI AdjustWindowRect(LPRECT rect, DWORD style, BOOL menu);
WIN32_EXPORT int WINAPI GetSystemMetrics(int index);
WIN32_EXPORT BOOL WINAPI SystemParametersInfoA(UINT action, UINT parameter, PVOID value,
                                               UINT flags);

// Activation, focus, capture
WIN32_EXPORT HWND WINAPI GetActiveWindow();
WIN32_EXPORT HWND WINAPI SetActiveWindow(HWND window);
WIN32_EXPORT HWND WINAPI GetForegroundWindow();
WIN32_EXPORT BOOL WINAPI SetForegroundWindow(HWND window);
WIN32_EXPORT HWND WINAPI GetLastActivePopup(HWND window);
WIN32_EXPORT HWND WINAPI GetFocus();
WIN32_EXPORT HWND WINAPI SetFocus(HWND window);
WIN32_EXPORT HWND WINAPI GetCapture();
WIN32_EXPORT HWND WINAPI SetCapture(HWND window);
WIN32_EXPORT BOOL WINAPI ReleaseCapture();

// Painting
WIN32_EXPORT HDC WINAPI BeginPaint(HWND window, LPPAINTSTRUCT paint);
WIN32_EXPORT BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint);
WIN32_EXPORT HDC WINAPI GetDC(HWND window);
WIN32_EXPORT HDC WINAPI GetDCEx(HWND window, HRGN clip, DWORD flags);
WIN32_EXPORT HDC WINAPI GetWindowDC(HWND window);
WIN32_EXPORT int WINAPI ReleaseDC(HWND window, HDC dc);
WIN32_EXPORT HWND WINAPI WindowFromDC(HDC dc);
WIN32_EXPORT BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase);
WIN32_EXPORT BOOL WINAPI InvalidateRgn(HWND window, HRGN region, BOOL erase);
WIN32_EXPORT BOOL WINAPI ValidateRect(HWND window, const RECT* rect);
WIN32_EXPORT BOOL WINAPI ValidateRgn(HWND window, HRGN region);
WIN32_EXPORT BOOL WINAPI UpdateWindow(HWND window);
WIN32_EXPORT BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);
WIN32_EXPORT BOOL WINAPI GetUpdateRect(HWND window, LPRECT rect, BOOL erase);
WIN32_EXPORT BOOL WINAPI ScrollWindow(HWND window, int dx, int dy, const RECT* rect,
                                      const RECT* clip);

// Scroll bars
WIN32_EXPORT int WINAPI SetScrollInfo(HWND window, int bar, LPCSCROLLINFO info, BOOL redraw);
WIN32_EXPORT BOOL WINAPI GetScrollInfo(HWND window, int bar, LPSCROLLINFO info);
WIN32_EXPORT int WINAPI SetScrollPos(HWND window, int bar, int position, BOOL redraw);
WIN32_EXPORT int WINAPI GetScrollPos(HWND window, int bar);
WIN32_EXPORT BOOL WINAPI SetScrollRange(HWND window, int bar, int minimum, int maximum,
                                        BOOL redraw);
WIN32_EXPORT BOOL WINAPI GetScrollRange(HWND window, int bar, LPINT minimum, LPINT maximum);
WIN32_EXPORT BOOL WINAPI ShowScrollBar(HWND window, int bar, BOOL show);
WIN32_EXPORT BOOL WINAPI EnableScrollBar(HWND window, UINT bar, UINT arrows);

// Messages and queue
WIN32_EXPORT BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WIN32_EXPORT BOOL WINAPI PostThreadMessageA(DWORD thread, UINT message, WPARAM wParam,
                                            LPARAM lParam);
WIN32_EXPORT LRESULT WINAPI SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
WIN32_EXPORT LRESULT WINAPI SendMessageTimeoutA(HWND window, UINT message, WPARAM wParam,
                                                LPARAM lParam, UINT flags, UINT millis,
                                                PDWORD_PTR result);
WIN32_EXPORT BOOL WINAPI SendNotifyMessageA(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam);
WIN32_EXPORT BOOL WINAPI InSendMessage();
WIN32_EXPORT BOOL WINAPI ReplyMessage(LRESULT result);
WIN32_EXPORT BOOL WINAPI GetMessageA(LPMSG message, HWND window, UINT first, UINT last);
WIN32_EXPORT BOOL WINAPI PeekMessageA(LPMSG message, HWND window, UINT first, UINT last,
                                      UINT remove);
WIN32_EXPORT BOOL WINAPI TranslateMessage(const MSG* message);
WIN32_EXPORT LRESULT WINAPI DispatchMessageA(const MSG* message);
WIN32_EXPORT void WINAPI PostQuitMessage(int code);
WIN32_EXPORT BOOL WINAPI WaitMessage();
WIN32_EXPORT DWORD WINAPI MsgWaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL all,
                                                    DWORD millis, DWORD wake_mask);
WIN32_EXPORT DWORD WINAPI GetQueueStatus(UINT flags);
WIN32_EXPORT LONG WINAPI GetMessageTime();
WIN32_EXPORT DWORD WINAPI GetMessagePos();
WIN32_EXPORT UINT WINAPI RegisterWindowMessageA(LPCSTR name);
WIN32_EXPORT HHOOK WINAPI SetWindowsHookExA(int kind, HOOKPROC procedure, HINSTANCE module,
                                            DWORD thread);
WIN32_EXPORT BOOL WINAPI UnhookWindowsHookEx(HHOOK hook);
WIN32_EXPORT LRESULT WINAPI CallNextHookEx(HHOOK hook, int code, WPARAM wParam, LPARAM lParam);
WIN32_EXPORT UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT millis, TIMERPROC procedure);
WIN32_EXPORT BOOL WINAPI KillTimer(HWND window, UINT_PTR id);

// Mouse and keyboard
WIN32_EXPORT BOOL WINAPI GetCursorPos(LPPOINT point);
WIN32_EXPORT BOOL WINAPI SetCursorPos(int x, int y);
WIN32_EXPORT HCURSOR WINAPI LoadCursorA(HINSTANCE instance, LPCSTR name);
WIN32_EXPORT HCURSOR WINAPI SetCursor(HCURSOR cursor);
WIN32_EXPORT HCURSOR WINAPI GetCursor();
WIN32_EXPORT HICON WINAPI LoadIconA(HINSTANCE instance, LPCSTR name);
WIN32_EXPORT void WINAPI mouse_event(DWORD flags, DWORD dx, DWORD dy, DWORD data, ULONG_PTR extra);
WIN32_EXPORT void WINAPI keybd_event(BYTE key, BYTE scan, DWORD flags, ULONG_PTR extra);
WIN32_EXPORT SHORT WINAPI GetKeyState(int key);
WIN32_EXPORT SHORT WINAPI GetAsyncKeyState(int key);
WIN32_EXPORT UINT WINAPI MapVirtualKeyA(UINT code, UINT kind);
WIN32_EXPORT SHORT WINAPI VkKeyScanA(CHAR character);
WIN32_EXPORT UINT WINAPI GetDoubleClickTime();
WIN32_EXPORT BOOL WINAPI TrackMouseEvent(LPTRACKMOUSEEVENT track);
WIN32_EXPORT BOOL WINAPI DragDetect(HWND window, POINT point);
WIN32_EXPORT BOOL WINAPI MessageBeep(UINT kind);

inline HWND CreateWindowA(LPCSTR class_name, LPCSTR window_name, DWORD style, int x, int y,
                          int width, int height, HWND parent, HMENU menu_or_id, HINSTANCE instance,
                          LPVOID parameter) {
    return CreateWindowExA(0, class_name, window_name, style, x, y, width, height, parent,
                           menu_or_id, instance, parameter);
}
