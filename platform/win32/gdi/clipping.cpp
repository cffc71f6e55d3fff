#include <algorithm>
#include <memory>
#include <utility>

#include "platform/win32/gdi/dc.h"

namespace winbase {

const Region* RegionOf(HRGN handle) {
    const auto* object = FindObject<RegionObject>(handle);
    return object ? &object->region : nullptr;
}

bool SetRegion(HRGN handle, const Region& region) {
    auto* object = FindObject<RegionObject>(handle);
    if (object) object->region = region;
    return object != nullptr;
}

}  // namespace winbase

using namespace winbase;

namespace {

int Complexity(const Region& region) {
    if (region.Empty()) return NULLREGION;
    return region.Rects().size() == 1 ? SIMPLEREGION : COMPLEXREGION;
}

RECT Ordered(int left, int top, int right, int bottom) {
    return Near(RECT{std::min(left, right), std::min(top, bottom), std::max(left, right),
                     std::max(top, bottom)});
}

/// The program's clip, made of everything that there is when it is the first.
Region& ClipOf(Dc& dc) {
    Refresh(dc);
    dc.reach_stale = true;
    if (!dc.state.clip) {
        const RECT all = dc.surface ? dc.surface->Bounds() : RECT{};
        dc.state.clip = Region(Moved(all, -dc.origin.x, -dc.origin.y));
    }
    return *dc.state.clip;
}

RECT ToDevice(const Dc& dc, int left, int top, int right, int bottom) {
    return Moved(Ordered(left, top, right, bottom), dc.state.viewport.x, dc.state.viewport.y);
}

int ReachComplexity(Dc& dc) {
    Refresh(dc);
    return Complexity(dc.reach);
}

bool Combine(Region& result, const Region& first, const Region& second, int mode) {
    switch (mode) {
        case RGN_AND: result.Intersect(second); return true;
        case RGN_OR: result.Unite(second); return true;
        case RGN_XOR: result.ExclusiveOr(second); return true;
        case RGN_DIFF: result.Subtract(second); return true;
        case RGN_COPY: result = first; return true;
        default: return false;
    }
}

}  // namespace

int WINAPI ExcludeClipRect(HDC handle, int left, int top, int right, int bottom) {
    Dc* dc = FindDc(handle);
    if (!dc) return ERROR;
    ClipOf(*dc).Subtract(ToDevice(*dc, left, top, right, bottom));
    return ReachComplexity(*dc);
}

int WINAPI IntersectClipRect(HDC handle, int left, int top, int right, int bottom) {
    Dc* dc = FindDc(handle);
    if (!dc) return ERROR;
    ClipOf(*dc).Intersect(ToDevice(*dc, left, top, right, bottom));
    return ReachComplexity(*dc);
}

int WINAPI SelectClipRgn(HDC handle, HRGN region_handle) {
    Dc* dc = FindDc(handle);
    const Region* region = RegionOf(region_handle);
    if (!dc || (region_handle && !region)) return ERROR;
    dc->state.clip.reset();
    if (region) dc->state.clip = *region;
    dc->reach_stale = true;
    return region ? Complexity(*region) : SIMPLEREGION;
}

int WINAPI GetClipBox(HDC handle, LPRECT box) {
    const Dc* dc = FindDcToDraw(handle);
    if (!dc || !box) return ERROR;
    const POINT offset = dc->Offset();
    *box = dc->reach.Empty() ? RECT{} : Moved(dc->reach.Bounds(), -offset.x, -offset.y);
    return Complexity(dc->reach);
}

HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom) {
    return static_cast<HRGN>(
        AddObject(std::make_unique<RegionObject>(Ordered(left, top, right, bottom))));
}

HRGN WINAPI CreateRectRgnIndirect(const RECT* rect) {
    return rect ? CreateRectRgn(rect->left, rect->top, rect->right, rect->bottom) : nullptr;
}

BOOL WINAPI SetRectRgn(HRGN region, int left, int top, int right, int bottom) {
    return SetRegion(region, Region(Ordered(left, top, right, bottom)));
}

int WINAPI CombineRgn(HRGN result, HRGN first, HRGN second, int mode) {
    const Region* a = RegionOf(first);
    const Region* b = mode == RGN_COPY ? a : RegionOf(second);
    if (!a || !b || !RegionOf(result)) return ERROR;
    Region combined = *a;
    if (!Combine(combined, *a, *b, mode)) return ERROR;
    SetRegion(result, combined);
    return Complexity(combined);
}

int WINAPI OffsetRgn(HRGN handle, int x, int y) {
    const Region* region = RegionOf(handle);
    if (!region) return ERROR;
    // Nothing moves to where coordinates would no longer fit.
    const RECT bounds = Moved(region->Bounds(), Near(x), Near(y));
    if (!Contains(RECT{-kFarthest, -kFarthest, kFarthest, kFarthest}, bounds)) return ERROR;
    Region moved = *region;
    moved.Offset(x, y);
    SetRegion(handle, moved);
    return Complexity(moved);
}

int WINAPI GetRgnBox(HRGN handle, LPRECT box) {
    const Region* region = RegionOf(handle);
    if (!region || !box) return ERROR;
    *box = region->Bounds();
    return Complexity(*region);
}

BOOL WINAPI PtInRegion(HRGN handle, int x, int y) {
    const Region* region = RegionOf(handle);
    return region && region->Contains(POINT{x, y});
}
