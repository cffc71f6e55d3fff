#pragma once

#include <windef.h>

#include <memory>

namespace present {
class Screen;
}

namespace winbase {

/// Before the first window: where the desktop is shown (null: nowhere) and how large it is.
void SetUpDesktop(std::unique_ptr<present::Screen> screen, SIZE size);

}  // namespace winbase
