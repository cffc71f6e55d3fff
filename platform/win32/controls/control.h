#pragma once

#include <windows.h>

namespace winbase {

/// Colours of the standard controls by role; they agree with the system colours of the layer.
namespace look {
inline constexpr COLORREF kGround = RGB(0xF3, 0xF5, 0xF8);  // dialogs and pages
inline constexpr COLORREF kPaper = RGB(0xFF, 0xFF, 0xFF);   // inputs and lists
inline constexpr COLORREF kLine = RGB(0xCC, 0xD7, 0xE0);    // borders at rest
inline constexpr COLORREF kText = RGB(0x1F, 0x29, 0x33);
inline constexpr COLORREF kSecondary = RGB(0x5B, 0x68, 0x75);  // chevrons, group captions
inline constexpr COLORREF kDisabled = RGB(0x7F, 0x8A, 0x94);   // texts of disabled controls
inline constexpr COLORREF kAccent = RGB(0x2F, 0x6D, 0xB3);     // focus, default button, marks
inline constexpr COLORREF kHover = RGB(0xEA, 0xF1, 0xF8);
inline constexpr COLORREF kPressed = RGB(0xD5, 0xE1, 0xED);
}  // namespace look

/// Asks the parent by WM_CTLCOLOR... for the brush and the text colours of a control; the system's
/// answer stands in for a parent that gives none.
HBRUSH AskColors(HWND control, HDC dc, UINT message);

/// WM_COMMAND with the control's id and a notification code; nothing without a parent.
LRESULT TellParent(HWND control, int code);
/// WM_NOTIFY; fills in window, id and code of the header.
LRESULT TellParent(HWND control, NMHDR& header, UINT code);

/// A filled rectangle with a one-pixel border and corners rounded by 2 pixels; `outside` shows in
/// the corners.
void DrawBox(HDC dc, const RECT& box, COLORREF border, COLORREF fill, COLORREF outside);
/// One pixel of accent around `box`, whose inside stays as it is.
void DrawFocusRing(HDC dc, const RECT& box);

enum class Direction { kUp, kDown, kLeft, kRight };
/// A thin chevron in the middle of `box`.
void DrawChevron(HDC dc, const RECT& box, Direction direction, COLORREF color);

void FillColor(HDC dc, const RECT& rect, COLORREF color);
/// Whether a control has a border or a sunken edge.
bool HasFrame(HWND control);
/// Over the frame of an input or list with a border: one line, in the accent while it has the
/// focus, and `inside` (null: paper) where the frame is wider.
void PaintInputFrame(HWND control, bool focused, HBRUSH inside);

/// Selects a font (null: leaves the context's) and puts the old one back.
class UseFont {
public:
    UseFont(HDC dc, HFONT font)
        : dc_(dc), old_(font != nullptr ? SelectObject(dc, font) : nullptr) {}
    ~UseFont() {
        if (old_ != nullptr) SelectObject(dc_, old_);
    }
    UseFont(const UseFont&) = delete;
    UseFont& operator=(const UseFont&) = delete;

private:
    HDC dc_;
    HGDIOBJ old_;
};

/// Height of a line in a font (null: the system's).
int LineHeight(HFONT font);

}  // namespace winbase
