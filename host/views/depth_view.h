#pragma once

#include <functional>
#include <string>
#include <vector>

#include "host/views/view.h"
#include "papercore/quote.h"

namespace views {

/// A print of the tape.
struct TapeTrade {
    papercore::Instant time = 0;
    papercore::Price price = 0;
    std::int64_t volume = 0;
    int side = 0;  ///< 1: the buyer took, -1: the seller, 0: not known
};

/// Five levels of one contract and what was traded last.
class DepthView : public View {
public:
    void SetContract(const std::string& name, int digits);
    void SetQuote(const papercore::Quote& quote);
    /// The newest first.
    void SetTrades(std::vector<TapeTrade> trades);

    /// A price was clicked.
    std::function<void(papercore::Price price)> on_price;

protected:
    void Paint(const Painter& painter, CSize size) override;
    void OnLButtonDown(UINT keys, CPoint point);
    DECLARE_MESSAGE_MAP()

private:
    void PaintLevel(const Painter& painter, const RECT& row, const char* label,
                    const papercore::Level& level, bool bid, std::int64_t largest) const;
    void PaintTrades(const Painter& painter, const RECT& room) const;

    std::string name_;
    int digits_ = 2;
    papercore::Quote quote_;
    std::vector<TapeTrade> trades_;
};

}  // namespace views
