#pragma once

#include <windows.h>

namespace winbase {

/// Push buttons, check boxes, radio buttons, group boxes and owner-drawn buttons. Which of them a
/// button is says its style at the time, as BM_SETSTYLE may change it.
///
/// Presses go through BM_SETSTATE and BM_SETCHECK sent to the button's own window, so that who
/// subclassed it sees them.
class ButtonControl {
public:
    explicit ButtonControl(HWND window) : window_(window) {}
    ButtonControl(const ButtonControl&) = delete;
    ButtonControl& operator=(const ButtonControl&) = delete;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam);

private:
    LRESULT InputMessage(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT ButtonMessage(UINT message, WPARAM wParam, LPARAM lParam);

    DWORD Style() const { return static_cast<DWORD>(GetWindowLongA(window_, GWL_STYLE)); }
    bool HasStyle(DWORD style) const { return (Style() & style) != 0; }
    DWORD Type() const { return Style() & BS_TYPEMASK; }
    bool IsCheckBox() const;
    bool IsRadio() const;
    bool IsPush() const;  ///< drawn as a push button
    UINT DialogCode() const;
    UINT ColorMessage() const;

    void GainFocus();
    void LoseFocus();
    void Press(bool by_mouse);
    void Hover(POINT point);
    void Release(bool inside);
    void LoseCapture();
    void Click();
    void AutoCheck();
    void CheckRadioGroup();
    void SetState(bool pushed);
    void SetCheck(WPARAM check);
    void SetType(DWORD type, bool redraw);

    bool Erase(HDC dc);
    void PaintUpdate();
    /// Draws without waiting for WM_PAINT; `action` is what an owner is told (ODA_...).
    void PaintNow(UINT action);
    void Paint(HDC dc, UINT action);
    void AskOwner(HDC dc, UINT action);
    void PaintPush(HDC dc, const RECT& client);
    void PaintCheck(HDC dc, const RECT& client);
    void PaintGroup(HDC dc, const RECT& client, HBRUSH ground);

    HWND window_;
    HFONT font_ = nullptr;
    UINT check_ = BST_UNCHECKED;
    bool pushed_ = false;
    bool focused_ = false;
    bool hovered_ = false;
    bool captured_ = false;    ///< between press and release
    bool by_mouse_ = false;    ///< the press is the mouse's, so leaving the button lifts it
    bool in_click_ = false;    ///< the focus comes with a click, which checks on its own
    bool dont_click_ = false;  ///< BM_SETDONTCLICK: focus does not click a radio button
};

}  // namespace winbase
