#pragma once

#include <windows.h>

#include <memory>

namespace winbase {

/// The window procedure of a control whose class keeps room for one pointer: makes the object at
/// WM_NCCREATE by make(), which gives a shared_ptr, and hands every message to its Message(). A
/// notification may destroy the window while the object is still on the stack; the object outlives
/// that call.
template <class Control, class Make>
LRESULT HostControl(HWND window, UINT message, WPARAM wParam, LPARAM lParam, Make make) {
    using Slot = std::shared_ptr<Control>;
    if (message == WM_NCCREATE) {
        auto slot = std::make_unique<Slot>(make());
        SetWindowLongPtrA(window, 0, reinterpret_cast<LONG_PTR>(slot.release()));
        return DefWindowProcA(window, message, wParam, lParam);
    }
    auto* const slot = reinterpret_cast<Slot*>(GetWindowLongPtrA(window, 0));
    if (slot == nullptr) return DefWindowProcA(window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrA(window, 0, 0);
        delete slot;
        return DefWindowProcA(window, message, wParam, lParam);
    }
    const Slot control = *slot;
    return control->Message(message, wParam, lParam);
}

template <class Control>
LRESULT HostControl(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return HostControl<Control>(window, message, wParam, lParam,
                                [&] { return std::make_shared<Control>(window); });
}

/// The object behind a window that HostControl serves; null once it is gone.
template <class Control>
std::shared_ptr<Control> HostedControl(HWND window) {
    auto* const slot = reinterpret_cast<std::shared_ptr<Control>*>(GetWindowLongPtrA(window, 0));
    return slot != nullptr ? *slot : nullptr;
}

}  // namespace winbase
