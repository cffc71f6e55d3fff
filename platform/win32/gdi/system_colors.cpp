#include <windows.h>

#include <array>
#include <memory>

#include "platform/win32/gdi/objects.h"

using namespace winbase;

namespace {

// The roles of the light surface that dialogs and pages stand on.
constexpr COLORREF kGround = RGB(0xF3, 0xF5, 0xF8);
constexpr COLORREF kLine = RGB(0xCC, 0xD7, 0xE0);
constexpr COLORREF kShade = RGB(0x9A, 0xA8, 0xB5);
constexpr COLORREF kText = RGB(0x1F, 0x29, 0x33);
constexpr COLORREF kSecondaryText = RGB(0x5B, 0x68, 0x75);
// 3.2 : 1 on the ground, 3.5 : 1 on white.
constexpr COLORREF kDisabledText = RGB(0x7F, 0x8A, 0x94);
constexpr COLORREF kAccent = RGB(0x2F, 0x6D, 0xB3);
constexpr COLORREF kWhite = RGB(0xFF, 0xFF, 0xFF);

constexpr int kColorCount = COLOR_HOTLIGHT + 1;

constexpr std::array<COLORREF, kColorCount> MakeColors() {
    std::array<COLORREF, kColorCount> colors{};
    colors.fill(kGround);
    colors[COLOR_BACKGROUND] = RGB(0x14, 0x18, 0x1D);
    colors[COLOR_ACTIVECAPTION] = kWhite;
    colors[COLOR_CAPTIONTEXT] = kText;
    colors[COLOR_INACTIVECAPTIONTEXT] = kSecondaryText;
    colors[COLOR_MENU] = kWhite;
    colors[COLOR_MENUTEXT] = kText;
    colors[COLOR_WINDOW] = kWhite;
    colors[COLOR_WINDOWTEXT] = kText;
    colors[COLOR_WINDOWFRAME] = kShade;
    colors[COLOR_ACTIVEBORDER] = kShade;
    colors[COLOR_INACTIVEBORDER] = kLine;
    colors[COLOR_APPWORKSPACE] = kLine;
    colors[COLOR_HIGHLIGHT] = kAccent;
    colors[COLOR_HIGHLIGHTTEXT] = kWhite;
    colors[COLOR_3DSHADOW] = kLine;
    colors[COLOR_3DDKSHADOW] = kShade;
    colors[COLOR_3DHIGHLIGHT] = kWhite;
    colors[COLOR_GRAYTEXT] = kDisabledText;
    colors[COLOR_BTNTEXT] = kText;
    colors[COLOR_INFOTEXT] = kText;
    colors[COLOR_INFOBK] = kWhite;
    colors[COLOR_HOTLIGHT] = kAccent;
    return colors;
}

constexpr std::array<COLORREF, kColorCount> kColors = MakeColors();

std::array<HBRUSH, kColorCount> MakeBrushes() {
    std::array<HBRUSH, kColorCount> brushes{};
    for (std::size_t i = 0; i < brushes.size(); ++i) {
        auto brush = std::make_unique<Brush>(BS_SOLID, kColors[i]);
        brush->stock = true;
        brushes[i] = static_cast<HBRUSH>(AddObject(std::move(brush)));
    }
    return brushes;
}

bool IsColor(int index) { return index >= 0 && index < kColorCount; }

}  // namespace

DWORD WINAPI GetSysColor(int index) {
    return IsColor(index) ? kColors[static_cast<std::size_t>(index)] : 0;
}

HBRUSH WINAPI GetSysColorBrush(int index) {
    static const std::array<HBRUSH, kColorCount> brushes = MakeBrushes();
    return IsColor(index) ? brushes[static_cast<std::size_t>(index)] : nullptr;
}
