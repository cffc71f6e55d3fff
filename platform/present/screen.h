#pragma once

// How the desktop reaches a person. The window layer draws one picture, the desktop, and hands the
// damaged rectangles over; what a person does comes back as plain input events.

#include <cstdint>
#include <string>
#include <vector>

namespace present {

/// A rectangle in desktop pixels of scale 1, right and bottom exclusive.
struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// The desktop's pixels, 0x00RRGGBB, `stride` pixels a row, `scale` device pixels a logical one.
struct Picture {
    const std::uint32_t* pixels = nullptr;
    int width = 0;   ///< device pixels
    int height = 0;  ///< device pixels
    int stride = 0;
    int scale = 1;
};

enum class EventKind {
    kMouseMove,
    kButton,
    kWheel,
    kKey,
    kText,
    kResize,
    kClose,
    kFocus,
    kExposed
};

/// One input event. Positions are logical desktop coordinates.
struct Event {
    EventKind kind = EventKind::kMouseMove;
    int x = 0;
    int y = 0;
    int button = 0;       ///< 0 left, 1 right, 2 middle
    bool down = false;    ///< buttons and keys; kFocus: gained
    bool repeat = false;  ///< keys: made by holding
    int wheel = 0;        ///< 120 a notch, away from the user positive
    int key = 0;          ///< virtual key code
    std::string text;     ///< kText: UTF-8
};

enum class Cursor {
    kArrow,
    kBeam,
    kWait,
    kCross,
    kSizeWe,
    kSizeNs,
    kSizeNwse,
    kSizeNesw,
    kSizeAll,
    kNo,
    kHand
};

/// One desktop window. All calls come from the user interface thread.
class Screen {
public:
    virtual ~Screen() = default;
    /// Waits up to `millis` (-1: without end) for an event or a Wake, then hands over all there
    /// are.
    virtual std::vector<Event> Wait(int millis) = 0;
    /// Ends a Wait early; the one call that is allowed from any thread.
    virtual void Wake() = 0;
    /// Shows the damaged rectangles of the picture.
    virtual void Present(const Picture& picture, const std::vector<Rect>& damage) = 0;
    virtual void SetCursor(Cursor cursor) = 0;
    virtual void SetTitle(const std::string& utf8) = 0;
    /// The clipboard's text as UTF-8, empty when it holds none.
    virtual std::string ClipboardText() = 0;
    virtual void SetClipboardText(const std::string& utf8) = 0;
    /// Pictures a second that the display can show.
    virtual int RefreshRate() = 0;
    /// Logical size of the desktop.
    virtual int Width() = 0;
    virtual int Height() = 0;
};

}  // namespace present
