#pragma once

#include <windows.h>

namespace winbase {

/// Labels, icons, rules and owner-drawn fields. Bitmaps (SS_BITMAP) are not supported.
class StaticControl {
public:
    explicit StaticControl(HWND window) : window_(window) {}
    StaticControl(const StaticControl&) = delete;
    StaticControl& operator=(const StaticControl&) = delete;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam);

private:
    DWORD Style() const { return static_cast<DWORD>(GetWindowLongA(window_, GWL_STYLE)); }
    DWORD Type() const { return Style() & SS_TYPEMASK; }
    bool Notifies() const { return (Style() & SS_NOTIFY) != 0; }

    LRESULT SetIcon(HICON icon);
    LRESULT SetText(WPARAM wParam, LPARAM lParam);
    void Enable(bool enabled);

    void PaintUpdate();
    void PaintNow();
    void Paint(HDC dc);
    void AskOwner(HDC dc, const RECT& client);
    void PaintText(HDC dc, const RECT& client);

    HWND window_;
    HFONT font_ = nullptr;
    HICON icon_ = nullptr;
};

}  // namespace winbase
