#include "tests/support/message_log.h"

#include <cstdio>

#include "tests/support/message_text.h"

namespace tests {

namespace {

MessageLog* g_log = nullptr;

// What a test about effects seldom wants to see.
const std::set<UINT> kQuiet = {WM_NCHITTEST,     WM_NCPAINT,
                               WM_NCCALCSIZE,    WM_GETMINMAXINFO,
                               WM_SETCURSOR,     WM_GETTEXT,
                               WM_GETICON,       WM_GETTEXTLENGTH,
                               WM_MOUSEACTIVATE, 0x0281 /* input contexts of real desktops */,
                               0x0282,           0x0031F,
                               0x0090,           0x031A};

}  // namespace

MessageLog::MessageLog() : omitted_(kQuiet) {
    g_log = this;
    hook_ = SetWindowsHookExA(WH_GETMESSAGE, FetchHook, nullptr, GetCurrentThreadId());
}

MessageLog::~MessageLog() {
    for (const auto& [window, procedure] : watched_) {
        if (IsWindow(window)) {
            SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
        }
    }
    const std::map<HWND, std::string> roles = roles_;
    for (const auto& [window, role] : roles) {
        if (IsWindow(window) && watched_.count(window) == 0) DestroyWindow(window);
    }
    UnhookWindowsHookEx(hook_);
    if (g_log == this) g_log = nullptr;
}

HWND MessageLog::Create(const std::string& role, DWORD style, RECT rect, HWND parent, int id,
                        DWORD ex_style, UINT class_style, bool brush) {
    char name[64];
    std::snprintf(name, sizeof name, "LoggedWindow%u%s", class_style, brush ? "" : "Bare");
    WNDCLASSA window_class{};
    if (!GetClassInfoA(GetModuleHandleA(nullptr), name, &window_class)) {
        window_class = {};
        window_class.style = class_style;
        window_class.lpfnWndProc = OwnProcedure;
        window_class.hInstance = GetModuleHandleA(nullptr);
        window_class.hCursor = LoadCursorA(nullptr, IDC_ARROW);
        window_class.hbrBackground =
            brush ? reinterpret_cast<HBRUSH>(static_cast<ULONG_PTR>(COLOR_WINDOW + 1)) : nullptr;
        window_class.lpszClassName = name;
        RegisterClassA(&window_class);
    }
    next_role_ = role;
    return CreateWindowExA(ex_style, name, "", style, rect.left, rect.top, rect.right - rect.left,
                           rect.bottom - rect.top, parent,
                           reinterpret_cast<HMENU>(static_cast<ULONG_PTR>(id)),
                           GetModuleHandleA(nullptr), nullptr);
}

void MessageLog::Watch(HWND window, const std::string& role) {
    roles_[window] = role;
    watched_[window] = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WatchProcedure)));
}

void MessageLog::Name(HWND window, const std::string& role) { roles_[window] = role; }

void MessageLog::Remark(const std::string& text) {
    open_.back()->push_back({"_" + text + "_", {}});
}

std::string MessageLog::Take() {
    const std::string text = Print(entries_);
    entries_.clear();
    return text;
}

std::string MessageLog::PumpAndTake() {
    PumpQueue();
    return Take();
}

std::string MessageLog::RoleOf(HWND window) const {
    if (window == nullptr) return "null";
    const auto found = roles_.find(window);
    return found == roles_.end() ? "other" : found->second;
}

LRESULT CALLBACK MessageLog::OwnProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (g_log == nullptr) return DefWindowProcA(window, message, wParam, lParam);
    if (!g_log->next_role_.empty() && g_log->roles_.count(window) == 0) {
        g_log->roles_[window] = g_log->next_role_;
        g_log->next_role_.clear();
    }
    return g_log->Record(window, message, wParam, lParam, nullptr);
}

LRESULT CALLBACK MessageLog::WatchProcedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) {
    const auto found = g_log->watched_.find(window);
    return g_log->Record(window, message, wParam, lParam, found->second);
}

LRESULT CALLBACK MessageLog::FetchHook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION && wParam == PM_REMOVE && g_log != nullptr) {
        g_log->fetched_ = *reinterpret_cast<const MSG*>(lParam);
        g_log->has_fetched_ = true;
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

bool MessageLog::TakeFetched(HWND window, UINT message) {
    const bool same = has_fetched_ && fetched_.hwnd == window && fetched_.message == message;
    if (same) has_fetched_ = false;
    return same;
}

bool MessageLog::Wanted(UINT message) const {
    if (!only_.empty()) return only_.count(message) != 0;
    return omitted_.count(message) == 0;
}

LRESULT MessageLog::Record(HWND window, UINT message, WPARAM wParam, LPARAM lParam, WNDPROC next) {
    const bool fetched = TakeFetched(window, message);
    if (!Wanted(message)) return Handle(window, message, wParam, lParam, next);
    std::vector<Entry>& level = *open_.back();
    const std::string star = fetched ? "*" : "";
    level.push_back({star + RoleOf(window) + " " + Describe(message, wParam, lParam) + star, {}});
    // The level may grow while the message is handled, so the entry is found again by its place.
    const std::size_t place = level.size() - 1;
    std::vector<Entry> inner;
    open_.push_back(&inner);
    const LRESULT answer = Handle(window, message, wParam, lParam, next);
    open_.pop_back();
    Entry& entry = (*open_.back())[place];
    entry.inner = std::move(inner);
    if (answers_.count(message) != 0) entry.text += "=" + std::to_string(answer);
    return answer;
}

LRESULT MessageLog::Handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam, WNDPROC next) {
    if (next != nullptr) {
        if (message == WM_NCDESTROY) {
            SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(next));
            watched_.erase(window);
        }
        return CallWindowProcA(next, window, message, wParam, lParam);
    }
    LRESULT answer = 0;
    if (handler_ != nullptr && handler_(*this, RoleOf(window), message, wParam, lParam, answer)) {
        return answer;
    }
    if (message == WM_PAINT) {
        PAINTSTRUCT paint;
        BeginPaint(window, &paint);
        EndPaint(window, &paint);
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

std::string MessageLog::Print(const std::vector<Entry>& entries) {
    std::string text;
    for (const Entry& entry : entries) {
        if (!text.empty()) text += "; ";
        text += entry.text;
        if (!entry.inner.empty()) text += " [" + Print(entry.inner) + "]";
    }
    return text;
}

std::string MessageLog::Describe(UINT message, WPARAM wParam, LPARAM lParam) const {
    const std::string name = MessageName(message);
    const auto word = [](int value) { return std::to_string(value); };
    switch (message) {
        case WM_SHOWWINDOW:
            return name + "(" + word(static_cast<int>(wParam)) + ", " +
                   word(static_cast<int>(lParam)) + ")";
        case WM_SIZE:
            return name + "(" + word(static_cast<int>(wParam)) + ", " + word(LOWORD(lParam)) + "x" +
                   word(HIWORD(lParam)) + ")";
        case WM_MOVE:
            return name + "(" + word(static_cast<short>(LOWORD(lParam))) + "," +
                   word(static_cast<short>(HIWORD(lParam))) + ")";
        case WM_WINDOWPOSCHANGING:
        case WM_WINDOWPOSCHANGED:
            return name + "(" + PositionFlags(*reinterpret_cast<const WINDOWPOS*>(lParam)) + ")";
        case WM_ACTIVATE:
            return name + "(" + ActivationWord(wParam) + ", " +
                   RoleOf(reinterpret_cast<HWND>(lParam)) + ")";
        case WM_SETFOCUS:
        case WM_KILLFOCUS: return name + "(" + RoleOf(reinterpret_cast<HWND>(wParam)) + ")";
        case WM_CAPTURECHANGED: return name + "(" + RoleOf(reinterpret_cast<HWND>(lParam)) + ")";
        case WM_NCCALCSIZE:
        case WM_NCACTIVATE:
        case WM_ACTIVATEAPP:
        case WM_ENABLE:
        case WM_SETREDRAW: return name + "(" + word(static_cast<int>(wParam)) + ")";
        case WM_SETTEXT: return name + "(\"" + reinterpret_cast<const char*>(lParam) + "\")";
        case WM_TIMER: return name + "(" + word(static_cast<int>(wParam)) + ", 0)";
        case WM_STYLECHANGING:
        case WM_STYLECHANGED:
            return name + (static_cast<int>(wParam) == GWL_STYLE ? "(style)" : "(exstyle)");
        case WM_PARENTNOTIFY:
            if (LOWORD(wParam) == WM_CREATE || LOWORD(wParam) == WM_DESTROY) {
                return name + "(" + MessageName(LOWORD(wParam)) + " id " + word(HIWORD(wParam)) +
                       ", " + RoleOf(reinterpret_cast<HWND>(lParam)) + ")";
            }
            return name + "(" + MessageName(LOWORD(wParam)) + ", " + PointText(lParam) + ")";
        default: return DescribeInput(message, wParam, lParam);
    }
}

std::string MessageLog::DescribeInput(UINT message, WPARAM wParam, LPARAM lParam) const {
    const std::string name = MessageName(message);
    const auto word = [](int value) { return std::to_string(value); };
    if (message == WM_MOUSEWHEEL) {
        return name + "(" + word(GET_WHEEL_DELTA_WPARAM(wParam)) + ", keys " +
               word(GET_KEYSTATE_WPARAM(wParam)) + ")";
    }
    if ((message >= WM_MOUSEFIRST && message <= WM_MBUTTONDBLCLK) || message == WM_MOUSEHOVER) {
        return name + "(" + word(static_cast<int>(wParam)) + ", " + PointText(lParam) + ")";
    }
    switch (message) {
        case WM_NCHITTEST: return name + "(0)";
        case WM_NCLBUTTONDOWN:
        case WM_NCLBUTTONUP:
        case WM_NCLBUTTONDBLCLK: return name + "(" + word(static_cast<int>(wParam)) + ")";
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_SYSKEYDOWN:
        case WM_SYSKEYUP: return name + "(" + HexText(static_cast<unsigned>(wParam)) + ")";
        case WM_CHAR: return name + "(" + word(static_cast<int>(wParam)) + ")";
        case WM_SETCURSOR:
        case WM_MOUSEACTIVATE:
            return name + "(" + RoleOf(reinterpret_cast<HWND>(wParam)) + ", hit " +
                   word(static_cast<short>(LOWORD(lParam))) + ", " + MessageName(HIWORD(lParam)) +
                   ")";
        case WM_HSCROLL:
        case WM_VSCROLL:
            return name + "(" + ScrollWord(LOWORD(wParam)) + ", pos " + word(HIWORD(wParam)) +
                   ", " + RoleOf(reinterpret_cast<HWND>(lParam)) + ")";
        case WM_SYSCOMMAND: return name + "(" + SystemCommandText(wParam) + ")";
        case WM_COMMAND:
            return name + "(" + word(LOWORD(wParam)) + ", code " + word(HIWORD(wParam)) + ", " +
                   RoleOf(reinterpret_cast<HWND>(lParam)) + ")";
        case WM_NOTIFY: {
            const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
            return name + "(" + word(static_cast<int>(header.idFrom)) + ", code " +
                   word(static_cast<int>(header.code)) + ")";
        }
        default: break;
    }
    if (message >= WM_USER) {
        return name + "(" + word(static_cast<int>(wParam)) + ", " + word(static_cast<int>(lParam)) +
               ")";
    }
    return name;
}

void PumpQueue() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // Left for the loop that asked for it.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

}  // namespace tests
