// What happens when the process ends with windows standing.

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/system.h"

namespace {

/// Made before the layer is first used, so that it goes after whatever the layer drops at the end.
struct LastOwner {
    LastOwner() = default;
    LastOwner(const LastOwner&) = delete;
    LastOwner& operator=(const LastOwner&) = delete;
    ~LastOwner() {
        if (window == nullptr) return;
        const bool gone = DestroyWindow(window) != FALSE && !IsWindow(window);
        std::_Exit(gone ? 7 : 8);
    }

    HWND window = nullptr;
};

LastOwner last_owner;

HWND ShownDialogWith(const char* child_class) {
    const HWND dialog = CreateWindowExA(0, "#32770", "last", WS_POPUP | WS_VISIBLE | WS_CAPTION, 50,
                                        50, 300, 200, nullptr, nullptr, nullptr, nullptr);
    const HWND child =
        CreateWindowExA(0, child_class, "child", WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, 10, 10, 90,
                        30, dialog, nullptr, nullptr, nullptr);
    SetFocus(child);
    SetCapture(child);
    SetTimer(child, 1, 1000, nullptr);
    UpdateWindow(dialog);
    GetDC(child);
    return dialog;
}

TEST(EndOfProcess, StaticObjectsMayLeaveTheirWindows) {
    for (const char* child_class : {"EDIT", "BUTTON", "COMBOBOX"}) {
        const auto end = [&] {
            last_owner.window = ShownDialogWith(child_class);
            std::exit(0);
        };
        EXPECT_EXIT(end(), testing::ExitedWithCode(7), "") << child_class;
    }
}

}  // namespace
