#pragma once

#include "controls/skin_paint.h"
#include "controls/track_button.h"

/// A button whose states are pictures of a skin.
class CSkinButton : public CTrackButton {
public:
    /// `count` pictures side by side, and for each the number of the state that it shows. With
    /// `resize` the window takes the size of one picture.
    void SetSkin(HBITMAP skin, int count, const int* table, BOOL resize);

protected:
    const StateSkin& Skin() const { return m_skin; }
    void PaintState(const CDC& dc, const CRect& client, int state) override {
        controls::PaintThreeParts(dc, client, m_skin, state);
    }

private:
    StateSkin m_skin;
};
