#pragma once

#include "host/skin/canvas.h"
#include "host/skin/palette.h"

namespace skin {

/// The states of a button side by side.
inline constexpr int kStateCount = 4;

enum class Symbol { kNone, kKeyboard, kMinus, kPlus };

/// Flat faces with round corners on a ground of one colour.
struct ButtonLook {
    int width;  ///< of one state
    int height;
    COLORREF ground;
    Faces faces;
    Symbol symbol = Symbol::kNone;
    COLORREF ink = 0;       ///< of the symbol
    COLORREF hot_ink = 0;   ///< of the symbol under the pointer and pressed
    COLORREF dull_ink = 0;  ///< of the symbol when disabled
};
Canvas DrawButton(const ButtonLook& look, int scale);

/// A radio (round) or check mark: four states without, four with the mark.
enum class MarkKind { kRadio, kCheck };
Canvas DrawMarks(MarkKind kind, int scale);

Canvas DrawMenuStrip(int scale);
Canvas DrawTabs(int scale);
Canvas DrawExpander(int scale);
Canvas DrawArrows(int scale);
Canvas DrawLoginTop(int scale);
Canvas DrawLoginBottom(int scale);
Canvas DrawFrameTop(int scale);

}  // namespace skin
