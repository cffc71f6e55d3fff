#include "platform/testing/sight.h"

#include "platform/text/gbk.h"
#ifndef _WIN32
#include <winbase_hooks.h>
#endif

namespace platform::testing {

#ifdef _WIN32

bool SavePicture(HWND, const std::string&) { return false; }

void RememberTexts() {}

std::vector<SeenText> SeenTexts(HWND) { return {}; }

#else

bool SavePicture(HWND window, const std::string& path) {
    return winbase::hooks::SaveWindowPng(window, path.c_str());
}

void RememberTexts() { winbase::hooks::RecordTexts(true); }

std::vector<SeenText> SeenTexts(HWND window) {
    std::vector<SeenText> seen;
    for (const winbase::hooks::ShownText& shown : winbase::hooks::WindowTexts(window)) {
        seen.push_back(
            {text::Utf8FromGbk(shown.text), shown.rect, shown.color, shown.weight >= FW_BOLD});
    }
    return seen;
}

#endif

}  // namespace platform::testing
