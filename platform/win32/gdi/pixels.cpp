#include "platform/win32/gdi/pixels.h"

#include <algorithm>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace winbase {

namespace {

/// v / 255 rounded, exact for v up to 255 * 255.
unsigned DividedBy255(unsigned v) {
    v += 128;
    return (v + (v >> 8)) >> 8;
}

Pixel Mixed(Pixel under, Pixel over, unsigned coverage) {
    Pixel result = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const unsigned a = under >> shift & 0xFF;
        const unsigned b = over >> shift & 0xFF;
        result |= DividedBy255(a * (255 - coverage) + b * coverage) << shift;
    }
    return result;
}

void BlendPixels(Pixel* row, const std::uint8_t* coverage, int count, Pixel pixel) {
    for (int x = 0; x < count; ++x) {
        if (coverage[x] != 0) row[x] = Mixed(row[x], pixel, coverage[x]);
    }
}

#ifdef __SSE2__

void FillRow(Pixel* row, int count, Pixel pixel) {
    const __m128i four = _mm_set1_epi32(static_cast<int>(pixel));
    int x = 0;
    for (; x + 16 <= count; x += 16) {
        for (int i = 0; i < 16; i += 4) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(row + x + i), four);
        }
    }
    for (; x + 4 <= count; x += 4) _mm_storeu_si128(reinterpret_cast<__m128i*>(row + x), four);
    for (; x < count; ++x) row[x] = pixel;
}

/// Two pixels, each byte in the upper half of a word, mixed by fractions of 0xFFFF.
__m128i MixedHalf(__m128i under, __m128i over, __m128i fraction) {
    const __m128i rest = _mm_xor_si128(fraction, _mm_set1_epi16(-1));
    const __m128i sum =
        _mm_add_epi16(_mm_mulhi_epu16(under, rest), _mm_mulhi_epu16(over, fraction));
    // A product by 0xFFFF comes out one too low, which rounding puts right.
    return _mm_srli_epi16(_mm_add_epi16(sum, _mm_set1_epi16(128)), 8);
}

// No test for 0 or 255 in the loop: a branch that is guessed wrong costs more than four pixels.
void BlendRow(Pixel* row, const std::uint8_t* coverage, int count, Pixel pixel) {
    const __m128i zero = _mm_setzero_si128();
    const __m128i over = _mm_unpacklo_epi8(zero, _mm_set1_epi32(static_cast<int>(pixel)));
    int x = 0;
    for (; x + 4 <= count; x += 4) {
        int four = 0;
        std::memcpy(&four, coverage + x, sizeof four);
        // A byte twice is its fraction of 0xFFFF; four of these belong to each pixel.
        __m128i spread = _mm_cvtsi32_si128(four);
        spread = _mm_unpacklo_epi8(spread, spread);
        spread = _mm_unpacklo_epi16(spread, spread);
        auto* place = reinterpret_cast<__m128i*>(row + x);
        const __m128i under = _mm_loadu_si128(place);
        const __m128i low =
            MixedHalf(_mm_unpacklo_epi8(zero, under), over, _mm_unpacklo_epi32(spread, spread));
        const __m128i high =
            MixedHalf(_mm_unpackhi_epi8(zero, under), over, _mm_unpackhi_epi32(spread, spread));
        _mm_storeu_si128(place, _mm_packus_epi16(low, high));
    }
    BlendPixels(row + x, coverage + x, count - x, pixel);
}

#else

void FillRow(Pixel* row, int count, Pixel pixel) { std::fill_n(row, count, pixel); }

void BlendRow(Pixel* row, const std::uint8_t* coverage, int count, Pixel pixel) {
    BlendPixels(row, coverage, count, pixel);
}

#endif

template <class Combine>
void CombineRow(Pixel* row, const Pixel* source, int count, Combine combine) {
    for (int x = 0; x < count; ++x) row[x] = combine(row[x], source[x]);
}

void CopyRow(Pixel* row, const Pixel* source, int count, CopyRule rule) {
    switch (rule) {
        case CopyRule::kCopy:
            std::memmove(row, source, static_cast<std::size_t>(count) * sizeof(Pixel));
            break;
        case CopyRule::kAnd:
            CombineRow(row, source, count, [](Pixel a, Pixel b) { return a & b; });
            break;
        case CopyRule::kOr:
            CombineRow(row, source, count, [](Pixel a, Pixel b) { return a | b; });
            break;
        case CopyRule::kXor:
            CombineRow(row, source, count, [](Pixel a, Pixel b) { return a ^ b; });
            break;
    }
}

}  // namespace

PixelBlock BlockOf(Surface& surface, const RECT& rect) {
    const int scale = surface.scale();
    return {surface.Row(rect.top * scale) + rect.left * scale, surface.stride(),
            (rect.right - rect.left) * scale, (rect.bottom - rect.top) * scale};
}

void FillBlock(const PixelBlock& block, Pixel pixel) {
    if (block.width == block.stride) {
        FillRow(block.pixels, block.width * block.height, pixel);
    } else if (block.width == 1) {
        for (int y = 0; y < block.height; ++y) block.pixels[y * block.stride] = pixel;
    } else {
        for (int y = 0; y < block.height; ++y) {
            FillRow(block.pixels + y * block.stride, block.width, pixel);
        }
    }
}

void XorBlock(const PixelBlock& block, Pixel pixel) {
    for (int y = 0; y < block.height; ++y) {
        Pixel* row = block.pixels + y * block.stride;
        for (int x = 0; x < block.width; ++x) row[x] ^= pixel;
    }
}

void CopyBlock(const PixelBlock& target, const Pixel* source, std::ptrdiff_t source_stride,
               CopyRule rule) {
    if (target.width == target.stride && target.stride == source_stride) {
        CopyRow(target.pixels, source, target.width * target.height, rule);
        return;
    }
    // Overlapping rows are read before they are written when copying starts at the far end.
    const bool backwards = target.pixels > source;
    for (int i = 0; i < target.height; ++i) {
        const bool last_first = backwards == (target.stride > 0);
        const int y = last_first ? target.height - 1 - i : i;
        CopyRow(target.pixels + y * target.stride, source + y * source_stride, target.width, rule);
    }
}

void BlendCoverage(const PixelBlock& block, const std::uint8_t* coverage,
                   std::ptrdiff_t coverage_stride, Pixel pixel) {
    for (int y = 0; y < block.height; ++y) {
        BlendRow(block.pixels + y * block.stride, coverage + y * coverage_stride, block.width,
                 pixel);
    }
}

Pixel ScaledBy(Pixel pixel, unsigned alpha) {
    Pixel result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        result |= DividedBy255((pixel >> shift & 0xFF) * alpha) << shift;
    }
    return result;
}

Pixel BlendOver(Pixel under, Pixel over) {
    const Pixel rest = ScaledBy(under, 255 - (over >> 24));
    Pixel result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const unsigned sum = (rest >> shift & 0xFF) + (over >> shift & 0xFF);
        result |= std::min(sum, 255u) << shift;
    }
    return result;
}

}  // namespace winbase
