#pragma once

#include "orderentry/five_levels.h"
#include "platform/toolkit/toolkit.h"
#include "plugin/contract/market_records.h"

/// Five asks above five bids and a summary, painted by hand. The price under the pointer stands out
/// and a click takes it over into the target window.
class CStock5BSDlg : public CDialog {
public:
    static constexpr UINT IDD = 10102;

    /// The window that gets the clicked price as its text. Null for none.
    void SetTarget(HWND target) { m_hTarget = target; }
    /// Shows a quote of the symbol with the packed key.
    void OnQuote(unsigned int packed, const JSDyn1& quote);

protected:
    void OnOK() override {}
    void OnCancel() override {}

    BOOL OnEraseBkgnd(CDC* dc);
    void OnPaint();
    void OnMouseMove(UINT flags, CPoint point);
    void OnLButtonDown(UINT flags, CPoint point);
    LRESULT OnMouseLeave(WPARAM, LPARAM);
    DECLARE_MESSAGE_MAP()

private:
    void Paint(CDC& dc, const CRect& client);
    void PaintGround(CDC& dc, const CRect& client) const;
    void PaintLevel(CDC& dc, int y, const char* label, const orderentry::LevelText& level,
                    COLORREF volume_color, int place);
    void PaintSummary(CDC& dc, const orderentry::LevelRows& rows);
    void PaintPrice(CDC& dc, CPoint corner, const char* text, COLORREF color, int place);
    int PlaceAt(CPoint point) const;
    void Hover(int place);

    orderentry::FiveLevels m_levels;
    CRect m_places[orderentry::kPlaces];
    int m_nHover = orderentry::kNoPlace;
    bool m_bTracking = false;
    HWND m_hTarget = nullptr;
};
