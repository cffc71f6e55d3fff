#include <algorithm>

#include "platform/win32/user/capture_loop.h"
#include "platform/win32/user/pointer.h"
#include "platform/win32/user/scroll_bar.h"
#include "platform/win32/user/timer.h"

namespace winbase {

namespace {

constexpr UINT_PTR kRepeatTimer = 1;
constexpr UINT kFirstRepeatMillis = 200;
constexpr UINT kRepeatMillis = 50;
/// A thumb that is dragged further off its bar goes back to where it was.
constexpr int kDragReach = 136;

enum class Part { kNone, kBefore, kThumb, kBehind };

/// Follows a press on a scroll bar until the button is let go.
class ScrollTracker {
public:
    ScrollTracker(Window* window, int bar, POINT screen)
        : window_(window->handle), bar_(bar), press_(screen) {
        layout_ = LayOutScrollBar(window, bar);
        part_ = PartAt(window, screen);
        first_position_ = window->scroll[bar].position;
    }

    void Run() {
        if (part_ == Part::kThumb) {
            Drag();
        } else if (part_ != Part::kNone) {
            Page();
        }
    }

private:
    int Along(POINT place) const { return bar_ == SB_VERT ? place.y : place.x; }

    Part PartAt(const Window* window, POINT screen) const {
        const RECT whole = ScreenRect(window);
        const POINT at{screen.x - whole.left, screen.y - whole.top};
        const ScrollLayout layout = LayOutScrollBar(window, bar_);
        if (!PtInRect(&layout.bar, at) || IsRectEmpty(&layout.thumb)) return Part::kNone;
        if (PtInRect(&layout.thumb, at)) return Part::kThumb;
        return Along(at) < layout.start + layout.thumb_offset ? Part::kBefore : Part::kBehind;
    }

    void Tell(int code, int position) const {
        if (Window* const window = LookUp(window_)) {
            CallProcedure(window, bar_ == SB_VERT ? WM_VSCROLL : WM_HSCROLL,
                          MAKEWPARAM(code, position), 0);
        }
    }

    void Page() {
        TellPage();
        SetSystemTimer(window_, kRepeatTimer, kFirstRepeatMillis);
        RunCaptureLoop(window_, [this](const MSG& message) {
            if (message.message == WM_LBUTTONUP) return LoopStep::kEnd;
            if (message.message == WM_MOUSEMOVE) return LoopStep::kGoOn;
            if (message.message != kSystemTimer || message.hwnd != window_) {
                return LoopStep::kDispatch;
            }
            SetSystemTimer(window_, kRepeatTimer, kRepeatMillis);
            const Window* const window = LookUp(window_);
            // The thumb stops once it has come to the pointer.
            if (window != nullptr && PartAt(window, PointerPlace()) == part_) TellPage();
            return LoopStep::kGoOn;
        });
        KillSystemTimer(window_, kRepeatTimer);
        Tell(SB_ENDSCROLL, 0);
    }

    void TellPage() const { Tell(part_ == Part::kBefore ? SB_PAGEUP : SB_PAGEDOWN, 0); }

    void Drag() {
        HoldAt(first_position_);
        const bool released = RunCaptureLoop(window_, [this](const MSG& message) {
            if (message.message == WM_LBUTTONUP) return LoopStep::kEnd;
            if (message.message != WM_MOUSEMOVE) return LoopStep::kDispatch;
            const Window* const window = LookUp(window_);
            if (window != nullptr) HoldAt(PositionUnder(window, message.pt));
            return LoopStep::kGoOn;
        });
        const int position = position_;
        if (released) Tell(SB_THUMBPOSITION, position);
        Window* const window = LookUp(window_);
        if (window == nullptr) return;
        window->scroll[bar_].tracking = false;
        RedrawScrollBar(window, bar_);
        Tell(SB_ENDSCROLL, 0);
    }

    int PositionUnder(const Window* window, POINT screen) const {
        const RECT whole = ScreenRect(window);
        RECT reach = Moved(layout_.bar, whole.left, whole.top);
        InflateRect(&reach, kDragReach, kDragReach);
        if (!PtInRect(&reach, screen)) return first_position_;
        const int offset = layout_.thumb_offset + Along(screen) - Along(press_);
        return PositionAt(window->scroll[bar_], layout_, offset);
    }

    void HoldAt(int position) {
        Window* const window = LookUp(window_);
        if (window == nullptr) return;
        ScrollBar& scroll = window->scroll[bar_];
        if (scroll.tracking && scroll.track_position == position) return;
        scroll.tracking = true;
        scroll.track_position = position_ = position;
        RedrawScrollBar(window, bar_);
        Tell(SB_THUMBTRACK, position);
    }

    HWND window_;
    int bar_;
    POINT press_;
    ScrollLayout layout_;
    Part part_ = Part::kNone;
    int first_position_ = 0;
    int position_ = 0;
};

}  // namespace

LRESULT TrackScrollBar(Window* window, int bar, POINT screen) {
    const WindowLock lock(window);
    ScrollTracker(window, bar, screen).Run();
    return 0;
}

}  // namespace winbase
