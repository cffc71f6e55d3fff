#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/win32/gdi/surface.h"

// The inner loops of drawing. Counts and strides are pixels, strides may be negative; nothing is
// checked here.

namespace winbase {

/// A rectangle of pixels in memory.
struct PixelBlock {
    Pixel* pixels;
    std::ptrdiff_t stride;
    int width;
    int height;
};

/// The device pixels of a logical rectangle that lies within the surface.
PixelBlock BlockOf(Surface& surface, const RECT& rect);

void FillBlock(const PixelBlock& block, Pixel pixel);
void XorBlock(const PixelBlock& block, Pixel pixel);

/// How two pixels of a copy become one.
enum class CopyRule { kCopy, kAnd, kOr, kXor };
/// `source` is the first pixel of the source; the two may overlap when they have one stride.
void CopyBlock(const PixelBlock& target, const Pixel* source, std::ptrdiff_t source_stride,
               CopyRule rule);

/// Lays `pixel` over the block as far as each coverage says (0 not, 255 fully).
void BlendCoverage(const PixelBlock& block, const std::uint8_t* coverage,
                   std::ptrdiff_t coverage_stride, Pixel pixel);

/// Lays a pixel with premultiplied colours and an alpha in its highest byte over `under`.
Pixel BlendOver(Pixel under, Pixel over);
/// All four bytes times alpha / 255, rounded.
Pixel ScaledBy(Pixel pixel, unsigned alpha);

}  // namespace winbase
