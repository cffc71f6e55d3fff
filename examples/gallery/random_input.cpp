#include "examples/gallery/random_input.h"

#include "platform/system.h"
#include "platform/testing/input.h"

namespace gallery {

void RandomInput::Start() { platform::testing::WhenIdle(Next, this); }

void RandomInput::Next(void* self) {
    auto& input = *static_cast<RandomInput*>(self);
    if (input.left_-- <= 0) {
        PostQuitMessage(0);
        return;
    }
    input.Step();
    input.Start();
}

// Only makes the input: whatever loop runs takes it from there.
void RandomInput::Step() {
    static constexpr BYTE kKeys[] = {VK_TAB,  VK_RETURN, VK_ESCAPE, VK_UP,    VK_DOWN,
                                     VK_LEFT, VK_RIGHT,  VK_HOME,   VK_END,   VK_PRIOR,
                                     VK_NEXT, VK_BACK,   VK_DELETE, VK_SPACE, VK_F4,
                                     'A',     'Z',       '0',       '9',      VK_OEM_PERIOD};
    switch (Pick(8)) {
        case 0:
        case 1:
        case 2:
            SetCursorPos(Pick(GetSystemMetrics(SM_CXSCREEN)), Pick(GetSystemMetrics(SM_CYSCREEN)));
            break;
        case 3: mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0); break;
        case 4: mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0); break;
        case 5:
            mouse_event(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>((Pick(5) - 2) * WHEEL_DELTA),
                        0);
            break;
        default: {
            const BYTE key = kKeys[Pick(static_cast<int>(sizeof kKeys))];
            const bool shift = Pick(6) == 0;
            if (shift) keybd_event(VK_SHIFT, 0, 0, 0);
            keybd_event(key, 0, 0, 0);
            keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
            if (shift) keybd_event(VK_SHIFT, 0, KEYEVENTF_KEYUP, 0);
            break;
        }
    }
}

}  // namespace gallery
