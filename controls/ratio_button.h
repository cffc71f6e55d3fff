#pragma once

#include "controls/skin_button.h"

/// A button that stays pressed until it is told otherwise: one of several ratios.
class CRatioButton : public CSkinButton {
public:
    CRatioButton();

    /// Inert, it ignores presses.
    void SetInert(bool inert);

protected:
    void PaintState(const CDC& dc, const CRect& client, int state) override;
    bool FocusOnPress() const override { return true; }
    /// Pressed it stays pressed.
    void ChangeState(int state) override;
    /// Lets it go again, unless it was pressed before.
    void EndPress() override;

    LRESULT OnUnlatch(WPARAM, LPARAM);
    DECLARE_MESSAGE_MAP()

private:
    bool m_bWasPressed = false;  ///< when the last press began
    CFont m_font;
};
