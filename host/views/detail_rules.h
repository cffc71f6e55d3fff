#pragma once

#include <string>
#include <vector>

#include "papercore/contract_terms.h"
#include "papercore/quote.h"

namespace views {

/// One figure of a contract with its name; GBK.
struct Detail {
    std::string label;
    std::string text;
    int tendency = 0;  ///< of a price against the day's reference: -1, 0 or 1
};

/// What the day did so far. `unit` is the price units in a lot, for the average price; 0 or less:
/// not known. Figures that are not known read "--".
std::vector<Detail> DayDetails(const papercore::Quote& quote, int digits, int unit);

/// What the contract is: lot, tick, margin, fees, limit, order size, deferred rate, each short.
std::vector<Detail> TermsDetails(const papercore::ContractTerms& terms);

/// "20:00-02:30 09:00-15:30": when orders are matched continuously; "--" for never.
std::string SessionsText(const std::vector<papercore::SessionSpan>& sessions);

/// Millionths as a percentage with as many places as it needs: 800 is "0.08%".
std::string RateText(papercore::Ppm rate);

/// Money, short: "9,999.00", "12.35万", "1.23亿".
std::string MoneyText(papercore::Fen money);

}  // namespace views
