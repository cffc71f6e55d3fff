#pragma once

#include <windef.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/gdi/region.h"

namespace winbase {

/// A text that a surface shows.
struct TextRecord {
    std::string text;  ///< bytes as drawn, code page 936
    RECT rect{};       ///< the part of its cell that is still seen, logical pixels of the surface
    COLORREF color = 0;
    int weight = 400;
};

/// Recording is off at first; while it is off, nothing is kept and nothing costs time. Turning it
/// off leaves what was recorded.
bool RecordingTexts();
void RecordTexts(bool on);

/// The texts of one surface. All rectangles are logical pixels of that surface.
class TextRecords {
public:
    bool Empty() const { return records_.empty(); }
    const std::vector<TextRecord>& All() const { return records_; }
    void Clear() { records_.clear(); }

    /// Keeps the smallest rectangle around what `reach` leaves of `rect`.
    void Add(std::string_view text, const RECT& rect, const Region& reach, COLORREF color,
             int weight);
    /// Something was painted over the rectangle: records lose what it covers, up to all of them.
    void Cover(const RECT& rect);
    /// What another surface (or this one) showed in `source` is now seen at `target`, which has the
    /// same size, as far as `reach` goes.
    void CopyFrom(const std::vector<TextRecord>& records, const RECT& source, const RECT& target,
                  const Region& reach);

private:
    std::vector<TextRecord> records_;
};

}  // namespace winbase
