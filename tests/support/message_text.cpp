#include "tests/support/message_text.h"

#include <cstdio>
#include <map>

#include "tests/support/message_log.h"

namespace tests {

namespace {

#define NAMED(message) \
    { message, #message }
const std::map<UINT, const char*> kNames = {NAMED(WM_NULL),
                                            NAMED(WM_CREATE),
                                            NAMED(WM_DESTROY),
                                            NAMED(WM_MOVE),
                                            NAMED(WM_SIZE),
                                            NAMED(WM_ACTIVATE),
                                            NAMED(WM_SETFOCUS),
                                            NAMED(WM_KILLFOCUS),
                                            NAMED(WM_ENABLE),
                                            NAMED(WM_SETREDRAW),
                                            NAMED(WM_SETTEXT),
                                            NAMED(WM_GETTEXT),
                                            NAMED(WM_GETTEXTLENGTH),
                                            NAMED(WM_PAINT),
                                            NAMED(WM_CLOSE),
                                            NAMED(WM_QUIT),
                                            NAMED(WM_ERASEBKGND),
                                            NAMED(WM_SHOWWINDOW),
                                            NAMED(WM_ACTIVATEAPP),
                                            NAMED(WM_CANCELMODE),
                                            NAMED(WM_SETCURSOR),
                                            NAMED(WM_MOUSEACTIVATE),
                                            NAMED(WM_CHILDACTIVATE),
                                            NAMED(WM_GETMINMAXINFO),
                                            NAMED(WM_NEXTDLGCTL),
                                            NAMED(WM_DRAWITEM),
                                            NAMED(WM_MEASUREITEM),
                                            NAMED(WM_DELETEITEM),
                                            NAMED(WM_SETFONT),
                                            NAMED(WM_GETFONT),
                                            {WM_WINDOWPOSCHANGING, "POSCHANGING"},
                                            {WM_WINDOWPOSCHANGED, "POSCHANGED"},
                                            NAMED(WM_NOTIFY),
                                            NAMED(WM_CONTEXTMENU),
                                            NAMED(WM_STYLECHANGING),
                                            NAMED(WM_STYLECHANGED),
                                            NAMED(WM_NCCREATE),
                                            NAMED(WM_NCDESTROY),
                                            NAMED(WM_NCCALCSIZE),
                                            NAMED(WM_NCHITTEST),
                                            NAMED(WM_NCPAINT),
                                            NAMED(WM_NCACTIVATE),
                                            NAMED(WM_GETDLGCODE),
                                            NAMED(WM_NCMOUSEMOVE),
                                            NAMED(WM_NCLBUTTONDOWN),
                                            NAMED(WM_NCLBUTTONUP),
                                            NAMED(WM_NCLBUTTONDBLCLK),
                                            NAMED(WM_KEYDOWN),
                                            NAMED(WM_KEYUP),
                                            NAMED(WM_CHAR),
                                            NAMED(WM_SYSKEYDOWN),
                                            NAMED(WM_SYSKEYUP),
                                            NAMED(WM_SYSCHAR),
                                            NAMED(WM_INITDIALOG),
                                            NAMED(WM_COMMAND),
                                            NAMED(WM_SYSCOMMAND),
                                            NAMED(WM_TIMER),
                                            NAMED(WM_HSCROLL),
                                            NAMED(WM_VSCROLL),
                                            NAMED(WM_CTLCOLOREDIT),
                                            NAMED(WM_CTLCOLORLISTBOX),
                                            NAMED(WM_CTLCOLORBTN),
                                            NAMED(WM_CTLCOLORDLG),
                                            NAMED(WM_CTLCOLORSTATIC),
                                            NAMED(WM_MOUSEMOVE),
                                            NAMED(WM_LBUTTONDOWN),
                                            NAMED(WM_LBUTTONUP),
                                            NAMED(WM_LBUTTONDBLCLK),
                                            NAMED(WM_RBUTTONDOWN),
                                            NAMED(WM_RBUTTONUP),
                                            NAMED(WM_RBUTTONDBLCLK),
                                            NAMED(WM_MOUSEWHEEL),
                                            NAMED(WM_PARENTNOTIFY),
                                            NAMED(WM_CAPTURECHANGED),
                                            NAMED(WM_ENTERSIZEMOVE),
                                            NAMED(WM_EXITSIZEMOVE),
                                            NAMED(WM_MOUSEHOVER),
                                            NAMED(WM_MOUSELEAVE),
                                            NAMED(WM_CUT),
                                            NAMED(WM_COPY),
                                            NAMED(WM_PASTE)};
#undef NAMED

}  // namespace

std::string MessageName(UINT message) {
    if (message >= WM_USER && message < WM_USER + 0x400) {
        return "WM_USER+" + std::to_string(message - WM_USER);
    }
    const auto found = kNames.find(message);
    return found == kNames.end() ? HexText(message) : found->second;
}

std::string PositionFlags(const WINDOWPOS& position) {
    static const struct {
        UINT flag;
        const char* word;
    } kFlags[] = {
        {SWP_NOSIZE, "-size"},     {SWP_NOMOVE, "-move"},     {SWP_NOZORDER, "-z"},
        {SWP_NOREDRAW, "-redraw"}, {SWP_NOACTIVATE, "-act"},  {SWP_FRAMECHANGED, "+frame"},
        {SWP_SHOWWINDOW, "+show"}, {SWP_HIDEWINDOW, "+hide"}, {SWP_NOCOPYBITS, "-copy"}};
    std::string text;
    for (const auto& [flag, word] : kFlags) {
        if ((position.flags & flag) == 0) continue;
        if (!text.empty()) text += " ";
        text += word;
    }
    return text;
}

std::string ActivationWord(WPARAM wParam) {
    static const char* const kWords[] = {"inactive", "active", "click"};
    return LOWORD(wParam) < 3 ? kWords[LOWORD(wParam)] : std::to_string(LOWORD(wParam));
}

std::string ScrollWord(int code) {
    static const char* const kWords[] = {"SB_LINEUP",   "SB_LINEDOWN",      "SB_PAGEUP",
                                         "SB_PAGEDOWN", "SB_THUMBPOSITION", "SB_THUMBTRACK",
                                         "SB_TOP",      "SB_BOTTOM",        "SB_ENDSCROLL"};
    return code >= 0 && code < 9 ? kWords[code] : std::to_string(code);
}

std::string SystemCommandText(WPARAM wParam) {
    const std::string hit = "+" + std::to_string(wParam & 0xF);
    switch (wParam & 0xFFF0) {
        case SC_VSCROLL: return "SC_VSCROLL" + hit;
        case SC_HSCROLL: return "SC_HSCROLL" + hit;
        case SC_MOVE: return "SC_MOVE" + hit;
        case SC_SIZE: return "SC_SIZE" + hit;
        default: return HexText(static_cast<unsigned>(wParam));
    }
}

std::string PointText(LPARAM lParam) {
    return std::to_string(static_cast<short>(LOWORD(lParam))) + "," +
           std::to_string(static_cast<short>(HIWORD(lParam)));
}

std::string HexText(unsigned value) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%02X", value);
    return text;
}

}  // namespace tests
