#pragma once

#include "controls/skin_button.h"

/// A high, narrow button whose caption runs from above to below: the modes at the left edge of the
/// list pages.
class CVButton : public CSkinButton {
public:
    CVButton();

protected:
    void PaintState(const CDC& dc, const CRect& client, int state) override;

private:
    void PaintCaptionDown(const CDC& dc, const CRect& client, COLORREF color) const;

    CFont m_font;
};
