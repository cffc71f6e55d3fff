#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <unordered_map>
#include <vector>

#include "platform/win32/controls/edit_text.h"

namespace winbase {

/// Widths of characters in one font.
class CharacterWidths {
public:
    /// Measures with the font (null: the system's) from now on.
    void SetFont(HFONT font);
    int line_height() const { return line_height_; }
    /// Every character looks like this one, unless 0.
    void SetMask(char16_t mask) { mask_ = mask; }

    int Of(char16_t code) const;
    int Of(std::u16string_view codes) const;

private:
    int Measure(char16_t code) const;

    HFONT font_ = nullptr;
    int line_height_ = 12;
    char16_t mask_ = 0;
    mutable std::unordered_map<char16_t, int> known_;
};

/// Where the lines of a text begin and end.
struct TextLine {
    std::size_t start = 0;
    std::size_t end = 0;   ///< behind the last character, without the line end
    std::size_t next = 0;  ///< where the following line starts
};

class EditLayout {
public:
    /// Breaks the text into lines; `wrap_width` 0 or less keeps long lines whole.
    void Break(const EditText& text, const CharacterWidths& widths, int wrap_width);

    const std::vector<TextLine>& lines() const { return lines_; }
    std::size_t LineOf(std::size_t position) const;
    /// The widest line in pixels.
    int width() const { return width_; }

private:
    void BreakLine(const EditText& text, const CharacterWidths& widths, int wrap_width,
                   std::size_t start, std::size_t end, std::size_t next);

    std::vector<TextLine> lines_{TextLine{}};
    int width_ = 0;
};

}  // namespace winbase
