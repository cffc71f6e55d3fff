#pragma once

#include "controls/bmp_button.h"

/// A flat button without pictures: every command on the pages.
class CBmpButtonNoPic : public CBmpButton {
public:
    /// How one state looks.
    struct Style {
        COLORREF ground;
        COLORREF frame;
        COLORREF text;
    };

    CBmpButtonNoPic();

    void SetStyle(int state, const Style& style);

    int m_nValue = 0;  ///< the owner's

protected:
    void PaintState(const CDC& dc, const CRect& client, int state) override;

private:
    std::array<Style, 4> m_styles;
};
