#pragma once

#include <windef.h>

#include "platform/win32/gdi/region.h"
#include "platform/win32/gdi/surface.h"

namespace winbase {

/// What a device context that is no memory context draws on: a window's client area or the whole
/// window. It says where it lies at the moment; a context asks Epoch before each drawing call and
/// the other three only when that number has changed since.
class DcTarget {
public:
    virtual ~DcTarget() = default;
    /// Null when there is nothing to draw on; drawing then succeeds without effect.
    virtual Surface* TargetSurface() = 0;
    /// Where the context's (0, 0) lies on the surface.
    virtual POINT Origin() = 0;
    /// What may be drawn on, in the surface's coordinates: clipped by the surface, by parents, and
    /// as the styles ask by siblings and children.
    virtual const Region& Visible() = 0;
    /// Changes whenever an answer of the others may have changed. Never 0.
    virtual unsigned long long Epoch() = 0;
};

/// A device context with default attributes. `target` must outlive it or be replaced by
/// DestroyTargetDc before it goes.
HDC CreateTargetDc(DcTarget* target);
/// The handle is dead afterwards. Selected objects are let go.
void DestroyTargetDc(HDC dc);
/// Back to the default attributes, no clip regions, nothing saved: what ReleaseDC does to a common
/// context.
void ResetDc(HDC dc);
/// Null for a memory context, a dead handle and another kind of handle.
DcTarget* TargetOf(HDC dc);
/// A clip region beside the program's own, in the context's coordinates (origin at
/// DcTarget::Origin, viewport ignored), or none for null. Drawing reaches visible, paint clip and
/// program's clip alike.
void SetPaintClip(HDC dc, const Region* clip);

/// The surface behind any device context (a memory context's bitmap), or null.
Surface* SurfaceOf(HDC dc);
/// The surface of a bitmap, or null.
Surface* SurfaceOf(HBITMAP bitmap);

/// The scale of bitmaps and surfaces that are not derived from another one; 1 at first. It says
/// nothing to surfaces that exist already.
int DefaultScale();
void SetDefaultScale(int scale);

/// Copies within one surface, records included, as ScrollWindow does: the pixels of `source` that
/// lie in `clip` both before and after appear `x`, `y` further. The result is what of `clip` lost
/// its pixels and has to be painted again, within `source`.
Region ScrollSurface(Surface& surface, const RECT& source, int x, int y, const Region& clip);

/// Fills `to` with the pixels, records included, that stand `x`, `y` before it. What would come
/// from outside the surface stays as it is.
void MovePixels(Surface& surface, const Region& to, int x, int y);

/// The region behind a handle, or null.
const Region* RegionOf(HRGN region);
/// Sets what a region handle holds; false for another kind of handle.
bool SetRegion(HRGN handle, const Region& region);

}  // namespace winbase
