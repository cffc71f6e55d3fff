#include "controls/list_text.h"

#include <algorithm>

#include "platform/text/bounded_text.h"
#include "platform/text/gbk.h"

namespace {

constexpr std::string_view kDots = "...";

}  // namespace

int CharactersBeforeDots(int room, int glyph_width) {
    constexpr int kDotsRoom = 3;
    if (glyph_width < 1) return 0;
    return std::max(room / glyph_width - kDotsRoom, 0);
}

std::size_t CopyWithDots(char* field, std::size_t size, std::string_view text, int characters) {
    std::size_t length = 0;
    for (int i = 0; i < characters && length < text.size(); ++i) {
        length += text::CharLength(text.substr(length));
    }
    const std::size_t room = size > kDots.size() ? size - 1 - kDots.size() : 0;
    length = text::PrefixLength(text.substr(0, length), room);
    text::CopyText(field, size, text.substr(0, length));
    text::AppendText(field, size, kDots);
    return std::string_view(field).size();
}
