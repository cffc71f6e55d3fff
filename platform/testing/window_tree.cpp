#include "platform/testing/window_tree.h"

#include "platform/text/gbk.h"

namespace platform::testing {

namespace {

std::string Quoted(HWND window) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
    const int length = GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return "\"" + text::Utf8FromGbk(text) + "\"";
}

std::string RectText(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    const HWND parent = GetAncestor(window, GA_PARENT);
    if (parent != nullptr && parent != GetDesktopWindow()) {
        MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
    }
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "-" +
           std::to_string(rect.right) + "," + std::to_string(rect.bottom);
}

void Describe(HWND window, int depth, std::string& out) {
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    out.append(static_cast<std::size_t>(depth) * 2, ' ');
    out += text::Utf8FromGbk(name) + " " + Quoted(window);
    if ((GetWindowLongA(window, GWL_STYLE) & WS_CHILD) != 0) {
        out += " id " + std::to_string(GetDlgCtrlID(window));
    }
    out += " " + RectText(window);
    out += (static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE)) & WS_VISIBLE) != 0 ? " visible"
                                                                                     : " hidden";
    out += IsWindowEnabled(window) ? " enabled" : " disabled";
    if (GetFocus() == window) out += " focus";
    out += "\n";
    for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        Describe(child, depth + 1, out);
    }
}

BOOL CALLBACK DescribeTop(HWND window, LPARAM lParam) {
    Describe(window, 0, *reinterpret_cast<std::string*>(lParam));
    return TRUE;
}

}  // namespace

std::string WindowTree(HWND window) {
    std::string out;
    if (window != nullptr) {
        Describe(window, 0, out);
    } else {
        EnumThreadWindows(GetCurrentThreadId(), DescribeTop, reinterpret_cast<LPARAM>(&out));
    }
    return out;
}

}  // namespace platform::testing
