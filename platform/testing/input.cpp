#include "platform/testing/input.h"

#include <deque>

#include "platform/text/gbk.h"
#ifndef _WIN32
#include <winbase_hooks.h>
#endif

namespace platform::testing {

namespace {

struct Waiting {
    Action action;
    void* context;
};

std::deque<Waiting> g_waiting;

bool RunOneWaiting() {
    if (g_waiting.empty()) return false;
    const Waiting next = g_waiting.front();
    g_waiting.pop_front();
    next.action(next.context);
    return true;
}

#ifdef _WIN32
// The system has no call for "a loop is about to wait"; a short timer comes close enough.
void CALLBACK OnIdleTimer(HWND, UINT, UINT_PTR id, DWORD) {
    KillTimer(nullptr, id);
    RunOneWaiting();
    if (!g_waiting.empty()) SetTimer(nullptr, 0, 30, OnIdleTimer);
}
#endif

void Mouse(DWORD flags, DWORD data = 0) {
    mouse_event(flags, 0, 0, data, 0);
    Pump();
}

struct BoxAnswer {
    int button_id;
    SeenBox* seen;
};

std::string TextOf(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    const int length = GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text::Utf8FromGbk(text);
}

BOOL CALLBACK CollectStatic(HWND child, LPARAM lParam) {
    char name[32] = "";
    GetClassNameA(child, name, sizeof name);
    if (lstrcmpiA(name, "Static") != 0) return TRUE;
    SeenBox& seen = *reinterpret_cast<SeenBox*>(lParam);
    const std::string text = TextOf(child);
    if (text.size() > seen.text.size()) seen.text = text;
    return TRUE;
}

void AnswerBox(void* context) {
    const BoxAnswer answer = *static_cast<BoxAnswer*>(context);
    delete static_cast<BoxAnswer*>(context);
    const HWND box = GetActiveWindow();
    if (box == nullptr) return;
    if (answer.seen != nullptr) {
        answer.seen->shown = true;
        answer.seen->title = TextOf(box);
        EnumChildWindows(box, CollectStatic, reinterpret_cast<LPARAM>(answer.seen));
    }
    const HWND button = GetDlgItem(box, answer.button_id);
    if (button == nullptr) return;
    // Only the input is made here: the loop of the box itself dispatches it.
    const POINT point = ScreenPoint(button);
    SetCursorPos(point.x, point.y);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
}

BYTE ModifierKey(Modifier modifier) {
    switch (modifier) {
        case Modifier::kShift: return VK_SHIFT;
        case Modifier::kControl: return VK_CONTROL;
        case Modifier::kAlt: return VK_MENU;
        case Modifier::kNone: break;
    }
    return 0;
}

}  // namespace

void Pump() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

void StopClock() {
#ifndef _WIN32
    if (winbase::hooks::IsClockManual()) return;
    SYSTEMTIME now{};
    GetLocalTime(&now);
    winbase::hooks::UseManualClock(GetTickCount(), now);
#endif
}

void PumpFor(DWORD millis) {
#ifndef _WIN32
    if (winbase::hooks::IsClockManual()) {
        Pump();
        for (DWORD passed = 0; passed < millis; ++passed) {
            winbase::hooks::AdvanceClock(1);
            Pump();
        }
        return;
    }
#endif
    const DWORD start = GetTickCount();
    for (;;) {
        Pump();
        const DWORD passed = GetTickCount() - start;
        if (passed >= millis) return;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, millis - passed, QS_ALLINPUT);
    }
}

void LetTimePass([[maybe_unused]] DWORD millis) {
#ifndef _WIN32
    winbase::hooks::AdvanceClock(millis);
#endif
}

void MovePointer(POINT screen) {
    SetCursorPos(screen.x, screen.y);
    Pump();
}

void Press(Button button) {
    Mouse(button == Button::kLeft ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN);
}

void Release(Button button) {
    Mouse(button == Button::kLeft ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP);
}

void ClickAt(POINT screen, Button button) {
    MovePointer(screen);
    // Both at once: a press may start a loop of its own that waits for the release.
    const bool left = button == Button::kLeft;
    mouse_event(left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN, 0, 0, 0, 0);
    Mouse(left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP);
}

void Drag(POINT from, POINT to) {
    MovePointer(from);
    mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
    constexpr int kSteps = 4;
    for (int step = 1; step <= kSteps; ++step) {
        const LONG x = from.x + (to.x - from.x) * step / kSteps;
        const LONG y = from.y + (to.y - from.y) * step / kSteps;
        SetCursorPos(x, y);
    }
    Mouse(MOUSEEVENTF_LEFTUP);
}

void Wheel(int notches) { Mouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(notches * WHEEL_DELTA)); }

POINT ScreenPoint(HWND window, int x, int y) {
    POINT point{x, y};
    ClientToScreen(window, &point);
    return point;
}

POINT ScreenPoint(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return ScreenPoint(window, client.right / 2, client.bottom / 2);
}

void Click(HWND window, Button button) { ClickAt(ScreenPoint(window), button); }

void Click(HWND window, int x, int y, Button button) { ClickAt(ScreenPoint(window, x, y), button); }

void DoubleClick(HWND window, int x, int y) {
    Click(window, x, y);
    Click(window, x, y);
}

void Key(BYTE key, Modifier modifier) {
    const BYTE held = ModifierKey(modifier);
    if (held != 0) keybd_event(held, 0, 0, 0);
    keybd_event(key, 0, 0, 0);
    keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
    if (held != 0) keybd_event(held, 0, KEYEVENTF_KEYUP, 0);
    Pump();
}

void Type(const char* gbk) {
    for (const char* at = gbk; *at != '\0'; ++at) {
        const SHORT key = IsDBCSLeadByte(static_cast<BYTE>(*at)) ? SHORT{-1} : VkKeyScanA(*at);
        if (key != -1) {
            Key(LOBYTE(key), (HIBYTE(key) & 1) != 0 ? Modifier::kShift : Modifier::kNone);
            continue;
        }
        const HWND focus = GetFocus();
        if (focus != nullptr) PostMessageA(focus, WM_CHAR, static_cast<BYTE>(*at), 1);
        if (IsDBCSLeadByte(static_cast<BYTE>(*at)) && at[1] != '\0') {
            ++at;
            if (focus != nullptr) PostMessageA(focus, WM_CHAR, static_cast<BYTE>(*at), 1);
        }
        Pump();
    }
}

void WhenIdle(Action action, void* context) {
    g_waiting.push_back({action, context});
#ifdef _WIN32
    if (g_waiting.size() == 1) SetTimer(nullptr, 0, 30, OnIdleTimer);
#else
    winbase::hooks::SetIdleHandler(RunOneWaiting);
#endif
}

void AnswerNextBox(int button_id, SeenBox* seen) {
    WhenIdle(AnswerBox, new BoxAnswer{button_id, seen});
}

}  // namespace platform::testing
