#pragma once

#include <windows.h>

#include <optional>
#include <vector>

#include "platform/win32/gdi/dc_target.h"
#include "platform/win32/gdi/objects.h"

namespace winbase {

/// What SaveDC keeps.
struct DcState {
    COLORREF text_color = RGB(0, 0, 0);
    COLORREF back_color = RGB(255, 255, 255);
    int back_mode = OPAQUE;
    UINT align = TA_LEFT | TA_TOP;
    int stretch_mode = BLACKONWHITE;
    POINT viewport{};
    POINT position{};
    Pen* pen = nullptr;
    Brush* brush = nullptr;
    Font* font = nullptr;
    Bitmap* bitmap = nullptr;    ///< memory contexts only
    std::optional<Region> clip;  ///< the program's, in device units: origin and viewport 0,0
};

/// A device context: state, and where its drawing lands just now.
struct Dc {
    HDC handle = nullptr;
    DcTarget* target = nullptr;  ///< null for memory contexts
    DcState state;
    std::vector<DcState> saved;
    std::optional<Region> paint_clip;

    Surface* surface = nullptr;
    POINT origin{};
    Region reach;  ///< all clips together, in the surface's coordinates
    unsigned long long epoch = 0;
    bool reach_stale = true;

    /// From the coordinates of a call to the surface's.
    POINT Offset() const { return {origin.x + state.viewport.x, origin.y + state.viewport.y}; }
    RECT ToSurface(const RECT& rect) const {
        const POINT offset = Offset();
        return Moved(rect, offset.x, offset.y);
    }
};

/// The context, or null for a dead handle or one of another kind.
Dc* FindDc(HDC handle);
/// The same with surface, origin and reach brought up to date; what draws asks this one. Without
/// anything to draw on the surface is null and the reach empty.
Dc* FindDcToDraw(HDC handle);
/// Brings surface, origin and reach up to date.
void Refresh(Dc& dc);

/// Coordinates of calls are cut to this range, so that sums of a few never overflow.
constexpr int kFarthest = 1 << 27;
int Near(int coordinate);
RECT Near(const RECT& rect);

}  // namespace winbase
