#pragma once

#include <array>

#include "controls/skin_button.h"
#include "controls/tool_tip.h"

/// A button from a skin: pictures stretched in three parts, or plain colours, with a caption and a
/// tip that comes when the pointer rests.
class CBmpButton : public CSkinButton {
public:
    CBmpButton();

    /// One ground colour for each state, in place of pictures.
    void SetColors(const std::array<COLORREF, 4>& colors);
    void SetTextColor(COLORREF color) { m_crText = color; }
    /// Cut to 127 bytes; null and an empty text show no tip.
    void SetTip(const char* text);

protected:
    void PaintState(const CDC& dc, const CRect& client, int state) override;
    bool FocusOnPress() const override { return true; }
    void OnHover(CPoint point) override;
    void OnUnhover() override;
    virtual COLORREF TextColor(int state) const;
    const CFont& Font() const { return m_font; }

    void OnTimer(UINT_PTR id);
    void OnDestroy();
    DECLARE_MESSAGE_MAP()

private:
    void StopTip();

    CToolTip m_tip;
    char m_szTip[128] = {};
    bool m_bTipTimer = false;
    DWORD m_dwLastMove = 0;
    CPoint m_ptLast{-1, -1};
    bool m_bColors = false;
    std::array<COLORREF, 4> m_crStates{};
    CFont m_font;
    COLORREF m_crText = 0xF3F3F3;
};
