#include "platform/win32/user/track_mouse.h"

#include <winbase_hooks.h>

#include <cassert>
#include <cstdlib>

#include "platform/win32/kernel/clock.h"
#include "platform/win32/kernel/last_error.h"
#include "platform/win32/user/input.h"
#include "platform/win32/user/window.h"

namespace winbase {

namespace {

constexpr DWORD kUsualHoverMillis = 400;
/// How far a resting pointer may tremble.
constexpr int kRestDistance = 2;

/// What one window waits for; there is one such window at most.
struct Tracking {
    HWND window = nullptr;
    DWORD flags = 0;
    DWORD hover_millis = 0;
    std::uint64_t hover_due = 0;
    POINT rest_place{};
};

Tracking g_tracking;

void BeginRest(POINT place) {
    g_tracking.rest_place = place;
    g_tracking.hover_due = ClockTicks() + g_tracking.hover_millis;
}

bool Waits(DWORD flag) { return g_tracking.window != nullptr && (g_tracking.flags & flag) != 0; }

void Drop(DWORD flags) {
    g_tracking.flags &= ~flags;
    if (g_tracking.flags == 0) g_tracking = {};
}

// The pointer is where it is wanted: over the client area of the window.
bool IsInside(const Hit& hit) { return hit.window == g_tracking.window && hit.code == HTCLIENT; }

BOOL Query(TRACKMOUSEEVENT& track) {
    track.dwFlags = g_tracking.flags;
    track.hwndTrack = g_tracking.window;
    track.dwHoverTime = g_tracking.hover_millis;
    return TRUE;
}

void Begin(const TRACKMOUSEEVENT& track) {
    if (g_tracking.window != track.hwndTrack) g_tracking = {};
    g_tracking.window = track.hwndTrack;
    g_tracking.flags |= track.dwFlags & (TME_HOVER | TME_LEAVE);
    const bool usual = track.dwHoverTime == HOVER_DEFAULT || track.dwHoverTime == 0 ||
                       (track.dwFlags & TME_HOVER) == 0;
    if ((track.dwFlags & TME_HOVER) != 0 || g_tracking.hover_millis == 0) {
        g_tracking.hover_millis = usual ? kUsualHoverMillis : track.dwHoverTime;
    }
    BeginRest(PointerPlace());
}

}  // namespace

bool PostLeave(const Hit& hit) {
    if (g_tracking.window == nullptr || IsInside(hit)) return false;
    const HWND window = g_tracking.window;
    const bool leave = Waits(TME_LEAVE);
    g_tracking = {};
    if (leave) PostMessageA(window, WM_MOUSELEAVE, 0, 0);
    return leave;
}

void NotePointer(const Hit& hit, POINT place) {
    if (!Waits(TME_HOVER) || !IsInside(hit)) return;
    if (std::abs(place.x - g_tracking.rest_place.x) > kRestDistance ||
        std::abs(place.y - g_tracking.rest_place.y) > kRestDistance) {
        BeginRest(place);
    }
}

bool TakeHover(const MessageFilter& filter, bool remove, MSG& message) {
    if (!Waits(TME_HOVER) || ClockTicks() < g_tracking.hover_due) return false;
    if (!filter.Takes(g_tracking.window, WM_MOUSEHOVER)) return false;
    const POINT place = PointerPlace();
    message = {g_tracking.window, WM_MOUSEHOVER, MouseKeys(), ClientPoint(g_tracking.window, place),
               GetTickCount(),    place};
    if (remove) Drop(TME_HOVER);
    return true;
}

int MillisToHover(const MessageFilter& filter) {
    if (!Waits(TME_HOVER) || !filter.Takes(g_tracking.window, WM_MOUSEHOVER)) return -1;
    const std::uint64_t now = ClockTicks();
    if (now >= g_tracking.hover_due) return 0;
    return hooks::IsClockManual() ? -1 : static_cast<int>(g_tracking.hover_due - now);
}

void ForgetTracking(HWND window) {
    if (g_tracking.window == window) g_tracking = {};
}

}  // namespace winbase

using namespace winbase;

BOOL TrackMouseEvent(LPTRACKMOUSEEVENT track) {
    AssertUiThread();
    if (track == nullptr || track->cbSize != sizeof(TRACKMOUSEEVENT)) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    if ((track->dwFlags & TME_QUERY) != 0) return Query(*track);
    assert((track->dwFlags & ~(TME_HOVER | TME_LEAVE | TME_CANCEL)) == 0 &&
           "only hovering over and leaving a client area are supported");
    if (FindLive(track->hwndTrack) == nullptr) return FALSE;
    if ((track->dwFlags & TME_CANCEL) != 0) {
        if (track->hwndTrack == g_tracking.window) Drop(track->dwFlags & (TME_HOVER | TME_LEAVE));
        return TRUE;
    }
    const HWND capture = GetCapture();
    const Hit hit = capture != nullptr ? Hit{capture, HTCLIENT} : HitTest(PointerPlace());
    if (hit.window == track->hwndTrack && hit.code == HTCLIENT) {
        Begin(*track);
    } else if ((track->dwFlags & TME_LEAVE) != 0) {
        PostMessageA(track->hwndTrack, WM_MOUSELEAVE, 0, 0);
    }
    return TRUE;
}
