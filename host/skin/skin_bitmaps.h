#pragma once

#include <map>
#include <utility>

#include "platform/toolkit/gdi_objects.h"

namespace skin {

/// The bitmaps that the front end asks its core for, drawn when first asked for and kept for all
/// who ask again. They belong to this object; it must outlive every window that shows them.
///
/// "States" are pictures side by side: normal, hover, pressed, disabled.
///
/// | group, index | what | one picture |
/// |---|---|---|
/// | 0, 1 | states: buttons of pages | 60 x 20 |
/// | 0, 3 | states: buttons of the login | 72 x 25 |
/// | 0, 4 | states: buttons on a panel's ground | 60 x 20 |
/// | 0, 7 | strip of MenuIcon pictures | 16 x 16 |
/// | 0, 8 | top of the login | 518 x 104 |
/// | 0, 9 | tab: plain, under the pointer, selected | 24 x 40 |
/// | 0, 12 | bottom of the login, to be tiled | 16 x 36 |
/// | 0, 13 | states: soft keyboard | 20 x 20 |
/// | 0, 14 | states: upright buttons; their captions are dark | 21 x 160 |
/// | 0, 18 | ground of the five levels, of one colour | 16 x 16 |
/// | 0, 28 | closed, open; white is to be left out | 7 x 9 |
/// | 0, 68 and 69 | states: minus, plus | 22 x 22 |
/// | 0, 73 and 74 | radio, check: states unchecked, states checked | 14 x 14 |
/// | 1, 0 | top edge of a panel's frame, to be tiled | 8 x 2 |
/// | 1, 1 and 2 | states: big buy, big sell | 96 x 48 |
/// | 1, 3 and 4 | states: small buy, small sell | 48 x 22 |
/// | 1, 5 | states: reset | 48 x 22 |
/// | 1, 6 | back above forward | 14 x 15 |
/// | 1, 7 | states: cancel | 40 x 20 |
///
/// Radio and check have an opacity channel (AlphaBlend); all others are opaque, with the corners of
/// round faces in the colour of the ground that they stand on.
class SkinBitmaps {
public:
    /// `scale` device pixels a pixel, as the desktop has them.
    explicit SkinBitmaps(int scale = 1) : scale_(scale) {}

    /// Null for a number that nobody knows.
    HBITMAP Get(int group, int index);

private:
    int scale_;
    std::map<std::pair<int, int>, CBitmap> made_;
};

}  // namespace skin
