#pragma once

#include <windows.h>

namespace winbase {

/// How a face that programs ask for by name is shown: with which installed families, and with which
/// measures of its own, so that texts are as wide and as high as their pages were designed for.
struct FaceRule {
    enum class Pitch {
        kHalfAndFull,   ///< each byte of a text takes half of a full-width character
        kProportional,  ///< single bytes as wide as in the family, double bytes one em
    };
    const char* name;     ///< as asked for, letter case aside
    const char* alias;    ///< another name of the same face, or null
    const char* latin;    ///< installed family for single bytes
    const char* chinese;  ///< installed family for double bytes
    int em;               ///< design units of the next three
    int ascent;
    int descent;
    int average_width;
    double latin_stretch;  ///< what makes the installed family as wide as the face
    Pitch pitch;
};

/// The rule of a face; of 宋体, the system's own, for names that nobody knows.
const FaceRule& FindFaceRule(const char* name);

/// Sizes in pixels that a font gets by a rule.
struct FaceSize {
    int em = 0;       ///< height of the em square
    double em_x = 0;  ///< its width, differs where a width was asked for
    int ascent = 0;
    int descent = 0;
    int average_width = 0;
    int half = 0;  ///< the half width of kHalfAndFull
    int Height() const { return ascent + descent; }
};

/// Heights: above 0 the cell's, below 0 the em square's, 0 a usual one. Width: of the average
/// character, or 0 for what belongs to the height.
FaceSize SizeByRule(const FaceRule& rule, int height, int width);

}  // namespace winbase
