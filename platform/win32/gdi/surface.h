#pragma once

#include <windef.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/win32/gdi/region.h"
#include "platform/win32/gdi/text_records.h"

namespace winbase {

/// 0x00RRGGBB in one word; a bitmap with an alpha of its own keeps it in the highest byte.
using Pixel = std::uint32_t;

inline Pixel ToPixel(COLORREF color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}
inline COLORREF ToColor(Pixel pixel) { return ToPixel(pixel); }

/// A picture of 32-bit pixels. Its size is said in logical pixels, of which each is `scale` times
/// `scale` pixels of memory; all rectangles here are logical unless they say device.
class Surface {
public:
    /// Which row of memory is the top one; programs that fill a bitmap themselves choose it.
    enum class Rows { kTopDown, kBottomUp };
    enum class Damage { kIgnore, kCollect };

    /// Black. Sizes below 1 count as 1; scale is 1 to 3.
    Surface(int width, int height, int scale, Damage damage = Damage::kIgnore,
            Rows rows = Rows::kTopDown);
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    int width() const { return width_; }
    int height() const { return height_; }
    int scale() const { return scale_; }
    int device_width() const { return width_ * scale_; }
    int device_height() const { return height_ * scale_; }
    RECT Bounds() const { return {0, 0, width_, height_}; }
    /// Device row `y`; rows are `stride()` pixels apart, which is negative for kBottomUp.
    Pixel* Row(int y) { return top_row_ + y * stride_; }
    const Pixel* Row(int y) const { return top_row_ + y * stride_; }
    std::ptrdiff_t stride() const { return stride_; }
    /// The first byte of the memory, whichever row that is.
    Pixel* memory() { return pixels_.get(); }

    /// Keeps what both sizes share, at its place; what is new is black. Same scale.
    void Resize(int width, int height);

    /// What was drawn since the last TakeDamage; empty for surfaces that don't collect.
    Region TakeDamage();
    bool HasDamage() const { return damage_count_ != 0; }
    void AddDamage(const RECT& rect) {
        if (collects_ && !winbase::Contains(damage_[0], rect)) CollectDamage(rect);
    }

    TextRecords& records() { return records_; }
    const TextRecords& records() const { return records_; }

private:
    void Allocate(int width, int height);
    void CollectDamage(const RECT& rect);

    int width_ = 0;
    int height_ = 0;
    int scale_;
    bool collects_;
    Rows rows_;
    std::unique_ptr<Pixel[]> pixels_;
    Pixel* top_row_ = nullptr;
    std::ptrdiff_t stride_ = 0;
    // A few rectangles that may overlap: exact enough to present, and adding one allocates nothing.
    std::array<RECT, 8> damage_{};
    std::size_t damage_count_ = 0;
    TextRecords records_;
};

/// Writes all of a surface, or `part` of it (logical), as an RGB picture of device pixels. False
/// when the file can't be written; no half-written file is left then.
bool WritePng(const Surface& surface, const std::string& path);
bool WritePng(const Surface& surface, const RECT& part, const std::string& path);

}  // namespace winbase
