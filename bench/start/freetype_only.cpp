// The least that a program with the gallery's texts could do: find the font, open FreeType, draw
// each glyph once and blend the texts into a picture. What the layer costs beyond that is what the
// start benchmark measures.
//
//     freetype_only TEXTS

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <cstdint>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 800;
constexpr int kLine = 14;

struct Glyph {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    int advance = 0;
    std::vector<unsigned char> coverage;
};

std::string FontFile(int& index) {
    FcPattern* const pattern =
        FcNameParse(reinterpret_cast<const FcChar8*>("Noto Sans Mono CJK SC"));
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* const match = FcFontMatch(nullptr, pattern, &result);
    FcChar8* file = nullptr;
    std::string path;
    if (match != nullptr && FcPatternGetString(match, FC_FILE, 0, &file) == FcResultMatch) {
        path = reinterpret_cast<const char*>(file);
        FcPatternGetInteger(match, FC_INDEX, 0, &index);
    }
    if (match != nullptr) FcPatternDestroy(match);
    FcPatternDestroy(pattern);
    return path;
}

Glyph Render(FT_Face face, char32_t character) {
    Glyph glyph;
    if (FT_Load_Char(face, character, FT_LOAD_RENDER) != 0) return glyph;
    const FT_GlyphSlot slot = face->glyph;
    glyph.left = slot->bitmap_left;
    glyph.top = slot->bitmap_top;
    glyph.width = static_cast<int>(slot->bitmap.width);
    glyph.height = static_cast<int>(slot->bitmap.rows);
    glyph.advance = static_cast<int>(slot->advance.x >> 6);
    for (int row = 0; row < glyph.height; ++row) {
        const unsigned char* const line = slot->bitmap.buffer + row * slot->bitmap.pitch;
        glyph.coverage.insert(glyph.coverage.end(), line, line + glyph.width);
    }
    return glyph;
}

std::u32string Decode(const std::string& utf8) {
    std::u32string text;
    for (const char byte : utf8) {
        const auto value = static_cast<unsigned char>(byte);
        if ((value & 0xC0) != 0x80) {
            text.push_back(value < 0x80 ? value : value & (value < 0xE0 ? 0x1F : 0x0F));
        } else if (!text.empty()) {
            text.back() = text.back() << 6 | (value & 0x3F);
        }
    }
    return text;
}

void Blend(std::vector<std::uint32_t>& picture, const Glyph& glyph, int x, int baseline) {
    for (int row = 0; row < glyph.height; ++row) {
        const int y = baseline - glyph.top + row;
        if (y < 0 || y >= kHeight) continue;
        for (int column = 0; column < glyph.width; ++column) {
            const int at = x + glyph.left + column;
            if (at < 0 || at >= kWidth) continue;
            const int source = row * glyph.width + column;
            const int target = y * kWidth + at;
            const unsigned shade = 255U - glyph.coverage[static_cast<std::size_t>(source)];
            picture[static_cast<std::size_t>(target)] = shade << 16 | shade << 8 | shade;
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    int index = 0;
    const std::string file = FontFile(index);
    FT_Library library = nullptr;
    FT_Face face = nullptr;
    if (FT_Init_FreeType(&library) != 0 || FT_New_Face(library, file.c_str(), index, &face) != 0)
        return 1;
    FT_Set_Pixel_Sizes(face, 0, 12);
    std::vector<std::uint32_t> picture(std::size_t{kWidth} * kHeight, 0xFFFFFF);
    std::map<char32_t, Glyph> glyphs;
    std::ifstream texts(argv[1]);
    std::string line;
    for (int count = 0; std::getline(texts, line); ++count) {
        int x = count % 10 * 120;
        const int baseline = count / 10 * kLine % kHeight + kLine;
        for (const char32_t character : Decode(line)) {
            auto known = glyphs.find(character);
            if (known == glyphs.end())
                known = glyphs.emplace(character, Render(face, character)).first;
            Blend(picture, known->second, x, baseline);
            x += known->second.advance;
        }
    }
    FT_Done_Face(face);
    FT_Done_FreeType(library);
    return picture[0] == 1 ? 3 : 0;
}
