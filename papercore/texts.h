#pragma once

#include <string>
#include <string_view>

#include "papercore/units.h"

// Numbers in the texts that users read.

namespace papercore {

/// "172,944.00".
std::string MoneyText(Fen amount);

/// "172944.00", as the account's records have it.
std::string PlainMoneyText(Fen amount);

/// A price with so many decimals (0 to 4); more where the price needs them.
std::string PriceText(Price price, int digits);

/// Reads a price as people write it: blanks around it, a sign, a decimal point. False for anything
/// else, for more than four decimals that count, and for what no price can be.
bool ReadPrice(std::string_view text, Price& price);

}  // namespace papercore
