#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

namespace winbase {

/// An opened font file, kept for the life of the process.
struct FontFile {
    FT_Face face = nullptr;  ///< null when no font is installed at all
    bool bold = false;       ///< the file itself is bold
};

/// The installed file that comes nearest to a family in regular or bold weight.
const FontFile& OpenFontFile(const char* family, bool bold);

}  // namespace winbase
