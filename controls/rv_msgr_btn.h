#pragma once

#include "controls/odd_button.h"

/// A raised button drawn with pens: a ramp for a face, a light edge, and a warm frame while the
/// pointer is over it.
class CRvMsgrBtn : public COddButton {
protected:
    void PaintState(const CDC& dc, const CRect& client, int state) override;
    void ChangeState(int state) override;

    void OnMouseMove(UINT flags, CPoint point);
    LRESULT OnMouseLeave(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    bool m_bHot = false;
};
