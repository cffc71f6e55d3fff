#include <array>

#include "platform/present/screen.h"
#include "platform/win32/kernel/handle_table.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

// The system's cursors and icons are their resource numbers, told apart by the upper word.
constexpr std::uint32_t kCursorBits = 0x00010000;
constexpr std::uint32_t kIconBits = 0x00020000;

struct CursorShape {
    LPCSTR name;
    present::Cursor shape;
};

const std::array kCursors = {CursorShape{IDC_ARROW, present::Cursor::kArrow},
                             CursorShape{IDC_IBEAM, present::Cursor::kBeam},
                             CursorShape{IDC_WAIT, present::Cursor::kWait},
                             CursorShape{IDC_CROSS, present::Cursor::kCross},
                             CursorShape{IDC_SIZENWSE, present::Cursor::kSizeNwse},
                             CursorShape{IDC_SIZENESW, present::Cursor::kSizeNesw},
                             CursorShape{IDC_SIZEWE, present::Cursor::kSizeWe},
                             CursorShape{IDC_SIZENS, present::Cursor::kSizeNs},
                             CursorShape{IDC_SIZEALL, present::Cursor::kSizeAll},
                             CursorShape{IDC_NO, present::Cursor::kNo},
                             CursorShape{IDC_HAND, present::Cursor::kHand}};

const std::array kIcons = {IDI_APPLICATION, IDI_ERROR, IDI_QUESTION, IDI_WARNING, IDI_INFORMATION};

HCURSOR g_cursor = nullptr;

HICON SystemHandle(LPCSTR name, std::uint32_t bits) {
    return ToHandle<HICON>(bits | static_cast<WORD>(reinterpret_cast<ULONG_PTR>(name)));
}

HICON NotFound() {
    SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return nullptr;
}

void ShowCursorShape(HCURSOR cursor) {
    present::Screen* const screen = CurrentScreen();
    if (screen == nullptr) return;
    for (const auto& [name, shape] : kCursors) {
        if (SystemHandle(name, kCursorBits) == cursor) screen->SetCursor(shape);
    }
}

}  // namespace

}  // namespace winbase

using namespace winbase;

HCURSOR LoadCursorA(HINSTANCE instance, LPCSTR name) {
    for (const auto& [known, shape] : kCursors) {
        if (instance == nullptr && known == name) return SystemHandle(name, kCursorBits);
    }
    return NotFound();
}

HICON LoadIconA(HINSTANCE instance, LPCSTR name) {
    for (const LPCSTR known : kIcons) {
        if (instance == nullptr && known == name) return SystemHandle(name, kIconBits);
    }
    return NotFound();
}

HCURSOR SetCursor(HCURSOR cursor) {
    AssertUiThread();
    const HCURSOR former = g_cursor;
    g_cursor = cursor;
    if (former != cursor) ShowCursorShape(cursor);
    return former;
}

HCURSOR GetCursor() { return g_cursor; }

BOOL MessageBeep(UINT) { return TRUE; }
