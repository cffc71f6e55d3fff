#pragma once

#include <string>

#include "controls/skin_button.h"

/// The big buttons that buy and sell: a title above, a price below. While the pointer is over it
/// the button holds the mouse, so that it notices at once when the pointer has gone.
class CBSButton : public CSkinButton {
public:
    /// Where in the skin the colour stands from which that of disabled texts is made.
    void SetColorPoint(CPoint point) { m_ptColor = point; }
    /// The lower line and its colour.
    void SetPrice(const char* text, COLORREF color);
    /// Inert, it looks normal and ignores pointer and presses.
    void SetInert(bool inert);

protected:
    void PaintState(const CDC& dc, const CRect& client, int state) override;

    void OnMouseMove(UINT flags, CPoint point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    DECLARE_MESSAGE_MAP()

private:
    bool IsBuy() const;
    COLORREF TitleColor(int state) const;

    CPoint m_ptColor{10, 0};  ///< on the border of the normal picture, which tells the side
    std::string m_strPrice;
    COLORREF m_crPrice = 0;
};

namespace controls {

/// The colour of disabled texts on a ground: each part a tenth darker where the ground is light,
/// a tenth of the way to white where it is dark.
COLORREF DisabledOn(COLORREF ground);

}  // namespace controls
