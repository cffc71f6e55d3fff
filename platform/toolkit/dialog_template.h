#pragma once

#include <span>
#include <vector>

#include "platform/toolkit/base.h"

/// Dialogs as tables. Positions and sizes are dialog units of 9 point 宋体.
///
///     constexpr DialogControl kAskControls[] = {
///         Label(-1, "数量", 8, 10, 30, 8),
///         TextEdit(10001, 42, 8, 60, 12),
///         DefaultButton(IDOK, "确定", 42, 28, 40, 14),
///     };
///     constexpr DialogTemplate kDialogs[] = {
///         {.id = 10020, .title = "提示", .width = 120, .height = 50, .controls = kAskControls},
///     };
namespace toolkit {

struct Placement {
    short x = 0;
    short y = 0;
    short width = 0;
    short height = 0;
};

/// The unit nearest to a number of pixels. One is 1.5 pixels both ways.
constexpr short Units(int pixels) {
    return static_cast<short>((pixels * 4 + (pixels < 0 ? -3 : 3)) / 6);
}

/// A placement thought of in pixels. What stands side by side there does so here, a pixel apart at
/// most.
constexpr Placement Pixels(int x, int y, int width, int height) {
    // An odd number of units is half a pixel too long; two of them would reach the neighbour.
    const auto between = [](int from, int to) {
        const int units = Units(to) - Units(from);
        const bool both_odd = Units(from) % 2 != 0 && units % 2 != 0;
        return static_cast<short>(both_odd ? units - 1 : units);
    };
    return {Units(x), Units(y), between(x, x + width), between(y, y + height)};
}

struct DialogControl {
    int id = -1;
    const char* window_class = "";
    const char* text = "";
    DWORD style = 0;  ///< WS_CHILD is added
    Placement place;
    DWORD ex_style = 0;
};

constexpr DWORD kModalStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
/// A page inside another window.
constexpr DWORD kPageStyle = WS_CHILD | DS_CONTROL;

struct DialogTemplate {
    UINT id = 0;
    const char* title = "";
    DWORD style = kModalStyle;  ///< DS_SETFONT is added
    DWORD ex_style = 0;
    short x = 0;
    short y = 0;
    short width = 0;
    short height = 0;
    std::span<const DialogControl> controls = {};
};

using TemplateTable = std::span<const DialogTemplate>;

/// A control of any class, visible unless `style` says otherwise.
constexpr DialogControl Control(int id, const char* window_class, const char* text, DWORD style,
                                Placement place, DWORD ex_style = 0) {
    return {id, window_class, text, style, place, ex_style};
}

constexpr DialogControl Label(int id, const char* text, Placement place, DWORD style = SS_LEFT) {
    return {id, "Static", text, style | WS_VISIBLE, place, 0};
}

constexpr DialogControl TextEdit(int id, Placement place, DWORD style = ES_AUTOHSCROLL) {
    return {id, "Edit", "", style | WS_VISIBLE | WS_BORDER | WS_TABSTOP, place, 0};
}

constexpr DialogControl PushButton(int id, const char* text, Placement place,
                                   DWORD style = BS_PUSHBUTTON) {
    return {id, "Button", text, style | WS_VISIBLE | WS_TABSTOP, place, 0};
}

constexpr DialogControl DefaultButton(int id, const char* text, Placement place) {
    return PushButton(id, text, place, BS_DEFPUSHBUTTON);
}

constexpr DialogControl CheckBox(int id, const char* text, Placement place) {
    return PushButton(id, text, place, BS_AUTOCHECKBOX);
}

constexpr DialogControl RadioButton(int id, const char* text, Placement place, DWORD group = 0) {
    return PushButton(id, text, place, BS_AUTORADIOBUTTON | group);
}

constexpr DialogControl GroupBox(int id, const char* text, Placement place) {
    return {id, "Button", text, BS_GROUPBOX | WS_VISIBLE, place, 0};
}

/// The height is that of the open list.
constexpr DialogControl DropDown(int id, Placement place, DWORD style = CBS_DROPDOWNLIST) {
    return {id, "ComboBox", "", style | WS_VISIBLE | WS_VSCROLL | WS_TABSTOP, place, 0};
}

constexpr DialogControl List(int id, Placement place, DWORD style = LBS_NOTIFY) {
    return {id, "ListBox", "", style | WS_VISIBLE | WS_VSCROLL | WS_BORDER | WS_TABSTOP, place, 0};
}

/// The template in the form that the system reads: words, aligned to four bytes.
class TOOLKIT_API MemoryTemplate {
public:
    explicit MemoryTemplate(const DialogTemplate& dialog);
    LPCDLGTEMPLATE Get() const { return reinterpret_cast<LPCDLGTEMPLATE>(words_.data()); }

private:
    void Word(unsigned value);
    void Long(DWORD value);
    void Text(const char* gbk);
    void Place(const Placement& place);
    void Align();
    void Control(const DialogControl& control);

    std::vector<WORD> words_;
};

}  // namespace toolkit
