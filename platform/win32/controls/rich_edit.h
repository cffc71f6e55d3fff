#pragma once

#include "platform/win32/controls/edit_control.h"

namespace winbase {

/// The rich edit as far as plain text goes. It tells the parent only what its event mask asks for,
/// keeps one character a line end, and gives CR LF to whoever reads the text.
class RichEditControl final : public EditControl {
public:
    RichEditControl(HWND window, LineEnds ends);
    ~RichEditControl() override;

    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    void TellUpdate(ChangeKind) override {}
    void TellChange(ChangeKind kind) override;
    void TellSelection() override;
    void TellTooLong() override { MessageBeep(MB_OK); }
    void TellPainting() override;
    bool CanGrow(const Codes& inserted, std::size_t* room) const override;
    COLORREF Ground(HDC dc, HBRUSH* brush) const override;

private:
    LRESULT SetGround(bool system, COLORREF color);
    LRESULT SelectRange(LONG from, LONG to);
    LRESULT GetSelectedText(char* buffer) const;

    DWORD event_mask_ = 0;
    bool update_due_ = false;  ///< EN_UPDATE, before what changed is painted
    COLORREF ground_ = RGB(255, 255, 255);
    HBRUSH ground_brush_ = nullptr;   ///< none while the system's colour is wanted
    bool end_mark_selected_ = false;  ///< everything, the text's last line end included
};

}  // namespace winbase
