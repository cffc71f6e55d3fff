#pragma once

#include <windows.h>

namespace winbase {

/// Two arrows that tell the parent UDN_DELTAPOS, faster the longer they are held. No buddy and no
/// range of its own: pages take the step from the notification.
class UpDownControl {
public:
    explicit UpDownControl(HWND window) : window_(window) {}
    UpDownControl(const UpDownControl&) = delete;
    UpDownControl& operator=(const UpDownControl&) = delete;

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    LRESULT Message(UINT message, WPARAM wParam, LPARAM lParam);

private:
    enum class Part { kNone, kUp, kDown };

    bool Horizontal() const;
    RECT PartRect(Part part) const;
    Part PartAt(POINT point) const;
    void Press(POINT point);
    void Repeat();
    void Stop();
    void Step(int amount);
    void TellScroll(int code);
    void Hover(POINT point);
    void Paint();

    HWND window_;
    int position_ = 0;
    Part pressed_ = Part::kNone;
    Part hovered_ = Part::kNone;
    DWORD pressed_since_ = 0;
};

}  // namespace winbase
