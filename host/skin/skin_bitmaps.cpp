#include "host/skin/skin_bitmaps.h"

#include "host/skin/pictures.h"
#include "plugin/contract/ui_callback.h"

namespace skin {

namespace {

using Draw = Canvas (*)(int scale);

constexpr COLORREF kEditGround = RGB(0xF1, 0xF6, 0xF9);

/// The keys beside and inside inputs: they melt into the input until the pointer comes.
constexpr Faces kInputFaces = {{kEditGround, kEditGround},
                               {RGB(0xDF, 0xE9, 0xF3), RGB(0xDF, 0xE9, 0xF3)},
                               {RGB(0xC6, 0xD8, 0xEA), RGB(0xC6, 0xD8, 0xEA)},
                               {kEditGround, kEditGround}};

constexpr Faces kKeyFaces = {{kLight.raised, kLight.line},
                             {RGB(0xEA, 0xF1, 0xF8), kLight.accent},
                             {RGB(0xD3, 0xE1, 0xEF), kLight.accent},
                             {kLight.ground, kLight.line}};

/// Captions of these are dark. Windows of any height show them stretched, in which a frame's lines
/// would double or vanish, so there is none.
constexpr Faces kUprightFaces = {{RGB(0xDC, 0xE4, 0xEC), RGB(0xDC, 0xE4, 0xEC)},
                                 {RGB(0xCF, 0xE0, 0xF2), RGB(0xCF, 0xE0, 0xF2)},
                                 {RGB(0xB4, 0xCF, 0xEB), RGB(0xB4, 0xCF, 0xEB)},
                                 {kLight.ground, kLight.ground}};

constexpr ButtonLook kPageButton = {60, 20, kLight.ground, kLight.primary};
constexpr ButtonLook kLoginButton = {72, 25, RGB(0xE9, 0xED, 0xF2), kLight.primary};
constexpr ButtonLook kPanelButton = {60, 20, kPanelGround, kDark.primary};
constexpr ButtonLook kUprightButton = {21, 160, kLight.ground, kUprightFaces};
constexpr ButtonLook kKeyboard = {
    20,          20, kLight.ground, kKeyFaces, Symbol::kKeyboard, kLight.secondary, kLight.accent,
    kLight.faint};
constexpr ButtonLook kMinus = {
    22,          22, kEditGround, kInputFaces, Symbol::kMinus, kLight.secondary, kLight.accent,
    kLight.faint};
constexpr ButtonLook kPlus = {
    22, 22, kEditGround, kInputFaces, Symbol::kPlus, kLight.secondary, kLight.accent, kLight.faint};

/// Dark faces framed in the colour of their side. Disabled captions are made of the normal frame's
/// colour, so it is one that can be read.
constexpr Faces Sided(COLORREF normal, COLORREF hover) {
    return {{RGB(0x18, 0x1D, 0x23), normal},
            {RGB(0x22, 0x29, 0x31), hover},
            {RGB(0x10, 0x13, 0x17), normal},
            kDark.plain.disabled};
}
constexpr Faces kBuyFaces = Sided(RGB(0xC0, 0x4B, 0x53), kDark.buy);
constexpr Faces kSellFaces = Sided(RGB(0x2A, 0x8F, 0x5C), kDark.sell);

constexpr ButtonLook kBigBuy = {96, 48, kPanelGround, kBuyFaces};
constexpr ButtonLook kBigSell = {96, 48, kPanelGround, kSellFaces};
constexpr ButtonLook kSmallBuy = {48, 22, kPanelGround, kBuyFaces};
constexpr ButtonLook kSmallSell = {48, 22, kPanelGround, kSellFaces};
constexpr ButtonLook kReset = {48, 22, kPanelGround, kDark.plain};
constexpr ButtonLook kCancel = {40, 20, kPanelGround, kDark.plain};

template <const ButtonLook& look>
Canvas Button(int scale) {
    return DrawButton(look, scale);
}

template <MarkKind kind>
Canvas Marks(int scale) {
    return DrawMarks(kind, scale);
}

Canvas DrawLevelsGround(int scale) { return {16, 16, scale, kLight.raised}; }

constexpr struct {
    int group;
    int index;
    Draw draw;
} kPictures[] = {
    {kSkinPages, 1, Button<kPageButton>},
    {kSkinPages, 3, Button<kLoginButton>},
    {kSkinPages, 4, Button<kPanelButton>},
    {kSkinPages, 7, DrawMenuStrip},
    {kSkinPages, 8, DrawLoginTop},
    {kSkinPages, 9, DrawTabs},
    {kSkinPages, 12, DrawLoginBottom},
    {kSkinPages, 13, Button<kKeyboard>},
    {kSkinPages, 14, Button<kUprightButton>},
    {kSkinPages, 18, DrawLevelsGround},
    {kSkinPages, 28, DrawExpander},
    {kSkinPages, 68, Button<kMinus>},
    {kSkinPages, 69, Button<kPlus>},
    {kSkinPages, 73, Marks<MarkKind::kRadio>},
    {kSkinPages, 74, Marks<MarkKind::kCheck>},
    {kSkinPanels, 0, DrawFrameTop},
    {kSkinPanels, 1, Button<kBigBuy>},
    {kSkinPanels, 2, Button<kBigSell>},
    {kSkinPanels, 3, Button<kSmallBuy>},
    {kSkinPanels, 4, Button<kSmallSell>},
    {kSkinPanels, 5, Button<kReset>},
    {kSkinPanels, 6, DrawArrows},
    {kSkinPanels, 7, Button<kCancel>},
};

}  // namespace

HBITMAP SkinBitmaps::Get(int group, int index) {
    const auto found = made_.find({group, index});
    if (found != made_.end()) return found->second;
    for (const auto& picture : kPictures) {
        if (picture.group != group || picture.index != index) continue;
        CBitmap& bitmap = made_[{group, index}];
        bitmap.Attach(picture.draw(scale_).MakeBitmap());
        return bitmap;
    }
    return nullptr;
}

}  // namespace skin
