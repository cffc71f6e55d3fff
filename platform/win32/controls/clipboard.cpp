#include "platform/win32/controls/clipboard.h"

#include "platform/present/screen.h"
#include "platform/text/gbk.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

std::string& OwnText() {
    static auto& text = *new std::string;
    return text;
}

}  // namespace

std::string ClipboardText() {
    AssertUiThread();
    present::Screen* const screen = CurrentScreen();
    return screen != nullptr ? text::GbkFromUtf8(screen->ClipboardText()) : OwnText();
}

void SetClipboardText(const std::string& bytes) {
    AssertUiThread();
    if (present::Screen* const screen = CurrentScreen()) {
        screen->SetClipboardText(text::Utf8FromGbk(bytes));
    } else {
        OwnText() = bytes;
    }
}

}  // namespace winbase
