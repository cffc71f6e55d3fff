#include "platform/win32/gdi/text_records.h"

#include <algorithm>

namespace winbase {

namespace {

bool recording = false;

/// What is left of `rect` without `cover`, as one rectangle: parts are cut off only where `cover`
/// reaches across the whole of it.
RECT Without(const RECT& rect, const RECT& cover) {
    RECT rest = rect;
    if (cover.left <= rect.left && cover.right >= rect.right) {
        if (cover.top <= rect.top) rest.top = std::max(rest.top, cover.bottom);
        if (cover.bottom >= rect.bottom) rest.bottom = std::min(rest.bottom, cover.top);
    } else if (cover.top <= rect.top && cover.bottom >= rect.bottom) {
        if (cover.left <= rect.left) rest.left = std::max(rest.left, cover.right);
        if (cover.right >= rect.right) rest.right = std::min(rest.right, cover.left);
    }
    return rest;
}

RECT SeenPart(const RECT& rect, const Region& reach) {
    Region seen(rect);
    seen.Intersect(reach);
    return seen.Bounds();
}

}  // namespace

bool RecordingTexts() { return recording; }

void RecordTexts(bool on) { recording = on; }

void TextRecords::Add(std::string_view text, const RECT& rect, const Region& reach, COLORREF color,
                      int weight) {
    if (!recording) return;
    const RECT seen = SeenPart(rect, reach);
    if (!IsEmpty(seen)) records_.push_back({std::string(text), seen, color, weight});
}

void TextRecords::Cover(const RECT& rect) {
    std::erase_if(records_, [&rect](TextRecord& record) {
        if (IsEmpty(Intersection(record.rect, rect))) return false;
        record.rect = Without(record.rect, rect);
        return IsEmpty(record.rect);
    });
}

void TextRecords::CopyFrom(const std::vector<TextRecord>& records, const RECT& source,
                           const RECT& target, const Region& reach) {
    // Made first, since a copy within one surface reads what it is about to change.
    std::vector<TextRecord> moved;
    for (const TextRecord& record : records) {
        const RECT part = Intersection(record.rect, source);
        if (IsEmpty(part)) continue;
        const RECT seen =
            SeenPart(Moved(part, target.left - source.left, target.top - source.top), reach);
        if (IsEmpty(seen)) continue;
        moved.push_back({record.text, seen, record.color, record.weight});
    }
    for (const RECT& rect : reach.Rects()) Cover(Intersection(rect, target));
    records_.insert(records_.end(), moved.begin(), moved.end());
}

}  // namespace winbase
