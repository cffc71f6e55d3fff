#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/views/detail_rules.h"
#include "host/views/view.h"

namespace views {

/// The figures of the current contract: what its day did, and where there is room what it is.
class DetailView : public View {
public:
    /// The terms' figures and hours are kept; null: none are known.
    void SetContract(const std::string& name, int digits, const papercore::ContractTerms* terms);
    void SetQuote(const papercore::Quote& quote);

    /// What the day's figures need at a width.
    static int LeastHeight(int width);

protected:
    void Paint(const Painter& painter, CSize size) override;

private:
    /// From `top` on; the answer is where it ends.
    int PaintSection(const Painter& painter, int top, int width, const std::string& title,
                     const std::vector<Detail>& details) const;

    std::string name_;
    std::string sessions_;
    std::vector<Detail> terms_;
    std::optional<papercore::Quote> quote_;
    int digits_ = 2;
    int unit_ = 0;
};

}  // namespace views
