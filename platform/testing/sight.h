#pragma once

#include <string>
#include <vector>

#include "platform/system.h"

/// What a person would see. A real Windows desktop cannot be read back this way: the functions
/// answer false or nothing there.
namespace platform::testing {

/// A window with its frame as a picture file, the whole desktop for null. `path` is the host's own.
bool SavePicture(HWND window, const std::string& path);

/// A text that a window shows, in coordinates of its client area.
struct SeenText {
    std::string utf8;
    RECT rect{};
    COLORREF color = 0;
    bool bold = false;
};

/// From now on windows remember the texts that are drawn on them.
void RememberTexts();
/// The texts of a window's client area, children included, in the order in which they were drawn.
std::vector<SeenText> SeenTexts(HWND window);

}  // namespace platform::testing
