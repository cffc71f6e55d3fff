#include "platform/win32/user/default_input.h"

#include "platform/win32/user/nonclient.h"
#include "platform/win32/user/pointer.h"

namespace winbase {

namespace {

// The lower four bits of a system command are the system's own: they tell where the press was.
constexpr WPARAM kCommandMask = 0xFFF0;

LPCSTR BorderCursor(int hit) {
    switch (hit) {
        case HTLEFT:
        case HTRIGHT: return IDC_SIZEWE;
        case HTTOP:
        case HTBOTTOM: return IDC_SIZENS;
        case HTTOPLEFT:
        case HTBOTTOMRIGHT: return IDC_SIZENWSE;
        case HTTOPRIGHT:
        case HTBOTTOMLEFT: return IDC_SIZENESW;
        default: return IDC_ARROW;
    }
}

// A press on a window that a dialog disabled brings that dialog to the front.
void PointToPopup(const Window* window, UINT message) {
    if (message != WM_LBUTTONDOWN && message != WM_RBUTTONDOWN) return;
    MessageBeep(0);
    const HWND popup = GetLastActivePopup(window->handle);
    if (popup != window->handle && IsWindowEnabled(popup)) SetForegroundWindow(popup);
}

bool IsBorder(int hit) { return hit >= HTLEFT && hit <= HTBOTTOMRIGHT; }

void SendCommand(HWND window, WPARAM command, LPARAM lParam) {
    SendMessageA(window, WM_SYSCOMMAND, command, lParam);
}

WPARAM BoxCommand(const Window* window, int hit) {
    if (hit == HTCLOSE) return SC_CLOSE;
    return (window->style & WS_MAXIMIZE) != 0 ? SC_RESTORE : SC_MAXIMIZE;
}

void PressBox(Window* window, int hit, LPARAM lParam) {
    const HWND handle = window->handle;
    if (TrackBox(window, hit)) SendCommand(handle, BoxCommand(LookUp(handle), hit), lParam);
}

bool CanClose(const Window* window) { return (window->window_class->style & CS_NOCLOSE) == 0; }

}  // namespace

LRESULT PassToParent(Window* window, UINT message, WPARAM wParam, LPARAM lParam) {
    if ((window->style & WS_CHILD) == 0 || window->parent == nullptr) return 0;
    return CallProcedure(window->parent, message, wParam, lParam);
}

LRESULT DefaultSetCursor(Window* window, WPARAM wParam, LPARAM lParam) {
    const int hit = static_cast<short>(LOWORD(lParam));
    if (hit == HTERROR) {
        PointToPopup(window, HIWORD(lParam));
        return FALSE;
    }
    const HWND handle = window->handle;
    if (PassToParent(window, WM_SETCURSOR, wParam, lParam) != 0) return TRUE;
    // A parent that has no wish of its own leaves the cursor to its child.
    if (reinterpret_cast<HWND>(wParam) != handle || LookUp(handle) == nullptr) return FALSE;
    if (hit != HTCLIENT) {
        SetCursor(LoadCursorA(nullptr, BorderCursor(hit)));
        return TRUE;
    }
    const HCURSOR cursor = window->window_class->cursor;
    if (cursor == nullptr) return FALSE;
    SetCursor(cursor);
    return TRUE;
}

LRESULT DefaultMouseActivate(Window* window, WPARAM wParam, LPARAM lParam) {
    const LRESULT answer = PassToParent(window, WM_MOUSEACTIVATE, wParam, lParam);
    if (answer != 0) return answer;
    return (window->ex_style & WS_EX_NOACTIVATE) != 0 ? MA_NOACTIVATE : MA_ACTIVATE;
}

LRESULT DefaultFramePress(Window* window, int hit, LPARAM lParam) {
    const auto part = static_cast<WPARAM>(hit);
    if (IsBorder(hit)) {
        SendCommand(window->handle, SC_SIZE + part - HTLEFT + 1, lParam);
        return 0;
    }
    switch (hit) {
        case HTCAPTION: SendCommand(window->handle, SC_MOVE + part, lParam); break;
        case HTVSCROLL: SendCommand(window->handle, SC_VSCROLL + part, lParam); break;
        case HTHSCROLL: SendCommand(window->handle, SC_HSCROLL + part, lParam); break;
        case HTCLOSE:
        case HTMAXBUTTON: PressBox(window, hit, lParam); break;
        default: break;
    }
    return 0;
}

LRESULT DefaultFrameDoubleClick(Window* window, int hit, LPARAM lParam) {
    if (hit != HTCAPTION) return DefaultFramePress(window, hit, lParam);
    if ((window->style & WS_MAXIMIZEBOX) != 0) {
        SendCommand(window->handle, BoxCommand(window, HTMAXBUTTON), lParam);
    }
    return 0;
}

LRESULT DefaultSystemCommand(Window* window, WPARAM wParam, LPARAM lParam) {
    const HWND handle = window->handle;
    const int part = static_cast<int>(wParam & 0xF);
    const POINT place = UnpackPoint(lParam);
    switch (wParam & kCommandMask) {
        case SC_CLOSE:
            if (CanClose(window)) SendMessageA(handle, WM_CLOSE, 0, 0);
            break;
        case SC_MOVE:
            if (part == HTCAPTION) MoveOrSize(window, HTCAPTION, place);
            break;
        case SC_SIZE:
            if (IsBorder(part + HTLEFT - 1)) MoveOrSize(window, part + HTLEFT - 1, place);
            break;
        case SC_VSCROLL: return TrackScrollBar(window, SB_VERT, place);
        case SC_HSCROLL: return TrackScrollBar(window, SB_HORZ, place);
        case SC_MINIMIZE: ShowWindow(handle, SW_MINIMIZE); break;
        case SC_MAXIMIZE: ShowWindow(handle, SW_MAXIMIZE); break;
        case SC_RESTORE: ShowWindow(handle, SW_RESTORE); break;
        default: break;
    }
    return 0;
}

LRESULT DefaultSystemKey(Window* window, WPARAM wParam, LPARAM) {
    if (wParam == VK_F4 && GetKeyState(VK_MENU) < 0) {
        SendCommand(TopLevel(window)->handle, SC_CLOSE, 0);
    }
    return 0;
}

}  // namespace winbase
