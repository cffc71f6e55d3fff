#include "tests/platform/win32/controls/control_frame.h"

#include <commctrl.h>
#include <richedit.h>

#include <algorithm>

#include "platform/testing/input.h"
#include "tests/support/gbk_text.h"

namespace tests {

namespace {

constexpr const char* kFrameClass = "ControlFrame";
ControlFrame* g_current = nullptr;

using Names = std::map<UINT, std::string>;

const Names& CommandNames(const std::string& window_class) {
    static const Names kEdit = {{EN_SETFOCUS, "EN_SETFOCUS"}, {EN_KILLFOCUS, "EN_KILLFOCUS"},
                                {EN_CHANGE, "EN_CHANGE"},     {EN_UPDATE, "EN_UPDATE"},
                                {EN_MAXTEXT, "EN_MAXTEXT"},   {EN_VSCROLL, "EN_VSCROLL"}};
    static const Names kCombo = {
        {CBN_SELCHANGE, "CBN_SELCHANGE"},      {CBN_SETFOCUS, "CBN_SETFOCUS"},
        {CBN_KILLFOCUS, "CBN_KILLFOCUS"},      {CBN_EDITCHANGE, "CBN_EDITCHANGE"},
        {CBN_EDITUPDATE, "CBN_EDITUPDATE"},    {CBN_DROPDOWN, "CBN_DROPDOWN"},
        {CBN_CLOSEUP, "CBN_CLOSEUP"},          {CBN_SELENDOK, "CBN_SELENDOK"},
        {CBN_SELENDCANCEL, "CBN_SELENDCANCEL"}};
    static const Names kList = {{LBN_SELCHANGE, "LBN_SELCHANGE"},
                                {LBN_DBLCLK, "LBN_DBLCLK"},
                                {LBN_SETFOCUS, "LBN_SETFOCUS"},
                                {LBN_KILLFOCUS, "LBN_KILLFOCUS"}};
    if (window_class == "ComboBox") return kCombo;
    return window_class == "ListBox" ? kList : kEdit;
}

const Names kNotifications = {{NM_CLICK, "NM_CLICK"},
                              {NM_DBLCLK, "NM_DBLCLK"},
                              {NM_RETURN, "NM_RETURN"},
                              {NM_RCLICK, "NM_RCLICK"},
                              {NM_SETFOCUS, "NM_SETFOCUS"},
                              {NM_KILLFOCUS, "NM_KILLFOCUS"},
                              {NM_CUSTOMDRAW, "NM_CUSTOMDRAW"},
                              {UDN_DELTAPOS, "UDN_DELTAPOS"},
                              {TCN_KEYDOWN, "TCN_KEYDOWN"},
                              {TCN_SELCHANGE, "TCN_SELCHANGE"},
                              {TCN_SELCHANGING, "TCN_SELCHANGING"},
                              {DTN_DATETIMECHANGE, "DTN_DATETIMECHANGE"},
                              {DTN_DROPDOWN, "DTN_DROPDOWN"},
                              {DTN_CLOSEUP, "DTN_CLOSEUP"},
                              {TVN_SELCHANGINGA, "TVN_SELCHANGING"},
                              {TVN_SELCHANGEDA, "TVN_SELCHANGED"},
                              {TVN_ITEMEXPANDINGA, "TVN_ITEMEXPANDING"},
                              {TVN_ITEMEXPANDEDA, "TVN_ITEMEXPANDED"},
                              {TVN_DELETEITEMA, "TVN_DELETEITEM"},
                              {TVN_KEYDOWN, "TVN_KEYDOWN"},
                              {EN_SELCHANGE, "EN_SELCHANGE"}};

const Names kMessages = {{WM_CTLCOLOREDIT, "CTLCOLOREDIT"},
                         {WM_CTLCOLORSTATIC, "CTLCOLORSTATIC"},
                         {WM_CTLCOLORLISTBOX, "CTLCOLORLISTBOX"},
                         {WM_VSCROLL, "WM_VSCROLL"},
                         {WM_MEASUREITEM, "MEASUREITEM"},
                         {WM_DRAWITEM, "DRAWITEM"},
                         {WM_DELETEITEM, "DELETEITEM"}};

std::string Number(LONG_PTR value) { return std::to_string(value); }

std::string MessageDetails(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_VSCROLL: return "(" + Number(LOWORD(wParam)) + " " + Number(HIWORD(wParam)) + ")";
        case WM_MEASUREITEM: {
            const auto& item = *reinterpret_cast<const MEASUREITEMSTRUCT*>(lParam);
            return "(" + Number(static_cast<int>(item.itemID)) + ")";
        }
        case WM_DELETEITEM: {
            const auto& item = *reinterpret_cast<const DELETEITEMSTRUCT*>(lParam);
            return "(" + Number(static_cast<int>(item.itemID)) + " data " +
                   Number(static_cast<LONG_PTR>(item.itemData)) + ")";
        }
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            return "(" + Number(static_cast<int>(item.itemID)) + " action " +
                   Number(item.itemAction) + " state " + Number(item.itemState) + " top " +
                   Number(item.rcItem.top) + ")";
        }
        default: return {};
    }
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
        text.replace(at, from.size(), to);
    }
    return text;
}

}  // namespace

std::string NotificationName(UINT code) {
    const auto found = kNotifications.find(code);
    return found != kNotifications.end() ? found->second : Number(static_cast<int>(code));
}

std::string NotificationDetails(const NMHDR& header) {
    switch (header.code) {
        case UDN_DELTAPOS: {
            const auto& change = reinterpret_cast<const NMUPDOWN&>(header);
            return "(" + Number(change.iPos) + " by " + Number(change.iDelta) + ")";
        }
        case DTN_DATETIMECHANGE: {
            const auto& change = reinterpret_cast<const NMDATETIMECHANGE&>(header);
            return "(" + Number(change.st.wYear) + "-" + Number(change.st.wMonth) + "-" +
                   Number(change.st.wDay) + ")";
        }
        case TVN_SELCHANGINGA:
        case TVN_SELCHANGEDA:
        case TVN_ITEMEXPANDINGA:
        case TVN_ITEMEXPANDEDA: {
            const auto& change = reinterpret_cast<const NMTREEVIEWA&>(header);
            return "(" + Number(change.itemOld.lParam) + ">" + Number(change.itemNew.lParam) +
                   " by " + Number(change.action) + " state " + Number(change.itemNew.state) + ")";
        }
        case TVN_DELETEITEMA:
            return "(" + Number(reinterpret_cast<const NMTREEVIEWA&>(header).itemOld.lParam) + ")";
        case EN_SELCHANGE: {
            const auto& change = reinterpret_cast<const SELCHANGE&>(header);
            return "(" + Number(change.chrg.cpMin) + ".." + Number(change.chrg.cpMax) + ")";
        }
        default: return {};
    }
}

void ControlFrame::SetUp() {
    g_current = this;
    platform::testing::StopClock();
    WNDCLASSA frame_class{};
    frame_class.lpfnWndProc = Procedure;
    frame_class.hInstance = GetModuleHandleA(nullptr);
    frame_class.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    frame_class.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    frame_class.lpszClassName = kFrameClass;
    RegisterClassA(&frame_class);
    frame_ = CreateWindowExA(0, kFrameClass, "frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100,
                             500, 400, nullptr, nullptr, frame_class.hInstance, nullptr);
    next_ = CreateWindowExA(0, "Static", "", WS_CHILD | WS_VISIBLE, 300, 300, 50, 20, frame_,
                            nullptr, frame_class.hInstance, nullptr);
    SetForegroundWindow(frame_);
    FocusElsewhere();
    platform::testing::MovePointer({900, 700});
    Take();
}

void ControlFrame::TearDown() {
    DestroyWindow(frame_);
    UnregisterClassA(kFrameClass, GetModuleHandleA(nullptr));
    g_current = nullptr;
}

HWND ControlFrame::Make(const char* window_class, DWORD style, int width, int height,
                        const char* text, DWORD ex_style) {
    if (ctl_ != nullptr) DestroyWindow(ctl_);
    ctl_ = CreateWindowExA(ex_style, window_class, text, WS_CHILD | WS_VISIBLE | style, 10, 10,
                           width, height, frame_, reinterpret_cast<HMENU>(ULONG_PTR{10}),
                           GetModuleHandleA(nullptr), nullptr);
    EXPECT_NE(nullptr, ctl_);
    FocusElsewhere();
    return ctl_;
}

LRESULT ControlFrame::Send(UINT message, WPARAM wParam, LPARAM lParam) {
    return SendMessageA(ctl_, message, wParam, lParam);
}

LRESULT ControlFrame::Send(UINT message, WPARAM wParam, const char* text) {
    return SendMessageA(ctl_, message, wParam, reinterpret_cast<LPARAM>(text));
}

std::string ControlFrame::Text() const {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(ctl_)) + 1, '\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextA(ctl_, text.data(), static_cast<int>(text.size()))));
    return text;
}

void ControlFrame::ClickOnce(int x, int y) {
    EndClickSequence();
    platform::testing::Click(ctl_, x, y);
}

// A click on nothing stands between.
void ControlFrame::EndClickSequence() { platform::testing::Click(frame_, 5, 300); }

std::string ControlFrame::Take() {
    platform::testing::Pump();
    return Replaced(std::exchange(told_, {}), "EN_UPDATE EN_CHANGE", "UPD+CHG");
}

void ControlFrame::Run(const std::vector<Step>& steps) {
    Take();
    for (const Step& step : steps) {
        SCOPED_TRACE(step.what);
        step.act();
        EXPECT_GBK_EQ(step.told, Take());
        EXPECT_GBK_EQ(step.state, State());
    }
}

void ControlFrame::Note(const std::string& text) { told_ += (told_.empty() ? "" : " ") + text; }

LRESULT CALLBACK ControlFrame::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (g_current == nullptr) return DefWindowProcA(window, message, wParam, lParam);
    return g_current->Message(window, message, wParam, lParam);
}

LRESULT ControlFrame::Message(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (std::find(shown_.begin(), shown_.end(), message) != shown_.end()) {
        const auto name = kMessages.find(message);
        Note((name != kMessages.end() ? name->second : Number(message)) +
             MessageDetails(message, wParam, lParam));
    }
    LRESULT answer = 0;
    if (handler_ && handler_(message, wParam, lParam, answer)) return answer;
    if (message == WM_COMMAND && lParam != 0) {
        Note(CommandName(reinterpret_cast<HWND>(lParam), HIWORD(wParam)));
        return 0;
    }
    if (message == WM_NOTIFY) return Notified(*reinterpret_cast<const NMHDR*>(lParam));
    return DefWindowProcA(window, message, wParam, lParam);
}

LRESULT ControlFrame::Notified(const NMHDR& header) {
    // Asked whenever the pointer moves over a tree.
    if (header.code == NM_SETCURSOR || header.code == NM_CUSTOMDRAW) return 0;
    Note(NotificationName(header.code) + NotificationDetails(header));
    const auto answer = answers_.find(header.code);
    return answer != answers_.end() ? answer->second : 0;
}

std::string ControlFrame::CommandName(HWND control, int code) const {
    char window_class[32] = "";
    GetClassNameA(control, window_class, sizeof window_class);
    const Names& names = CommandNames(window_class);
    const auto found = names.find(static_cast<UINT>(code));
    return found != names.end() ? found->second : Number(code);
}

}  // namespace tests
