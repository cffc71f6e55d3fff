#pragma once

#include <string>

namespace winbase {

/// The text on the clipboard, in code page 936: the desktop's where there is one, else the
/// program's own. What the code page lacks reads as '?'.
std::string ClipboardText();
void SetClipboardText(const std::string& bytes);

}  // namespace winbase
