#include "platform/win32/gdi/font_files.h"

#include <fontconfig/fontconfig.h>

#include <map>
#include <memory>
#include <string>
#include <utility>

namespace winbase {

namespace {

FT_Library Library() {
    static const FT_Library library = [] {
        FT_Library opened = nullptr;
        return FT_Init_FreeType(&opened) == 0 ? opened : nullptr;
    }();
    return library;
}

/// Families to files. Given back at the end, since its memory refers to itself by distances, which
/// leak checks cannot follow.
FcConfig* Families() {
    static const std::unique_ptr<FcConfig, decltype(&FcConfigDestroy)> families(
        FcInitLoadConfigAndFonts(), &FcConfigDestroy);
    return families.get();
}

FontFile OpenMatch(FcPattern* match) {
    FontFile file;
    FcChar8* path = nullptr;
    int index = 0;
    int weight = FC_WEIGHT_REGULAR;
    FcPatternGetInteger(match, FC_INDEX, 0, &index);
    FcPatternGetInteger(match, FC_WEIGHT, 0, &weight);
    if (FcPatternGetString(match, FC_FILE, 0, &path) != FcResultMatch) return file;
    if (FT_New_Face(Library(), reinterpret_cast<const char*>(path), index, &file.face) != 0) {
        file.face = nullptr;
    }
    file.bold = weight >= FC_WEIGHT_BOLD;
    return file;
}

FontFile FindFile(const char* family, bool bold) {
    if (!Library() || !Families()) return {};
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
    FcPatternAddInteger(pattern, FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddBool(pattern, FC_SCALABLE, FcTrue);
    FcConfigSubstitute(Families(), pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result = FcResultNoMatch;
    FcPattern* match = FcFontMatch(Families(), pattern, &result);
    FcPatternDestroy(pattern);
    if (!match) return {};
    const FontFile file = OpenMatch(match);
    FcPatternDestroy(match);
    return file;
}

}  // namespace

const FontFile& OpenFontFile(const char* family, bool bold) {
    static auto& files = *new std::map<std::pair<std::string, bool>, FontFile>;
    const std::pair<std::string, bool> key(family, bold);
    auto found = files.find(key);
    if (found == files.end()) found = files.emplace(key, FindFile(family, bold)).first;
    return found->second;
}

}  // namespace winbase
