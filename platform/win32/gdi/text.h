#pragma once

#include <string_view>

#include "platform/win32/gdi/dc.h"
#include "platform/win32/gdi/font_face.h"

namespace winbase {

/// The sum of the characters' advances.
int TextWidth(FontFace& face, std::string_view text);

/// A text in one line, to be drawn with the context's font and colours.
struct TextRun {
    std::string_view text;
    POINT place;                    ///< left and top of its cell, in surface coordinates
    const RECT* clip = nullptr;     ///< in surface coordinates, beside the context's clips
    const INT* advances = nullptr;  ///< one for each byte, instead of the font's own
    int width = 0;                  ///< of the cell
};

/// Ground (with an opaque background), characters, underline; and the record where these are kept.
void DrawRun(Dc& dc, const TextRun& run);
/// The line under one character, `left` to `right` in surface coordinates; `top` is the cell's.
void DrawUnderline(Dc& dc, int left, int right, int top, const RECT* clip);

}  // namespace winbase
