#pragma once

#include <string>

#include "platform/system.h"

namespace automation {

// Input as a person makes it, put into the queue and left there: whatever loop runs takes it, also
// that of a box which an earlier input opened.

enum class MouseButton { kLeft, kRight };

void PutMove(POINT screen);
void PutClick(POINT screen, MouseButton button, bool twice);
void PutWheel(POINT screen, int notches);

struct Modifiers {
    bool control = false;
    bool shift = false;
    bool alt = false;
};

/// A key by its name ("A", "7", "Enter", "F9", "PageDown", ...); 0 for none.
BYTE KeyNamed(const std::string& name);
void PutKey(BYTE key, const Modifiers& modifiers);

/// Types a GBK text into the focus. False when nothing has it.
bool PutText(const std::string& gbk);

}  // namespace automation
