#include "platform/win32/controls/edit_layout.h"

#include <algorithm>

namespace winbase {

void CharacterWidths::SetFont(HFONT font) {
    font_ = font;
    known_.clear();
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ old = font_ != nullptr ? SelectObject(dc, font_) : nullptr;
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    line_height_ = std::max<int>(metrics.tmHeight, 1);
    if (old != nullptr) SelectObject(dc, old);
    DeleteDC(dc);
}

int CharacterWidths::Of(char16_t code) const {
    if (mask_ != 0) code = mask_;
    const auto found = known_.find(code);
    if (found != known_.end()) return found->second;
    const int width = Measure(code);
    known_.emplace(code, width);
    return width;
}

int CharacterWidths::Of(std::u16string_view codes) const {
    int width = 0;
    for (const char16_t code : codes) width += Of(code);
    return width;
}

int CharacterWidths::Measure(char16_t code) const {
    constexpr int kTabBlanks = 8;
    if (code == '\t') return Measure(' ') * kTabBlanks;
    if (code == '\r' || code == '\n') return 0;
    const std::string bytes = BytesFromCodes(std::u16string_view(&code, 1));
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ old = font_ != nullptr ? SelectObject(dc, font_) : nullptr;
    SIZE size{};
    GetTextExtentPoint32A(dc, bytes.data(), static_cast<int>(bytes.size()), &size);
    if (old != nullptr) SelectObject(dc, old);
    DeleteDC(dc);
    return size.cx;
}

void EditLayout::Break(const EditText& text, const CharacterWidths& widths, int wrap_width) {
    lines_.clear();
    width_ = 0;
    const Codes& codes = text.codes();
    std::size_t start = 0;
    if (text.line_ends() != LineEnds::kSingleLine) {
        for (std::size_t at = 0; at < codes.size(); ++at) {
            if (codes[at] != '\r' && codes[at] != '\n') continue;
            const std::size_t end = at;
            if (codes[at] == '\r' && text.line_ends() == LineEnds::kPairs) {
                // A return alone is no line end of a plain edit.
                if (at + 1 >= codes.size() || codes[at + 1] != '\n') continue;
                ++at;
            }
            BreakLine(text, widths, wrap_width, start, end, at + 1);
            start = at + 1;
        }
    }
    BreakLine(text, widths, wrap_width, start, codes.size(), codes.size());
}

void EditLayout::BreakLine(const EditText& text, const CharacterWidths& widths, int wrap_width,
                           std::size_t start, std::size_t end, std::size_t next) {
    const Codes& codes = text.codes();
    int width = 0;
    std::size_t break_at = start;  // behind the last blank or Chinese character
    for (std::size_t at = start; at < end; ++at) {
        const int step = widths.Of(codes[at]);
        if (wrap_width > 0 && width + step > wrap_width && at > start && codes[at] != ' ') {
            const std::size_t split = break_at > start ? break_at : at;
            lines_.push_back({start, split, split});
            width_ = std::max(width_, wrap_width);
            start = split;
            break_at = start;
            width = widths.Of(std::u16string_view(codes).substr(start, at - start));
        }
        width += step;
        if (codes[at] == ' ' || codes[at] >= 0x100) break_at = at + 1;
    }
    width_ = std::max(width_, width);
    lines_.push_back({start, end, next});
}

std::size_t EditLayout::LineOf(std::size_t position) const {
    const auto behind = std::upper_bound(
        lines_.begin(), lines_.end(), position,
        [](std::size_t place, const TextLine& line) { return place < line.start; });
    return behind == lines_.begin() ? 0 : static_cast<std::size_t>(behind - lines_.begin()) - 1;
}

}  // namespace winbase
