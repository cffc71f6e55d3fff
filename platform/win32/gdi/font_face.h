#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/win32/gdi/face_rules.h"

namespace winbase {

/// A character's picture at one scale. Rows of coverage are `width` bytes, a multiple of 4.
struct Glyph {
    const std::uint8_t* coverage = nullptr;  ///< null for what shows nothing
    std::int16_t left = 0;                   ///< from the pen to the picture, device pixels
    std::int16_t top = 0;                    ///< from the baseline up to the picture's top
    std::int16_t width = 0;
    std::int16_t height = 0;
    std::int16_t advance = 0;  ///< logical pixels, the same at every scale
    bool loaded = false;
};

/// A font as it is drawn: measures, and glyphs by their GBK code, each made when first met.
class FontFace {
public:
    explicit FontFace(const LOGFONTA& log);
    FontFace(const FontFace&) = delete;
    FontFace& operator=(const FontFace&) = delete;

    const FaceSize& size() const { return size_; }
    const FaceRule& rule() const { return rule_; }
    int weight() const { return weight_; }
    bool underlined() const { return underlined_; }
    bool struck_out() const { return struck_out_; }

    /// `code` is a single byte or lead << 8 | trail; `scale` is 1 to 3.
    const Glyph& GlyphOf(unsigned code, int scale) {
        const auto& page = pages_[static_cast<std::size_t>(scale - 1)][code >> 8];
        if (page && (*page)[code & 0xFF].loaded) return (*page)[code & 0xFF];
        return Load(code, scale);
    }
    int Advance(unsigned code) { return GlyphOf(code, 1).advance; }

private:
    using Page = std::array<Glyph, 256>;
    using Pages = std::array<std::unique_ptr<Page>, 256>;

    const Glyph& Load(unsigned code, int scale);
    void Rasterize(unsigned code, int scale, Glyph* glyph);
    int AdvanceOf(unsigned code, double natural) const;
    std::uint8_t* Reserve(std::size_t bytes);

    const FaceRule& rule_;
    FaceSize size_;
    int weight_;
    bool italic_;
    bool underlined_;
    bool struck_out_;
    std::array<Pages, 3> pages_;
    std::vector<std::unique_ptr<std::uint8_t[]>> chunks_;
    std::size_t chunk_left_ = 0;
};

/// The face of a font; equal fonts share one as long as one of them lives, and a little longer.
std::shared_ptr<FontFace> OpenFontFace(const LOGFONTA& log);

/// Takes characters off the front of a text, one GBK code at a time. A lead byte at the end of a
/// text is a code of its own, which shows nothing.
inline unsigned TakeCode(std::string_view* text) {
    const auto first = static_cast<unsigned char>((*text)[0]);
    const bool is_lead = first >= 0x81 && first <= 0xFE && text->size() > 1 && (*text)[1] != '\0';
    const unsigned code = is_lead ? first << 8u | static_cast<unsigned char>((*text)[1]) : first;
    text->remove_prefix(is_lead ? 2 : 1);
    return code;
}

}  // namespace winbase
