#include <array>
#include <cstdlib>

#include "platform/win32/user/input.h"
#include "platform/win32/user/pointer.h"
#include "platform/win32/user/track_mouse.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

// WM_..DOWN of the three buttons; UP and DBLCLK follow it.
constexpr std::array<UINT, 3> kDown = {WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN};
constexpr UINT kToFrame = WM_NCMOUSEMOVE - WM_MOUSEMOVE;

/// A press that the next one may complete to a double click.
struct Press {
    HWND window = nullptr;
    UINT message = 0;
    DWORD time = 0;
    POINT place{};
};

Press g_press;
// What the pointer was over when it was last told of.
Hit g_last;

UINT BaseMessage(const InputEvent& event) {
    if (event.kind == InputKind::kMove) return WM_MOUSEMOVE;
    if (event.kind == InputKind::kWheel) return WM_MOUSEWHEEL;
    const UINT down = kDown[static_cast<std::size_t>(event.button)];
    return event.down ? down : down + 1;
}

bool TakesDoubleClicks(HWND window, int code) {
    // The frame always does.
    if (code != HTCLIENT) return true;
    const Window* const target = LookUp(window);
    return target != nullptr && (target->window_class->style & CS_DBLCLKS) != 0;
}

bool IsSecondPress(const InputEvent& event, HWND window, UINT message) {
    return g_press.window == window && g_press.message == message &&
           event.time - g_press.time <= GetDoubleClickTime() &&
           std::abs(event.place.x - g_press.place.x) <= GetSystemMetrics(SM_CXDOUBLECLK) / 2 &&
           std::abs(event.place.y - g_press.place.y) <= GetSystemMetrics(SM_CYDOUBLECLK) / 2;
}

bool IsPress(const InputEvent& event) { return event.kind == InputKind::kButton && event.down; }

UINT MessageFor(const InputEvent& event, const Hit& hit) {
    UINT message = BaseMessage(event);
    if (IsPress(event) && TakesDoubleClicks(hit.window, hit.code) &&
        IsSecondPress(event, hit.window, message)) {
        message += 2;
    }
    return hit.code == HTCLIENT ? message : message + kToFrame;
}

Hit TargetOf(POINT place) {
    if (const HWND capture = GetCapture()) return {capture, HTCLIENT};
    return HitTest(place);
}

// Keys as they will be once the event has left the queue.
WPARAM KeysAfter(const InputEvent& event) {
    static constexpr WPARAM kFlags[] = {MK_LBUTTON, MK_RBUTTON, MK_MBUTTON};
    const WPARAM keys = MouseKeys();
    if (event.kind != InputKind::kButton) return keys;
    const WPARAM flag = kFlags[event.button];
    return event.down ? keys | flag : keys & ~flag;
}

void TellParents(HWND window, UINT message, POINT place) {
    while (true) {
        const Window* const child = LookUp(window);
        if (child == nullptr || (child->style & WS_CHILD) == 0 || child->parent == nullptr ||
            (child->ex_style & WS_EX_NOPARENTNOTIFY) != 0) {
            return;
        }
        window = child->parent->handle;
        CallProcedure(child->parent, WM_PARENTNOTIFY, message, ClientPoint(window, place));
    }
}

// Answers false when the press ends with the activation.
bool ActivateFor(const Hit& hit, UINT message) {
    Window* const window = LookUp(hit.window);
    if (window == nullptr) return false;
    const HWND top = TopLevel(window)->handle;
    const LRESULT answer = CallProcedure(window, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(top),
                                         MAKELPARAM(hit.code, message));
    if (answer != MA_NOACTIVATE && answer != MA_NOACTIVATEANDEAT && GetActiveWindow() != top) {
        if (Window* const root = LookUp(top)) Activate(root, ActivationKind::kClick);
    }
    return answer != MA_ACTIVATEANDEAT && answer != MA_NOACTIVATEANDEAT;
}

void AskCursor(const Hit& hit, UINT message) {
    if (Window* const window = LookUp(hit.window)) {
        CallProcedure(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(hit.window),
                      MAKELPARAM(hit.code, message));
    }
}

// WM_SETCURSOR and the rest need the answer of WM_NCHITTEST: it travels from resolving to here.
Hit g_resolved;

Resolution ResolveWheel(const InputEvent& event, const MessageFilter& filter, MSG& message) {
    if (g_resolved.window == nullptr || g_resolved.code == HTERROR) return Resolution::kGone;
    if (!filter.Takes(g_resolved.window, WM_MOUSEWHEEL)) return Resolution::kOther;
    message = {g_resolved.window,          WM_MOUSEWHEEL, MAKEWPARAM(MouseKeys(), event.wheel),
               ScreenPointOf(event.place), event.time,    event.place};
    return Resolution::kMessage;
}

bool IsNowhere(const Hit& hit) {
    return hit.window == nullptr || hit.code == HTERROR || hit.code == HTNOWHERE;
}

}  // namespace

Resolution ResolveMouse(const InputEvent& event, const MessageFilter& filter, MSG& message) {
    const Hit hit = TargetOf(event.place);
    g_resolved = hit;
    if (event.kind == InputKind::kWheel) return ResolveWheel(event, filter, message);
    if (PostLeave(hit)) return Resolution::kLookAgain;
    if (IsNowhere(hit)) return Resolution::kGone;
    const UINT number = MessageFor(event, hit);
    if (!filter.Takes(hit.window, number)) return Resolution::kOther;
    const bool in_client = hit.code == HTCLIENT;
    message = {hit.window,
               number,
               in_client ? KeysAfter(event) : static_cast<WPARAM>(hit.code),
               in_client ? ClientPoint(hit.window, event.place) : ScreenPointOf(event.place),
               event.time,
               event.place};
    return Resolution::kMessage;
}

bool CommitMouse(const InputEvent& event, MSG& message) {
    const Hit hit = g_resolved;
    if (event.kind == InputKind::kWheel) return true;
    g_last = hit;
    const UINT base = BaseMessage(event);
    if (event.kind == InputKind::kButton) SetKeyDown(ButtonKey(event.button), event.down);
    if (IsNowhere(hit)) {
        if (hit.window != nullptr) AskCursor(hit, base);
        return false;
    }
    NotePointer(hit, event.place);
    if (IsPress(event)) {
        const bool is_second = message.message != base && message.message != base + kToFrame;
        g_press = is_second ? Press{} : Press{hit.window, base, event.time, event.place};
    }
    // A window that has the mouse for itself is not asked for more.
    if (GetCapture() != nullptr) return true;
    if (IsPress(event)) {
        TellParents(hit.window, base, event.place);
        if (!ActivateFor(hit, base)) return false;
    }
    AskCursor(hit, base);
    return LookUp(message.hwnd) != nullptr;
}

bool IsPointerOverNews() {
    const Hit hit = TargetOf(PointerPlace());
    return hit.window != g_last.window || hit.code != g_last.code;
}

void ForgetPointer(HWND window) {
    if (g_press.window == window) g_press = {};
    if (g_last.window == window) g_last = {};
}

int ButtonKey(int button) {
    static constexpr int kKeys[] = {VK_LBUTTON, VK_RBUTTON, VK_MBUTTON};
    return kKeys[button];
}

}  // namespace winbase

UINT GetDoubleClickTime() { return 500; }
