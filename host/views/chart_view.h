#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/views/chart_rules.h"
#include "host/views/view.h"

namespace views {

/// A price that the user has something at.
struct ChartMark {
    enum class Kind { kOrder, kOpenPrice, kTakeProfit, kStopLoss };

    Kind kind = Kind::kOrder;
    papercore::Price price = 0;
    std::string label;  ///< GBK
};

/// Candles of one contract, or the line of its day, with the volume below, a crosshair under the
/// pointer, and lines where the user has orders, positions and stops. The wheel makes candles wider
/// or narrower, Left and Right go through time, a press on a period in the header chooses it.
class ChartView : public View {
public:
    /// Minutes of a candle; 0 is the day's line.
    static constexpr int kPeriods[] = {0, 1, 5, 15, 60};

    void SetContract(const std::string& name, int digits, papercore::Price tick);
    /// Unknown periods are ignored.
    void SetPeriod(int minutes);
    int Period() const { return period_; }
    /// Oldest first. Those of another length or day than before scroll to the newest.
    void SetCandles(std::vector<Candle> candles);
    /// What the day is compared with; 0 for none.
    void SetReference(papercore::Price reference);
    void SetMarks(std::vector<ChartMark> marks);

    /// The user chose another period.
    std::function<void(int minutes)> on_period;

protected:
    void Paint(const Painter& painter, CSize size) override;
    void OnLButtonDown(UINT keys, CPoint point);
    void OnMouseMove(UINT keys, CPoint point);
    BOOL OnMouseWheel(UINT keys, short delta, CPoint point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    UINT OnGetDlgCode() { return DLGC_WANTARROWS; }
    LRESULT OnMouseLeave(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    struct Layout {
        RECT header{};
        RECT prices{};  ///< candles
        RECT volumes{};
        RECT axis{};  ///< prices at the right
        RECT times{};
        CandleSpan span;
        PriceScale scale;
    };

    Layout LayOut(CSize size) const;
    static RECT PeriodRect(std::size_t period);
    void PaintHeader(const Painter& painter, const Layout& layout) const;
    void PaintGrid(const Painter& painter, const Layout& layout) const;
    void PaintCandles(const Painter& painter, const Layout& layout) const;
    void PaintLine(const Painter& painter, const Layout& layout) const;
    void PaintVolumes(const Painter& painter, const Layout& layout) const;
    void PaintMarks(const Painter& painter, const Layout& layout) const;
    void PaintCrosshair(const Painter& painter, const Layout& layout) const;
    void PaintTag(const Painter& painter, const Layout& layout, int y, const std::string& text,
                  COLORREF color) const;
    int ColorSign(const Candle& candle) const;
    void Scroll(int candles);

    std::string name_;
    int digits_ = 2;
    papercore::Price tick_ = 100;
    int period_ = 1;
    int pitch_ = 8;
    int skipped_ = 0;
    papercore::Price reference_ = 0;
    std::vector<Candle> candles_;
    std::vector<ChartMark> marks_;
    bool pointed_ = false;
    CPoint pointer_;
};

}  // namespace views
