#pragma once

#include "platform/system.h"

namespace skin {

/// A button's face in one state. Captions of skinned buttons are near white in every state but the
/// disabled one, so filled faces stay dark enough for them (4.5 : 1).
struct Face {
    COLORREF fill;
    COLORREF border;
};

struct Faces {
    Face normal;
    Face hover;
    Face pressed;
    Face disabled;
};

/// The colours of one surface, named by what they are for.
struct Palette {
    COLORREF ground;     ///< behind everything
    COLORREF raised;     ///< cards, lists, frames of panels
    COLORREF line;       ///< frames and rules
    COLORREF text;       ///< 4.5 : 1 on ground and raised, as are secondary, buy and sell
    COLORREF secondary;  ///< labels, icons
    COLORREF disabled;   ///< text that is out of use, 3 : 1
    COLORREF faint;      ///< marks that are out of use
    COLORREF accent;     ///< focus, current contract, own orders
    COLORREF buy;        ///< also up
    COLORREF sell;       ///< also down
    COLORREF even;       ///< unchanged
    Faces primary;       ///< buttons that do what the page is for
    Faces plain;         ///< all others
};

/// Pages, dialogs and menus: the trading surface.
inline constexpr Palette kLight = {
    .ground = RGB(0xF3, 0xF5, 0xF8),
    .raised = RGB(0xFF, 0xFF, 0xFF),
    .line = RGB(0xCC, 0xD7, 0xE0),
    .text = RGB(0x1F, 0x29, 0x33),
    .secondary = RGB(0x5B, 0x68, 0x75),
    .disabled = RGB(0x7F, 0x8A, 0x94),
    .faint = RGB(0xB4, 0xBF, 0xC9),
    .accent = RGB(0x2F, 0x6D, 0xB3),
    .buy = RGB(0xD6, 0x26, 0x2B),
    .sell = RGB(0x10, 0x7F, 0x45),
    .even = RGB(0x5B, 0x68, 0x75),
    .primary = {{RGB(0x29, 0x60, 0x9E), RGB(0x29, 0x60, 0x9E)},
                {RGB(0x2F, 0x6D, 0xB3), RGB(0x2F, 0x6D, 0xB3)},
                {RGB(0x1F, 0x4B, 0x7D), RGB(0x1F, 0x4B, 0x7D)},
                {RGB(0xF3, 0xF5, 0xF8), RGB(0xCC, 0xD7, 0xE0)}},
    .plain = {{RGB(0x5B, 0x68, 0x75), RGB(0x5B, 0x68, 0x75)},
              {RGB(0x62, 0x70, 0x7D), RGB(0x62, 0x70, 0x7D)},
              {RGB(0x43, 0x4E, 0x59), RGB(0x43, 0x4E, 0x59)},
              {RGB(0xF3, 0xF5, 0xF8), RGB(0xCC, 0xD7, 0xE0)}},
};

/// Quotes, chart, five levels and the terminal's own frame: the market surface.
inline constexpr Palette kDark = {
    .ground = RGB(0x14, 0x18, 0x1D),
    .raised = RGB(0x1B, 0x21, 0x28),
    .line = RGB(0x29, 0x31, 0x3A),
    .text = RGB(0xD7, 0xDE, 0xE6),
    .secondary = RGB(0x8B, 0x97, 0xA5),
    .disabled = RGB(0x6B, 0x76, 0x82),
    .faint = RGB(0x45, 0x4F, 0x5A),
    .accent = RGB(0xE0, 0xA9, 0x3B),
    .buy = RGB(0xF0, 0x52, 0x5B),
    .sell = RGB(0x2E, 0xB8, 0x72),
    .even = RGB(0xAE, 0xB8, 0xC2),
    .primary = {{RGB(0x36, 0x42, 0x4E), RGB(0x4A, 0x58, 0x66)},
                {RGB(0x42, 0x50, 0x5E), RGB(0x5B, 0x6B, 0x7B)},
                {RGB(0x24, 0x2C, 0x34), RGB(0x3A, 0x46, 0x52)},
                {RGB(0x22, 0x26, 0x2B), RGB(0x34, 0x3B, 0x43)}},
    .plain = {{RGB(0x2B, 0x33, 0x3C), RGB(0x3C, 0x47, 0x53)},
              {RGB(0x37, 0x42, 0x4D), RGB(0x4E, 0x5C, 0x6B)},
              {RGB(0x1B, 0x21, 0x28), RGB(0x32, 0x3B, 0x45)},
              {RGB(0x22, 0x26, 0x2B), RGB(0x34, 0x3B, 0x43)}},
};

/// The ground of the front end's panels: the dark surface's controls stand on it.
inline constexpr COLORREF kPanelGround = RGB(0x29, 0x29, 0x29);

}  // namespace skin
