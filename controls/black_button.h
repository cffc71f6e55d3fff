#pragma once

#include "controls/track_button.h"

/// A dark button with a gradient from top to bottom.
class CBlackButton : public CTrackButton {
public:
    struct Gradient {
        COLORREF top;
        COLORREF bottom;
    };

    CBlackButton();

    void SetGradients(const Gradient& normal, const Gradient& pressed);
    void SetTextColor(COLORREF color) { m_crText = color; }

protected:
    void PaintState(const CDC& dc, const CRect& client, int state) override;

private:
    Gradient m_normal{0x383838, 0x1A1A1A};
    Gradient m_pressed{0x282828, 0x101010};
    COLORREF m_crText = 0xF3F3F3;
    CFont m_font;
};

namespace controls {

/// Fills a rectangle from one colour above to another below.
void PaintGradient(const CDC& dc, const CRect& rect, COLORREF top, COLORREF bottom);

}  // namespace controls
