#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/win32/gdi/region.h"

namespace present {
class Screen;
}

namespace winbase {

class Surface;

/// A registered class. Windows keep it alive; it can be unregistered only without windows.
struct WindowClass {
    std::string name;
    HINSTANCE module = nullptr;
    ATOM atom = 0;
    bool system = false;  ///< found from every module
    UINT style = 0;
    WNDPROC procedure = nullptr;
    int class_extra = 0;
    int window_extra = 0;
    HICON icon = nullptr;
    HCURSOR cursor = nullptr;
    HBRUSH background = nullptr;
    int window_count = 0;
};

/// One of a window's own scroll bars.
struct ScrollBar {
    int minimum = 0;
    int maximum = 100;
    UINT page = 0;
    int position = 0;
    int track_position = 0;  ///< while `tracking`: where the thumb is held
    UINT disabled_arrows = 0;
    bool tracking = false;
};

/// What still has to be painted in one window; all rectangles in window coordinates.
struct PaintState {
    Region update;
    bool erase = false;     ///< the ground of `update` is still to be erased
    bool frame = false;     ///< the frame is still to be painted
    bool internal = false;  ///< WM_PAINT is wanted though nothing is invalid
};

/// One window. Positions are in logical pixels (scale 1).
///
/// Children stand in z-order, the topmost first. A window that is being destroyed stays in memory
/// until the outermost message to it has returned, see WindowLock.
struct Window {
    HWND handle = nullptr;
    WindowClass* window_class = nullptr;
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr;
    DWORD style = 0;
    DWORD ex_style = 0;
    UINT_PTR id = 0;
    LONG_PTR user_data = 0;
    std::vector<unsigned char> extra;
    std::string text;
    std::map<std::string, HANDLE> properties;

    Window* parent = nullptr;  ///< null for top-level windows and the desktop
    Window* owner = nullptr;   ///< top-level windows only
    std::vector<Window*> children;

    RECT rect{};         ///< in the parent's client area; top-level: on the screen
    RECT client{};       ///< relative to the window's own left and top
    RECT normal_rect{};  ///< where a maximised or minimised window returns to

    PaintState paint;
    ScrollBar scroll[2];               ///< SB_HORZ, SB_VERT
    std::unique_ptr<Surface> surface;  ///< top-level windows only
    HWND last_focus = nullptr;         ///< for dialogs: where the focus returns to

    bool size_told = true;      ///< WM_SIZE has been sent; frames hear it when they are first shown
    bool frame_active = false;  ///< the frame shows the window as the active one
    bool has_scroll_data = false;  ///< a scroll bar was asked for at some time
    bool destroying = false;
    bool created = false;  ///< WM_CREATE has been answered
    int locks = 0;         ///< calls into the window that have not returned
};

/// Keeps a window's memory while one of its procedures runs.
class WindowLock {
public:
    explicit WindowLock(Window* window);
    ~WindowLock();
    WindowLock(const WindowLock&) = delete;
    WindowLock& operator=(const WindowLock&) = delete;

private:
    Window* window_;
};

// ---- windows (window_table.cpp) ----

/// The window behind a live handle, or null with last error ERROR_INVALID_WINDOW_HANDLE (1400).
Window* FindLive(HWND handle);
/// The same without touching the last error.
Window* LookUp(HWND handle);
/// The desktop: parent in spirit of all top-level windows, whose `children` are these in z-order.
Window* DesktopWindow();
/// The window that has a surface: the window itself or its top-level ancestor.
Window* TopLevel(Window* window);
/// True when the window and all its ancestors have WS_VISIBLE.
bool IsShown(const Window* window);
/// Window rectangle and client rectangle on the screen.
RECT ScreenRect(const Window* window);
RECT ScreenClientRect(const Window* window);
/// Called on every change that moves, shows, hides, restacks or clips windows.
void LayoutChanged();
std::uint64_t LayoutEpoch();

/// Stops the program in debug builds when called off the user interface thread.
void AssertUiThread();
bool IsUiThread();
/// The thread's id as GetCurrentThreadId tells it, 0 while there is none. From any thread.
DWORD UiThreadId();

// ---- defaults behind DefWindowProcA (window_text.cpp, paint.cpp) ----

LRESULT DefaultSetText(Window* window, const char* text);
LRESULT DefaultGetText(const Window* window, char* buffer, std::size_t size);
LRESULT DefaultSetRedraw(Window* window, bool on);

// ---- activation and focus (focus.cpp) ----

/// Activates as a click does (WM_ACTIVATE with WA_CLICKACTIVE), as a call does, or on the way to a
/// focus that is set right afterwards.
enum class ActivationKind { kCall, kClick, kFocus };
bool Activate(Window* window, ActivationKind kind);
/// Takes focus, activation and capture from a window that is hidden, disabled or destroyed.
void LeaveWindow(Window* window);

// ---- painting (paint.cpp, window_dc.cpp) ----

/// The next window, in the order in which it is to be painted, that wants WM_PAINT; null if none.
/// With `within`: of this window and its descendants.
Window* NextPaintWindow(const Window* within = nullptr);
/// Sends WM_NCPAINT and WM_ERASEBKGND for what is due in the window.
void EraseNow(Window* window);
/// Marks a rectangle of the window's frame and client area (window coordinates).
void InvalidateWindow(Window* window, const Region& region, UINT redraw_flags);

// ---- the way to a person (start.cpp) ----

/// Where the desktop is shown; null when the layer is headless.
present::Screen* CurrentScreen();
/// Logical size of the desktop.
SIZE DesktopSize();
/// Shows what was drawn once a frame is due. Milliseconds until the next one, -1 for none.
int PresentFrame();
/// The window that shows the desktop has another size (logical pixels), or lost its picture.
void DesktopResized(int width, int height);
void DesktopExposed();

// ---- frame (nonclient.cpp, scroll_bar.cpp) ----

/// From the window rectangle to the client rectangle, both in the same coordinates.
RECT ClientFromWindow(const Window* window, const RECT& rect);
void PaintFrame(Window* window);
int HitTestFrame(const Window* window, POINT screen);
LRESULT TrackScrollBar(Window* window, int bar, POINT screen);
/// Sends WM_NCCALCSIZE after a frame style changed and repaints.
void FrameChanged(Window* window);
/// What WM_GETMINMAXINFO makes of the system's limits for a top-level window.
MINMAXINFO AskLimits(Window* window);
/// In WINDOWPOS::flags of WM_WINDOWPOSCHANGED: the client area kept its place on the parent, its
/// size; DefWindowProcA sends WM_MOVE and WM_SIZE unless they are set.
constexpr UINT kNoClientSize = 0x0800;
constexpr UINT kNoClientMove = 0x1000;

// ---- queue, timers, input (queue.cpp, timer.cpp, input.cpp) ----

/// Calls the window's procedure directly on the user interface thread.
LRESULT CallProcedure(Window* window, UINT message, WPARAM wParam, LPARAM lParam);
/// Drops posted messages, timers, tracking and capture of a window that goes away.
void ForgetWindow(HWND handle);
/// Makes the next loop send mouse messages for the pointer's place again (windows moved beneath
/// it).
void RefreshPointer();
/// Runs `call` on the user interface thread the way a sent message arrives there, and waits for it.
/// From any other thread.
void CallOnUiThread(const std::function<void()>& call);
/// Wakes a waiting loop, from any thread.
void WakeQueue();
/// Calls the newest hook of a kind (WH_...), which calls the others. 0 without hooks.
LRESULT CallHooks(int kind, int code, WPARAM wParam, LPARAM lParam);

}  // namespace winbase
