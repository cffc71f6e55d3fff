#include "platform/win32/gdi/font_face.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <map>
#include <tuple>

#include "platform/text/gbk.h"
#include "platform/win32/gdi/font_files.h"

#include FT_ADVANCES_H
#include FT_OUTLINE_H

namespace winbase {

namespace {

constexpr std::size_t kChunkBytes = 16384;
constexpr unsigned kLargestPicture = 8192;

using Contrast = std::array<std::uint8_t, 256>;

Contrast MakeContrast(double exponent) {
    Contrast table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        const double strengthened = std::pow(static_cast<double>(i) / 255, exponent);
        table[i] = static_cast<std::uint8_t>(std::lround(255 * strengthened));
    }
    return table;
}

/// Small text in grey levels looks washed out, so what is half covered is drawn stronger; a little
/// only in bold, where the gaps within a character would close.
const Contrast& ContrastFor(bool bold) {
    static const Contrast regular_table = MakeContrast(0.68);
    static const Contrast bold_table = MakeContrast(0.85);
    return bold ? bold_table : regular_table;
}

bool ShowsNothing(unsigned code) {
    return code <= 0x20 || code == 0x7F || (code > 0x80 && code <= 0xFF);
}

/// How a glyph's outline is changed before it is drawn.
struct OutlineStyle {
    bool fit_stems;  ///< upright stems to whole pixels too, which moves them within their places
    bool embolden;
    bool italic;
};

bool Render(FT_Face face, FT_UInt index, const OutlineStyle& style) {
    const FT_Int32 flags =
        style.fit_stems ? FT_LOAD_TARGET_NORMAL | FT_LOAD_FORCE_AUTOHINT : FT_LOAD_TARGET_LIGHT;
    if (FT_Load_Glyph(face, index, flags | FT_LOAD_NO_BITMAP) != 0) return false;
    if (face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return false;
    FT_Outline& outline = face->glyph->outline;
    if (style.embolden) {
        FT_Outline_Embolden(&outline, std::max<FT_Pos>(32, face->size->metrics.y_ppem * 64 / 24));
    }
    if (style.italic) {
        const FT_Matrix slant{0x10000, 0x3333, 0, 0x10000};
        FT_Outline_Transform(&outline, &slant);
    }
    return FT_Render_Glyph(face->glyph, FT_RENDER_MODE_NORMAL) == 0;
}

}  // namespace

FontFace::FontFace(const LOGFONTA& log)
    : rule_(FindFaceRule(log.lfFaceName)),
      size_(SizeByRule(rule_, log.lfHeight, log.lfWidth)),
      weight_(log.lfWeight == FW_DONTCARE ? FW_NORMAL : std::clamp(log.lfWeight, 1, 1000)),
      italic_(log.lfItalic != 0),
      underlined_(log.lfUnderline != 0),
      struck_out_(log.lfStrikeOut != 0) {}

std::uint8_t* FontFace::Reserve(std::size_t bytes) {
    if (bytes > chunk_left_) {
        chunk_left_ = std::max(bytes, kChunkBytes);
        chunks_.push_back(std::make_unique<std::uint8_t[]>(chunk_left_));
        // Taken from the end, so that the place follows from what is left.
    }
    chunk_left_ -= bytes;
    return chunks_.back().get() + chunk_left_;
}

int FontFace::AdvanceOf(unsigned code, double natural) const {
    if (rule_.pitch == FaceRule::Pitch::kHalfAndFull)
        return code > 0xFF ? 2 * size_.half : size_.half;
    if (code > 0xFF) return std::max(1, static_cast<int>(std::lround(size_.em_x)));
    return std::max(1, static_cast<int>(std::lround(natural)));
}

const Glyph& FontFace::Load(unsigned code, int scale) {
    std::unique_ptr<Page>& page = pages_[static_cast<std::size_t>(scale - 1)][code >> 8];
    if (!page) page = std::make_unique<Page>();
    Glyph& glyph = (*page)[code & 0xFF];
    Rasterize(code, scale, &glyph);
    glyph.loaded = true;
    return glyph;
}

void FontFace::Rasterize(unsigned code, int scale, Glyph* glyph) {
    const bool wide = code > 0xFF;
    const bool bold = weight_ >= FW_SEMIBOLD;
    const FontFile& file = OpenFontFile(wide ? rule_.chinese : rule_.latin, bold);
    // What shows nothing still takes the place of a blank.
    const unsigned shown = ShowsNothing(code) ? ' ' : code;
    const double em_x = size_.em_x * (wide ? 1.0 : rule_.latin_stretch);
    double natural = size_.average_width;
    FT_Face face = file.face;
    FT_UInt index = 0;
    if (face) {
        FT_Fixed units = 0;
        index = FT_Get_Char_Index(face, text::Utf16ByGbkCode()[shown]);
        FT_Get_Advance(face, index, FT_LOAD_NO_SCALE, &units);
        natural = static_cast<double>(units) * em_x / face->units_per_EM;
    }
    glyph->advance = static_cast<std::int16_t>(AdvanceOf(code, natural));
    if (!face || shown == ' ') return;
    FT_Set_Char_Size(face, std::lround(em_x * scale * 64), size_.em * scale * 64, 72, 72);
    // Fitted stems suit characters in places of one width; words of a proportional face keep their
    // rhythm better without.
    const bool fit_stems = wide || rule_.pitch == FaceRule::Pitch::kHalfAndFull;
    if (!Render(face, index, {fit_stems, bold && !file.bold, italic_})) return;
    const FT_GlyphSlot slot = face->glyph;
    const FT_Bitmap& picture = slot->bitmap;
    if (picture.width == 0 || picture.rows == 0) return;
    if (picture.width > kLargestPicture || picture.rows > kLargestPicture) return;
    const std::size_t width = (picture.width + 3u) & ~3u;
    const Contrast& contrast = ContrastFor(bold);
    std::uint8_t* coverage = Reserve(width * picture.rows);
    for (unsigned y = 0; y < picture.rows; ++y) {
        const unsigned char* row = picture.buffer + static_cast<std::ptrdiff_t>(y) * picture.pitch;
        std::transform(row, row + picture.width, coverage + y * width,
                       [&contrast](unsigned char level) { return contrast[level]; });
    }
    // The picture stands in the middle of its place where that is wider or narrower than drawn.
    const double spare = (glyph->advance - natural) * scale / 2;
    glyph->coverage = coverage;
    glyph->left = static_cast<std::int16_t>(slot->bitmap_left + std::lround(std::floor(spare)));
    glyph->top = static_cast<std::int16_t>(slot->bitmap_top);
    glyph->width = static_cast<std::int16_t>(width);
    glyph->height = static_cast<std::int16_t>(picture.rows);
}

std::shared_ptr<FontFace> OpenFontFace(const LOGFONTA& log) {
    using Key = std::tuple<const FaceRule*, LONG, LONG, LONG, bool, bool, bool>;
    constexpr std::size_t kKept = 24;
    static auto& faces = *new std::map<Key, std::weak_ptr<FontFace>>;
    static auto& recent = *new std::vector<std::shared_ptr<FontFace>>;
    const Key key(&FindFaceRule(log.lfFaceName), log.lfHeight, log.lfWidth, log.lfWeight,
                  log.lfItalic != 0, log.lfUnderline != 0, log.lfStrikeOut != 0);
    std::shared_ptr<FontFace> face = faces[key].lock();
    if (face) return face;
    face = std::make_shared<FontFace>(log);
    std::erase_if(faces, [](const auto& entry) { return entry.second.expired(); });
    faces[key] = face;
    recent.push_back(face);
    if (recent.size() > kKept) recent.erase(recent.begin());
    return face;
}

}  // namespace winbase
