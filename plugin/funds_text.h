#pragma once

#include <string>

#include "plugin/contract/account_records.h"

// The account's figures, as an answer to a funds query gives them, and the texts that show them.
// Money is in the account's currency.

/// Who works out equity and usable funds: the server, or this program from its own profit figures.
enum class FundsSource { kServer, kClient };

/// What the open positions stand at.
struct PositionProfit {
    double open = 0;      ///< against the opening prices
    double floating = 0;  ///< against the holding prices
};

struct AccountFunds {
    double available = 0;       ///< as the server gave it
    double shownAvailable = 0;  ///< less a floating loss; a floating gain never raises it
    double equity = 0;
    double openProfit = 0;
    double margin = 0;
    double frozen = 0;
    double fee = 0;
};

AccountFunds ComputeFunds(const CZebAccountSummary& summary, const PositionProfit& profit,
                          FundsSource source);

/// `available` less a floating loss.
double ShownAvailable(double available, double floatingProfit);

/// The funds page's whole text.
std::string FundsPageText(const AccountFunds& funds);

/// The host's funds line: "equity|available|open profit|".
std::string FundsLine(double equity, double available, double openProfit);

/// A figure in a control: two decimal places.
std::string MoneyText(double value);
