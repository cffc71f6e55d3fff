#include "platform/win32/user/input.h"

#include <algorithm>
#include <deque>

#include "platform/present/screen.h"
#include "platform/text/gbk.h"
#include "platform/win32/user/pointer.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

std::deque<InputEvent> g_events;
unsigned g_next_number = 0;
bool g_refresh = false;
bool g_pointer_known = false;

void Push(InputEvent event) {
    event.number = ++g_next_number;
    event.time = GetTickCount();
    event.place = PointerPlace();
    g_events.push_back(event);
    const bool is_key = event.kind == InputKind::kKey || event.kind == InputKind::kCharacter;
    TheQueue().AddNews(is_key ? QS_KEY : QS_MOUSE);
}

void QueueCharacters(const std::string& utf8) {
    for (const char byte : text::GbkFromUtf8(utf8)) {
        InputEvent event;
        event.kind = InputKind::kCharacter;
        event.character = static_cast<BYTE>(byte);
        Push(event);
    }
}

// Keys that are let go while another program has the keyboard would stay down for ever.
void ReleaseKeys() {
    for (int key = 1; key < 256; ++key) {
        if (key != VK_CANCEL && key <= VK_MBUTTON) continue;
        if (IsKeyDownNow(key)) QueueKey(static_cast<BYTE>(key), 0, false, false);
    }
}

void CloseActive() {
    if (const HWND active = GetActiveWindow()) PostMessageA(active, WM_SYSCOMMAND, SC_CLOSE, 0);
}

// The keys beside the number pad are told from those on it.
bool IsExtendedKey(int key) {
    return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE ||
           key == VK_DIVIDE;
}

void TakeScreenEvent(const present::Event& event) {
    const POINT place{event.x, event.y};
    switch (event.kind) {
        case present::EventKind::kMouseMove: return QueueMove(place);
        case present::EventKind::kButton:
            SetPointerPlace(place);
            return QueueButton(event.button, event.down);
        case present::EventKind::kWheel: return QueueWheel(event.wheel);
        case present::EventKind::kKey:
            return QueueKey(static_cast<BYTE>(event.key), 0, IsExtendedKey(event.key), event.down);
        case present::EventKind::kText: return QueueCharacters(event.text);
        case present::EventKind::kResize: return DesktopResized(event.x, event.y);
        case present::EventKind::kClose: return CloseActive();
        case present::EventKind::kFocus:
            if (!event.down) ReleaseKeys();
            return;
        case present::EventKind::kExposed: return DesktopExposed();
    }
}

// Windows that moved under a resting pointer hear of it as of a move. A pointer that nobody has
// moved yet is nowhere.
void QueueRefresh() {
    if (!g_refresh || !g_events.empty()) return;
    g_refresh = false;
    if (g_pointer_known && IsPointerOverNews()) QueueMove(PointerPlace());
}

Resolution Resolve(const InputEvent& event, const MessageFilter& filter, MSG& message) {
    const bool is_key = event.kind == InputKind::kKey || event.kind == InputKind::kCharacter;
    return is_key ? ResolveKey(event, filter, message) : ResolveMouse(event, filter, message);
}

bool Commit(const InputEvent& event, MSG& message) {
    if (event.kind == InputKind::kKey) CommitKey(event);
    return event.kind == InputKind::kKey || event.kind == InputKind::kCharacter ||
           CommitMouse(event, message);
}

bool Erase(unsigned number) {
    return std::erase_if(g_events,
                         [number](const InputEvent& event) { return event.number == number; }) != 0;
}

}  // namespace

void QueueMove(POINT place) {
    SetPointerPlace(place);
    g_pointer_known = true;
    // Only the last of several moves in a row is told.
    if (!g_events.empty() && g_events.back().kind == InputKind::kMove) g_events.pop_back();
    Push({});
}

void QueueButton(int button, bool down) {
    if (button < 0 || button > 2) return;
    SetKeyDownNow(ButtonKey(button), down);
    InputEvent event;
    event.kind = InputKind::kButton;
    event.button = button;
    event.down = down;
    Push(event);
}

void QueueWheel(int wheel) {
    InputEvent event;
    event.kind = InputKind::kWheel;
    event.wheel = wheel;
    Push(event);
}

void QueueKey(BYTE key, BYTE scan, bool extended, bool down) {
    if (key == 0) return;
    SetKeyDownNow(key, down);
    InputEvent event;
    event.kind = InputKind::kKey;
    event.key = key;
    event.scan = scan != 0 ? scan : static_cast<BYTE>(MapVirtualKeyA(key, MAPVK_VK_TO_VSC));
    event.extended = extended;
    event.down = down;
    Push(event);
}

void TakeScreenEvents(const std::vector<present::Event>& events) {
    for (const present::Event& event : events) TakeScreenEvent(event);
}

InputFind TakeInput(const MessageFilter& filter, bool remove, MSG& message) {
    QueueRefresh();
    for (std::size_t i = 0; i < g_events.size();) {
        const InputEvent event = g_events[i];
        const Resolution resolution = Resolve(event, filter, message);
        if (resolution == Resolution::kLookAgain) return InputFind::kLookAgain;
        if (resolution == Resolution::kOther) {
            ++i;
            continue;
        }
        if (resolution == Resolution::kMessage && !remove) return InputFind::kFound;
        // A loop inside a window's answer may have fetched the event already.
        if (!Erase(event.number)) return InputFind::kLookAgain;
        const bool told = Commit(event, message) && resolution == Resolution::kMessage;
        return told ? InputFind::kFound : InputFind::kLookAgain;
    }
    return InputFind::kNone;
}

UINT InputKinds() {
    UINT kinds = 0;
    for (const InputEvent& event : g_events) {
        const bool is_key = event.kind == InputKind::kKey || event.kind == InputKind::kCharacter;
        kinds |= is_key ? QS_KEY : QS_MOUSE;
    }
    return kinds;
}

void RefreshPointer() { g_refresh = true; }

}  // namespace winbase

using namespace winbase;

void mouse_event(DWORD flags, DWORD dx, DWORD dy, DWORD data, ULONG_PTR) {
    AssertUiThread();
    if ((flags & MOUSEEVENTF_MOVE) != 0) {
        POINT place{static_cast<LONG>(dx), static_cast<LONG>(dy)};
        if ((flags & MOUSEEVENTF_ABSOLUTE) != 0) {
            place.x = MulDiv(place.x, GetSystemMetrics(SM_CXSCREEN), 65536);
            place.y = MulDiv(place.y, GetSystemMetrics(SM_CYSCREEN), 65536);
        } else {
            const POINT from = PointerPlace();
            place = {static_cast<LONG>(dx + static_cast<DWORD>(from.x)),
                     static_cast<LONG>(dy + static_cast<DWORD>(from.y))};
        }
        QueueMove(place);
    }
    if ((flags & MOUSEEVENTF_LEFTDOWN) != 0) QueueButton(0, true);
    if ((flags & MOUSEEVENTF_LEFTUP) != 0) QueueButton(0, false);
    if ((flags & MOUSEEVENTF_RIGHTDOWN) != 0) QueueButton(1, true);
    if ((flags & MOUSEEVENTF_RIGHTUP) != 0) QueueButton(1, false);
    if ((flags & MOUSEEVENTF_WHEEL) != 0) QueueWheel(static_cast<int>(data));
}

void keybd_event(BYTE key, BYTE scan, DWORD flags, ULONG_PTR) {
    AssertUiThread();
    QueueKey(key, scan, (flags & KEYEVENTF_EXTENDEDKEY) != 0, (flags & KEYEVENTF_KEYUP) == 0);
}

BOOL SetCursorPos(int x, int y) {
    AssertUiThread();
    QueueMove({x, y});
    return TRUE;
}
