#pragma once

#include "platform/toolkit/toolkit.h"

// Painting from skin bitmaps: pictures of equal width side by side. A null bitmap, one without a
// pixel and a picture that is not there paint nothing.

/// A skin with the picture of each state.
struct StateSkin {
    static constexpr int kMaxStates = 8;

    HBITMAP bitmap = nullptr;  ///< the core's
    int pictures = 0;
    int table[kMaxStates] = {};  ///< state that each picture shows
    int states = 0;              ///< entries in the table

    /// The table has `count` entries, of which at most kMaxStates are taken; a null table or a
    /// count below 1 leaves none.
    void Set(HBITMAP skin, int count, const int* state_table);
    /// Of one picture; empty when there is nothing to paint.
    CSize PictureSize() const;
    /// Where the picture of a state stands. A state that the table lacks gets the first picture.
    CRect PictureOf(int state) const;
};

namespace controls {

/// Stretches the picture of a state over a rectangle, its first and last 6 columns as they are.
void PaintThreeParts(const CDC& dc, const CRect& rect, const StateSkin& skin, int state);
/// The colour of a pixel; CLR_INVALID outside the bitmap.
COLORREF SkinPixel(HBITMAP skin, CPoint point);

}  // namespace controls
