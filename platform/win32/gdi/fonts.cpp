#include <algorithm>
#include <cstring>
#include <memory>

#include "platform/win32/gdi/dc.h"
#include "platform/win32/gdi/font_face.h"

using namespace winbase;

HFONT WINAPI CreateFontIndirectA(const LOGFONTA* log) {
    if (!log) return nullptr;
    LOGFONTA copy = *log;
    copy.lfFaceName[LF_FACESIZE - 1] = '\0';
    return static_cast<HFONT>(AddObject(std::make_unique<Font>(copy)));
}

HFONT WINAPI CreateFontA(int height, int width, int escapement, int orientation, int weight,
                         DWORD italic, DWORD underline, DWORD strike_out, DWORD char_set,
                         DWORD out_precision, DWORD clip_precision, DWORD quality,
                         DWORD pitch_and_family, LPCSTR face) {
    const auto flag = [](DWORD value) { return static_cast<BYTE>(value != 0); };
    LOGFONTA log{};
    log.lfHeight = height;
    log.lfWidth = width;
    log.lfEscapement = escapement;
    log.lfOrientation = orientation;
    log.lfWeight = weight;
    log.lfItalic = flag(italic);
    log.lfUnderline = flag(underline);
    log.lfStrikeOut = flag(strike_out);
    log.lfCharSet = static_cast<BYTE>(char_set);
    log.lfOutPrecision = static_cast<BYTE>(out_precision);
    log.lfClipPrecision = static_cast<BYTE>(clip_precision);
    log.lfQuality = static_cast<BYTE>(quality);
    log.lfPitchAndFamily = static_cast<BYTE>(pitch_and_family);
    if (face) {
        const std::size_t length = std::min(std::strlen(face), std::size_t{LF_FACESIZE - 1});
        std::memcpy(log.lfFaceName, face, length);
    }
    return CreateFontIndirectA(&log);
}

BOOL WINAPI GetTextMetricsA(HDC handle, LPTEXTMETRICA metrics) {
    Dc* dc = FindDc(handle);
    if (!dc || !metrics) return FALSE;
    FontFace& face = dc->state.font->Face();
    const FaceSize& size = face.size();
    const bool fixed = face.rule().pitch == FaceRule::Pitch::kHalfAndFull;
    *metrics = {};
    metrics->tmHeight = size.Height();
    metrics->tmAscent = size.ascent;
    metrics->tmDescent = size.descent;
    metrics->tmInternalLeading = std::max(0, size.Height() - size.em);
    metrics->tmAveCharWidth = size.average_width;
    metrics->tmMaxCharWidth = 2 * (fixed ? size.half : size.average_width);
    metrics->tmWeight = face.weight();
    metrics->tmDigitizedAspectX = 96;
    metrics->tmDigitizedAspectY = 96;
    metrics->tmFirstChar = 0x1E;
    metrics->tmLastChar = 0xFF;
    metrics->tmDefaultChar = 0x1F;
    metrics->tmBreakChar = ' ';
    metrics->tmItalic = dc->state.font->log.lfItalic;
    metrics->tmUnderlined = dc->state.font->log.lfUnderline;
    metrics->tmStruckOut = dc->state.font->log.lfStrikeOut;
    // Set for a font whose characters differ in width, the other way round than its name says.
    const int pitch = (fixed ? 0 : TMPF_FIXED_PITCH) | TMPF_VECTOR | TMPF_TRUETYPE;
    metrics->tmPitchAndFamily = static_cast<BYTE>(pitch | (fixed ? FF_MODERN : FF_SWISS));
    metrics->tmCharSet = fixed ? GB2312_CHARSET : ANSI_CHARSET;
    return TRUE;
}
