#include <algorithm>
#include <cstdlib>
#include <optional>
#include <vector>

#include "platform/win32/gdi/painter.h"

namespace winbase {

namespace {

/// One direction of a stretched copy: which source pixel stands at each target pixel.
struct Axis {
    int target;         ///< first device pixel of the target
    int target_length;  ///< > 0
    int source;
    int source_length;  ///< > 0
    bool mirrored;

    /// The source pixel in the middle of target pixel `at`; on a border between two, the former
    /// when enlarging and the latter when shrinking.
    int SourceOf(int at) const {
        long long i = at - target;
        if (mirrored) i = target_length - 1 - i;
        const long long middle = (2 * i + 1) * source_length;
        const long long bias = target_length > source_length ? 1 : 0;
        return source + static_cast<int>((middle - bias) / (2LL * target_length));
    }
};

/// A copy between rectangles of any size, in calls' coordinates moved to the surfaces.
struct CopyRequest {
    Dc& target_dc;
    Surface& source;
    RECT target;
    RECT from;
    bool mirror_x = false;
    bool mirror_y = false;

    bool SameSize() const {
        return !mirror_x && !mirror_y && source.scale() == target_dc.surface->scale() &&
               target.right - target.left == from.right - from.left &&
               target.bottom - target.top == from.bottom - from.top;
    }
};

/// Cuts both rectangles of a copy of one size to what the source has.
void CutToSource(CopyRequest* request) {
    const RECT rest = Intersection(request->from, request->source.Bounds());
    const int x = request->target.left - request->from.left;
    const int y = request->target.top - request->from.top;
    request->from = rest;
    request->target = Moved(rest, x, y);
}

void CarryTexts(const CopyRequest& request) {
    Surface& target = *request.target_dc.surface;
    if (target.records().Empty() && request.source.records().Empty()) return;
    if (request.SameSize()) {
        target.records().CopyFrom(request.source.records().All(), request.from, request.target,
                                  request.target_dc.reach);
    } else {
        ForEachPart(request.target_dc, request.target,
                    [&target](const RECT& part) { target.records().Cover(part); });
    }
}

/// The source's pixels in memory of their own, for copies that would read what they wrote.
std::vector<Pixel> Snapshot(Surface& source, const RECT& rect) {
    const PixelBlock block = BlockOf(source, rect);
    std::vector<Pixel> pixels;
    pixels.reserve(static_cast<std::size_t>(block.width) * static_cast<std::size_t>(block.height));
    for (int y = 0; y < block.height; ++y) {
        const Pixel* row = block.pixels + y * block.stride;
        pixels.insert(pixels.end(), row, row + block.width);
    }
    return pixels;
}

void CopySameSize(CopyRequest request, CopyRule rule) {
    CutToSource(&request);
    if (IsEmpty(request.from)) return;
    Dc& dc = request.target_dc;
    const bool itself = dc.surface == &request.source;
    const bool simple = !itself || (dc.reach.Rects().size() == 1 && rule == CopyRule::kCopy);
    const PixelBlock whole = BlockOf(request.source, request.from);
    const std::vector<Pixel> copy =
        simple ? std::vector<Pixel>() : Snapshot(request.source, request.from);
    const Pixel* pixels = simple ? whole.pixels : copy.data();
    const std::ptrdiff_t stride = simple ? whole.stride : whole.width;
    const int scale = dc.surface->scale();
    ForEachPart(dc, request.target, [&](const RECT& part) {
        const Pixel* from = pixels + (part.top - request.target.top) * scale * stride +
                            (part.left - request.target.left) * scale;
        CopyBlock(BlockOf(*dc.surface, part), from, stride, rule);
        dc.surface->AddDamage(part);
    });
    CarryTexts(request);
}

/// Calls `mix(target pixel, source pixel or none)` for each device pixel of the target.
template <class Mix>
void Stretch(const CopyRequest& request, Mix mix) {
    Dc& dc = request.target_dc;
    const int to = dc.surface->scale();
    const int from = request.source.scale();
    const RECT& target = request.target;
    const RECT& source = request.from;
    if (IsEmpty(target) || IsEmpty(source)) return;
    const Axis across{target.left * to, (target.right - target.left) * to, source.left * from,
                      (source.right - source.left) * from, request.mirror_x};
    const Axis down{target.top * to, (target.bottom - target.top) * to, source.top * from,
                    (source.bottom - source.top) * from, request.mirror_y};
    ForEachPart(dc, target, [&](const RECT& part) {
        std::vector<int> columns;
        for (int x = part.left * to; x < part.right * to; ++x)
            columns.push_back(across.SourceOf(x));
        for (int y = part.top * to; y < part.bottom * to; ++y) {
            const int source_y = down.SourceOf(y);
            const bool row_exists = source_y >= 0 && source_y < request.source.device_height();
            Pixel* row = dc.surface->Row(y) + part.left * to;
            for (std::size_t i = 0; i < columns.size(); ++i) {
                const bool exists =
                    row_exists && columns[i] >= 0 && columns[i] < request.source.device_width();
                const Pixel* pixel = exists ? request.source.Row(source_y) + columns[i] : nullptr;
                row[i] = mix(row[i], pixel);
            }
        }
        dc.surface->AddDamage(part);
    });
}

void CopyStretched(const CopyRequest& request, CopyRule rule) {
    Stretch(request, [rule](Pixel under, const Pixel* pixel) {
        if (!pixel) return under;
        switch (rule) {
            case CopyRule::kCopy: break;
            case CopyRule::kAnd: return under & *pixel;
            case CopyRule::kOr: return under | *pixel;
            case CopyRule::kXor: return under ^ *pixel;
        }
        return *pixel;
    });
    CarryTexts(request);
}

std::optional<CopyRule> RuleOf(DWORD operation) {
    switch (operation) {
        case SRCCOPY: return CopyRule::kCopy;
        case SRCAND: return CopyRule::kAnd;
        case SRCPAINT: return CopyRule::kOr;
        case SRCINVERT: return CopyRule::kXor;
        default: return std::nullopt;
    }
}

bool NeedsNoSource(DWORD operation) {
    return operation == PATCOPY || operation == PATINVERT || operation == DSTINVERT ||
           operation == BLACKNESS || operation == WHITENESS;
}

RECT Sized(int x, int y, int width, int height) {
    x = Near(x);
    y = Near(y);
    width = Near(width);
    height = Near(height);
    return {std::min(x, x + width), std::min(y, y + height), std::max(x, x + width),
            std::max(y, y + height)};
}

struct Place {
    int x;
    int y;
    int width;
    int height;
    RECT Rect() const { return Sized(x, y, width, height); }
};

/// Nothing when a context is dead; otherwise both are brought up to date.
std::optional<CopyRequest> MakeRequest(HDC target, const Place& place, HDC source,
                                       const Place& from) {
    Dc* dc = FindDcToDraw(target);
    Dc* source_dc = FindDcToDraw(source);
    if (!dc || !source_dc) return std::nullopt;
    // Either may have nothing behind it; copying then succeeds without effect.
    static Surface& nothing = *new Surface(1, 1, 1);
    Surface& surface = source_dc->surface ? *source_dc->surface : nothing;
    return CopyRequest{*dc,
                       surface,
                       dc->ToSurface(place.Rect()),
                       source_dc->ToSurface(from.Rect()),
                       (place.width < 0) != (from.width < 0),
                       (place.height < 0) != (from.height < 0)};
}

}  // namespace

Region ScrollSurface(Surface& surface, const RECT& source, int x, int y, const Region& clip) {
    Region from(source);
    from.Intersect(surface.Bounds());
    from.Intersect(clip);
    Region to = from;
    to.Offset(x, y);
    to.Intersect(clip);
    to.Intersect(source);
    Region uncovered = from;
    uncovered.Subtract(to);
    MovePixels(surface, to, x, y);
    return uncovered;
}

void MovePixels(Surface& surface, const Region& target, int x, int y) {
    Region to = target;
    to.Intersect(surface.Bounds());
    to.Intersect(Moved(surface.Bounds(), x, y));
    if (to.Empty()) return;
    const RECT read = Moved(to.Bounds(), -x, -y);
    const bool simple = to.Rects().size() == 1;
    const std::vector<Pixel> copy = simple ? std::vector<Pixel>() : Snapshot(surface, read);
    const PixelBlock whole = BlockOf(surface, read);
    const Pixel* pixels = simple ? whole.pixels : copy.data();
    const std::ptrdiff_t stride = simple ? whole.stride : whole.width;
    for (const RECT& part : to.Rects()) {
        const Pixel* at = pixels + (part.top - to.Bounds().top) * surface.scale() * stride +
                          (part.left - to.Bounds().left) * surface.scale();
        CopyBlock(BlockOf(surface, part), at, stride, CopyRule::kCopy);
        surface.AddDamage(part);
    }
    if (!surface.records().Empty()) {
        surface.records().CopyFrom(surface.records().All(), read, to.Bounds(), to);
    }
}

}  // namespace winbase

using namespace winbase;

BOOL WINAPI StretchBlt(HDC target, int x, int y, int width, int height, HDC source, int source_x,
                       int source_y, int source_width, int source_height, DWORD operation) {
    if (NeedsNoSource(operation)) return PatBlt(target, x, y, width, height, operation);
    const std::optional<CopyRule> rule = RuleOf(operation);
    const auto request = MakeRequest(target, {x, y, width, height}, source,
                                     {source_x, source_y, source_width, source_height});
    if (!request || !rule) return FALSE;
    if (!request->target_dc.surface) return TRUE;
    if (request->SameSize()) {
        CopySameSize(*request, *rule);
    } else {
        CopyStretched(*request, *rule);
    }
    return TRUE;
}

BOOL WINAPI BitBlt(HDC target, int x, int y, int width, int height, HDC source, int source_x,
                   int source_y, DWORD operation) {
    return StretchBlt(target, x, y, width, height, source, source_x, source_y, width, height,
                      operation);
}

BOOL WINAPI TransparentBlt(HDC target, int x, int y, int width, int height, HDC source,
                           int source_x, int source_y, int source_width, int source_height,
                           UINT transparent) {
    if (width < 0 || height < 0 || source_width < 0 || source_height < 0) return FALSE;
    const auto request = MakeRequest(target, {x, y, width, height}, source,
                                     {source_x, source_y, source_width, source_height});
    if (!request) return FALSE;
    if (!request->target_dc.surface) return TRUE;
    const Pixel key = ToPixel(transparent);
    Stretch(*request, [key](Pixel under, const Pixel* pixel) {
        const Pixel over = pixel ? *pixel : 0;
        return (over & 0xFFFFFF) == key ? under : over;
    });
    return TRUE;
}

BOOL WINAPI AlphaBlend(HDC target, int x, int y, int width, int height, HDC source, int source_x,
                       int source_y, int source_width, int source_height, BLENDFUNCTION blend) {
    const auto request = MakeRequest(target, {x, y, width, height}, source,
                                     {source_x, source_y, source_width, source_height});
    const bool known = blend.BlendOp == AC_SRC_OVER && blend.BlendFlags == 0;
    if (!request || !known || width < 0 || height < 0 || source_width < 0 || source_height < 0 ||
        !Contains(request->source.Bounds(), request->from)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (!request->target_dc.surface) return TRUE;
    const bool has_alpha = (blend.AlphaFormat & AC_SRC_ALPHA) != 0;
    const unsigned constant = blend.SourceConstantAlpha;
    Stretch(*request, [has_alpha, constant](Pixel under, const Pixel* pixel) {
        const Pixel color = pixel ? *pixel : 0;
        const Pixel over = has_alpha ? color : color | 0xFF000000;
        return BlendOver(under, ScaledBy(over, constant));
    });
    return TRUE;
}
