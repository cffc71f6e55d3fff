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
    void EndPress() override { CTrackButton::ChangeState(kNormal); }

    LRESULT OnUnlatch(WPARAM, LPARAM);
    DECLARE_MESSAGE_MAP()

private:
    CFont m_font;
};
