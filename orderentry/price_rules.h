#pragma once

#include <cstddef>

#include "platform/types.h"
#include "plugin/contract/market_records.h"
#include "plugin/contract/parameter_records.h"

// From the text of a price box to a price. The text is a number or one of the words below, and a
// word means another price at each quote: whoever needs a price resolves the text at that moment.
// A direction other than '0' sells. Every resolved price but that of "市价" has 1e-8 added, so that
// a price just below a tick prints as the tick.

/// Codes of price types, as they travel with an order.
enum PriceType : unsigned char {
    PRICE_OPPOSITE = 0,     ///< "对手价"
    PRICE_LAST = 1,         ///< "最新价"
    PRICE_OWN = 2,          ///< "挂单价"
    PRICE_UPPER_LIMIT = 3,  ///< "涨停价"
    PRICE_LOWER_LIMIT = 4,  ///< "跌停价"
    PRICE_MARKET = 5,       ///< "市价"
    PRICE_OTHER = 6,        ///< numbers, and on purpose also "挂单价超一个价位"
};

PriceType GetPriceType(const char* text);

/// The text that a page's reset puts into its price box, by CTradeParam::nDefaultPrice; perhaps
/// empty. Null, for a row of 8 or more, leaves the box alone.
const char* DefaultPriceText(unsigned row);

/// Of a typed or chosen price, with the allowance of the trading parameters. 0 without a contract,
/// about -1 for an empty text.
double GetOrderPrice(const char* text, char direction, const CZebContract* contract,
                     unsigned short market, unsigned short code);
/// Of a price type's code, for orders that close. The allowance of closing orders always counts.
double GetOrderPriceByType(int type, char direction, const CZebContract* contract,
                           unsigned short market, unsigned short code);
/// As the panel's ticket reads its text: no allowance, and "挂单价超一个价位" is no word there.
double GetPanelPrice(const char* text, char direction, const CZebContract* contract);

/// Can an order go out at this price? Never at one that is no finite number.
bool IsUsablePrice(double price);

/// Bytes that a spin writes into a price box, the terminator included.
inline constexpr std::size_t kPriceTextSize = 32;

/// The text that a price box shows after a click on its spin with this delta (-1 for up). The
/// symbol is the page's: empty if the host does not know it. False leaves the box alone.
bool StepPrice(const char* text, int delta, char direction, const CZebContract* contract,
               const CHostSymbol& symbol, char (&stepped)[kPriceTextSize]);
/// The same on a panel, which resolves its text for a buyer.
bool StepPanelPrice(const char* text, int delta, const CZebContract* contract,
                    const CHostSymbol& symbol, char (&stepped)[kPriceTextSize]);
/// A price moved by ticks against a spin's delta; 0 if that is no price above 0.0001.
double SteppedPrice(double price, int delta, double tick);

/// The decimal places that the host knows for a symbol, else the usual ones.
int DigitsOf(const CHostSymbol& symbol);
/// The trading parameters as they are now; zeroes without a core.
CTradeParam ReadTradeParam();

/// The resolvers on a quote at hand.
namespace orderentry {

double PriceOfText(const char* text, char direction, const JSDyn1& quote, double tick, double over);
double PriceOfType(int type, char direction, const JSDyn1& quote, double over);
double PanelPriceOfText(const char* text, char direction, const JSDyn1& quote);

}  // namespace orderentry
