#include <algorithm>
#include <cassert>
#include <string>
#include <vector>

#include "platform/win32/controls/control.h"
#include "platform/win32/controls/dialog.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

constexpr int kIconId = 1088;
constexpr int kTextId = 0xFFFF;

constexpr int kMargin = 16;
constexpr int kIconSide = 32;
constexpr int kIconGap = 12;
constexpr int kTextToButtons = 20;
constexpr int kButtonWidth = 80;
constexpr int kButtonHeight = 28;
constexpr int kButtonGap = 8;
constexpr int kLeastWidth = 200;

constexpr UINT kTypeMask = 0x000F;
constexpr UINT kIconMask = 0x00F0;
constexpr UINT kDefaultMask = 0x0F00;

struct BoxButton {
    int id;
    const char* caption;
};

struct Box {
    std::string text;
    std::string title;
    UINT flags = 0;
    HWND owner = nullptr;
    std::vector<BoxButton> buttons;

    int DefaultButton() const {
        const UINT wanted = (flags & kDefaultMask) >> 8;
        return wanted < buttons.size() ? static_cast<int>(wanted) : 0;
    }
};

std::vector<BoxButton> ButtonsOf(UINT flags) {
    const BoxButton ok{IDOK, "确定"};
    const BoxButton cancel{IDCANCEL, "取消"};
    const BoxButton yes{IDYES, "是(&Y)"};
    const BoxButton no{IDNO, "否(&N)"};
    switch (flags & kTypeMask) {
        case MB_OKCANCEL: return {ok, cancel};
        case MB_YESNOCANCEL: return {yes, no, cancel};
        case MB_YESNO: return {yes, no};
        case MB_RETRYCANCEL: return {{IDRETRY, "重试(&R)"}, cancel};
        default:
            assert((flags & kTypeMask) == MB_OK && "message boxes have no such set of buttons");
            return {ok};
    }
}

HICON IconOf(UINT flags) {
    switch (flags & kIconMask) {
        case MB_ICONERROR: return LoadIconA(nullptr, IDI_ERROR);
        case MB_ICONQUESTION: return LoadIconA(nullptr, IDI_QUESTION);
        case MB_ICONWARNING: return LoadIconA(nullptr, IDI_WARNING);
        case MB_ICONINFORMATION: return LoadIconA(nullptr, IDI_INFORMATION);
        default: return nullptr;
    }
}

DialogTemplate TemplateOf(const Box& box) {
    DialogTemplate dialog;
    dialog.style = WS_POPUP | WS_CAPTION | DS_MODALFRAME | DS_SETFONT;
    // Without a button that means "neither", the box cannot be closed.
    if ((box.flags & kTypeMask) != MB_YESNO) dialog.style |= WS_SYSMENU;
    if ((box.flags & MB_TOPMOST) != 0) dialog.ex_style |= WS_EX_TOPMOST;
    dialog.title = box.title;
    dialog.point_size = 9;
    dialog.face = "宋体";
    const bool has_icon = IconOf(box.flags) != nullptr;
    dialog.controls.push_back(
        {SS_ICON | (has_icon ? WS_VISIBLE : 0u), 0, 0, 0, 0, 0, kIconId, "Static", "", {}});
    for (std::size_t i = 0; i < box.buttons.size(); ++i) {
        const bool is_default = static_cast<int>(i) == box.DefaultButton();
        const DWORD style = WS_VISIBLE | WS_TABSTOP | (i == 0 ? WS_GROUP : 0u) |
                            (is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
        dialog.controls.push_back(
            {style, 0, 0, 0, 0, 0, box.buttons[i].id, "Button", box.buttons[i].caption, {}});
    }
    dialog.controls.push_back(
        {WS_VISIBLE | SS_LEFT | SS_NOPREFIX, 0, 0, 0, 0, 0, kTextId, "Static", box.text, {}});
    return dialog;
}

SIZE MeasureText(HDC dc, const std::string& text, int width) {
    RECT area{0, 0, width, 0};
    DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &area,
              DT_WORDBREAK | DT_EXPANDTABS | DT_NOPREFIX | DT_CALCRECT);
    return {area.right, area.bottom};
}

/// Lines of a readable length; longer ones only for a long word, a path perhaps, and for a text
/// that would not fit the screen.
SIZE TextSize(HDC dc, const std::string& text, const RECT& work) {
    constexpr int kReadable = 420;
    const LONG widest = std::max<LONG>(kReadable, (work.right - work.left) * 3 / 4);
    const LONG highest = (work.bottom - work.top) * 3 / 5;
    SIZE size = MeasureText(dc, text, kReadable);
    if (size.cy > highest) size = MeasureText(dc, text, widest);
    return {std::min(size.cx, widest), std::min(size.cy, highest)};
}

int CaptionWidth(HDC dc, const char* caption) {
    const std::string text = caption;
    SIZE size{};
    GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

/// Puts a child down in client coordinates.
void Place(HWND dialog, int id, int x, int y, int width, int height) {
    SetWindowPos(GetDlgItem(dialog, id), nullptr, x, y, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Gives the box a client area of this size in the middle of its owner, or else of the screen.
void PlaceBox(HWND dialog, const Box& box, const RECT& work, SIZE client) {
    RECT rect{0, 0, client.cx, client.cy};
    AdjustWindowRectEx(&rect, static_cast<DWORD>(GetWindowLongA(dialog, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongA(dialog, GWL_EXSTYLE)));
    const LONG width = rect.right - rect.left;
    const LONG height = rect.bottom - rect.top;
    RECT around = work;
    if (box.owner != nullptr && IsWindowVisible(box.owner) && !IsIconic(box.owner)) {
        GetWindowRect(box.owner, &around);
    }
    const LONG x = std::min((around.left + around.right - width) / 2, work.right - width);
    const LONG y = std::min((around.top + around.bottom - height) / 2, work.bottom - height);
    SetWindowPos(dialog, nullptr, std::max(x, work.left), std::max(y, work.top), width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

struct Measures {
    SIZE text{};
    int title_width = 0;
    int button_width = 0;
};

Measures Measure(HWND dialog, const Box& box, const RECT& work) {
    const HDC dc = GetDC(dialog);
    Measures measures;
    {
        const UseFont font(dc, reinterpret_cast<HFONT>(SendMessageA(dialog, WM_GETFONT, 0, 0)));
        measures.text = TextSize(dc, box.text, work);
        measures.title_width = CaptionWidth(dc, box.title.c_str());
        measures.button_width = kButtonWidth;
        for (const BoxButton& button : box.buttons) {
            measures.button_width =
                std::max(measures.button_width, CaptionWidth(dc, button.caption) + 24);
        }
    }
    ReleaseDC(dialog, dc);
    return measures;
}

void LayOut(HWND dialog, const Box& box) {
    RECT work{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &work, 0);
    const Measures measures = Measure(dialog, box, work);
    const bool has_icon = IconOf(box.flags) != nullptr;
    const int text_x = kMargin + (has_icon ? kIconSide + kIconGap : 0);
    const int count = static_cast<int>(box.buttons.size());
    const int buttons_width = count * (measures.button_width + kButtonGap) - kButtonGap;
    const int close_box = GetSystemMetrics(SM_CYCAPTION) * 2;
    const int widest = work.right - work.left - kMargin;
    const int width = std::min(
        widest, std::max({kLeastWidth, text_x + static_cast<int>(measures.text.cx) + kMargin,
                          buttons_width + 2 * kMargin, measures.title_width + close_box}));
    const int content = std::max<int>(measures.text.cy, has_icon ? kIconSide : 0);
    const int buttons_y = kMargin + content + kTextToButtons;
    Place(dialog, kIconId, kMargin, kMargin, kIconSide, kIconSide);
    Place(dialog, kTextId, text_x, kMargin + (content - measures.text.cy) / 2,
          width - kMargin - text_x, measures.text.cy);
    int x = width - kMargin - buttons_width;
    for (const BoxButton& button : box.buttons) {
        Place(dialog, button.id, x, buttons_y, measures.button_width, kButtonHeight);
        x += measures.button_width + kButtonGap;
    }
    PlaceBox(dialog, box, work, {width, buttons_y + kButtonHeight + kMargin});
}

void Initialise(HWND dialog, const Box& box) {
    LayOut(dialog, box);
    const HICON icon = IconOf(box.flags);
    if (icon != nullptr) {
        SendDlgItemMessageA(dialog, kIconId, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
    }
    const int chosen = box.buttons[static_cast<std::size_t>(box.DefaultButton())].id;
    SetFocus(GetDlgItem(dialog, chosen));
    MessageBeep(box.flags & kIconMask);
    if ((box.flags & MB_SETFOREGROUND) != 0) SetForegroundWindow(dialog);
}

void Command(HWND dialog, const Box& box, int id) {
    for (const BoxButton& button : box.buttons) {
        if (button.id == id) EndDialog(dialog, id);
    }
    // Escape and the close box of a box that can only be agreed with.
    if (id == IDCANCEL && box.buttons.size() == 1) EndDialog(dialog, IDOK);
}

INT_PTR CALLBACK BoxProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(dialog, DWLP_USER, lParam);
        Initialise(dialog, *reinterpret_cast<const Box*>(lParam));
        return FALSE;  // the default button has the focus already
    }
    if (message != WM_COMMAND) return FALSE;
    const auto* const box = reinterpret_cast<const Box*>(GetWindowLongPtrA(dialog, DWLP_USER));
    if (box == nullptr) return FALSE;
    Command(dialog, *box, LOWORD(wParam));
    return TRUE;
}

BOOL CALLBACK CollectEnabled(HWND window, LPARAM lParam) {
    if (IsWindowVisible(window) && IsWindowEnabled(window)) {
        reinterpret_cast<std::vector<HWND>*>(lParam)->push_back(window);
    }
    return TRUE;
}

/// Disables the thread's windows while a box without an owner is to block them (MB_TASKMODAL).
class DisableWindows {
public:
    explicit DisableWindows(bool wanted) {
        if (!wanted) return;
        EnumThreadWindows(GetCurrentThreadId(), CollectEnabled,
                          reinterpret_cast<LPARAM>(&windows_));
        for (const HWND window : windows_) EnableWindow(window, FALSE);
    }
    ~DisableWindows() {
        for (const HWND window : windows_) EnableWindow(window, TRUE);
    }
    DisableWindows(const DisableWindows&) = delete;
    DisableWindows& operator=(const DisableWindows&) = delete;

private:
    std::vector<HWND> windows_;
};

int ShowBox(const Box& box) {
    if (box.owner != nullptr && !IsWindow(box.owner)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return 0;
    }
    const DisableWindows disabled(box.owner == nullptr && (box.flags & MB_TASKMODAL) != 0);
    const INT_PTR result = RunDialog(TemplateOf(box), nullptr, box.owner, BoxProcedure,
                                     reinterpret_cast<LPARAM>(&box));
    return result > 0 ? static_cast<int>(result) : 0;
}

}  // namespace

}  // namespace winbase

using namespace winbase;

int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR title, UINT flags) {
    Box box;
    box.text = text != nullptr ? text : "";
    box.title = title != nullptr ? title : "错误";
    box.flags = flags;
    box.owner = owner;
    box.buttons = ButtonsOf(flags);
    if (IsUiThread()) return ShowBox(box);
    int result = 0;
    DWORD error = ERROR_SUCCESS;
    CallOnUiThread([&] {
        result = ShowBox(box);
        error = GetLastError();
    });
    if (result == 0) SetLastError(error);
    return result;
}
