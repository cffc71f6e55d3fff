#include "orderentry/price_rules.h"

#include <cmath>
#include <cstring>

#include "orderentry/contract_rules.h"
#include "orderentry/number_rules.h"
#include "plugin/contract/codes.h"
#include "plugin/contract/core_access.h"
#include "plugin/contract/ui_callback.h"

namespace {

constexpr double kNudge = 1e-8;
constexpr double kLeastPrice = 0.0001;
constexpr double kNoPrice = -1.0;

constexpr char kOwnOneOver[] = "挂单价超一个价位";

struct PriceWord {
    const char* text;
    PriceType type;
};
// The words have no letters, so comparing bytes is comparing without regard to case.
constexpr PriceWord kWords[] = {
    {"对手价", PRICE_OPPOSITE},    {"挂单价", PRICE_OWN},  {"涨停价", PRICE_UPPER_LIMIT},
    {"跌停价", PRICE_LOWER_LIMIT}, {"市价", PRICE_MARKET}, {"最新价", PRICE_LAST},
};

JSDyn1 QuoteOf(unsigned short market, unsigned short code) {
    JSDyn1 quote{};
    CHostSymbol symbol{};
    symbol.wMarket = market;
    symbol.wCode = code;
    GetQuote(&quote, PackSymbol(symbol));
    return quote;
}

/// Towards the other side of the book.
double Over(double price, char direction, double over) {
    return direction == kDirectionBuy ? price + over : price - over;
}

double OppositePrice(const JSDyn1& quote, char direction) {
    return direction == kDirectionBuy ? quote.dAsk[0] : quote.dBid[0];
}

double OwnPrice(const JSDyn1& quote, char direction) {
    return direction == kDirectionBuy ? quote.dBid[0] : quote.dAsk[0];
}

/// The quote's price of a type that has one, else kNoPrice.
double QuotedPrice(int type, char direction, const JSDyn1& quote, double over) {
    switch (type) {
        case PRICE_OPPOSITE: return Over(OppositePrice(quote, direction), direction, over);
        case PRICE_OWN: return Over(OwnPrice(quote, direction), direction, over);
        case PRICE_UPPER_LIMIT:
            return Over(static_cast<double>(quote.fUpperLimit), direction, over);
        case PRICE_LOWER_LIMIT:
            return Over(static_cast<double>(quote.fLowerLimit), direction, over);
        case PRICE_LAST: return Over(quote.dLast, direction, over);
        default: return kNoPrice;
    }
}

double TypedPrice(const char* text) {
    return text != nullptr && *text != '\0' ? ReadNumber(text) : kNoPrice;
}

bool PrintStep(double price, int delta, const CZebContract& contract, const CHostSymbol& symbol,
               char (&stepped)[kPriceTextSize]) {
    if (symbol.szCode[0] == '\0') return false;
    if (!IsUsablePrice(price)) price = QuoteOf(symbol.wMarket, symbol.wCode).dLast;
    FormatPrice(stepped, SteppedPrice(price, delta, contract.dPriceTick), DigitsOf(symbol));
    return true;
}

}  // namespace

PriceType GetPriceType(const char* text) {
    if (text == nullptr) return PRICE_OTHER;
    for (const PriceWord& word : kWords) {
        if (std::strcmp(text, word.text) == 0) return word.type;
    }
    return PRICE_OTHER;
}

const char* DefaultPriceText(unsigned row) {
    static constexpr const char* kTexts[] = {"对手价", "最新价", "挂单价", "涨停价",
                                             "跌停价", "",       "",       kOwnOneOver};
    return row < std::size(kTexts) ? kTexts[row] : nullptr;
}

double orderentry::PriceOfText(const char* text, char direction, const JSDyn1& quote, double tick,
                               double over) {
    const PriceType type = GetPriceType(text);
    if (type == PRICE_MARKET) return 0;
    if (type != PRICE_OTHER) return QuotedPrice(type, direction, quote, over) + kNudge;
    if (text != nullptr && std::strcmp(text, kOwnOneOver) == 0) {
        return Over(OwnPrice(quote, direction), direction, tick + over) + kNudge;
    }
    return TypedPrice(text) + kNudge;
}

double orderentry::PriceOfType(int type, char direction, const JSDyn1& quote, double over) {
    return QuotedPrice(type, direction, quote, over) + kNudge;
}

double orderentry::PanelPriceOfText(const char* text, char direction, const JSDyn1& quote) {
    const PriceType type = GetPriceType(text);
    if (type == PRICE_MARKET) return 0;
    const double price =
        type == PRICE_OTHER ? TypedPrice(text) : QuotedPrice(type, direction, quote, 0);
    return price + kNudge;
}

double GetOrderPrice(const char* text, char direction, const CZebContract* contract,
                     unsigned short market, unsigned short code) {
    if (contract == nullptr) return 0;
    const JSDyn1 quote = QuoteOf(market, code);
    const CTradeParam param = ReadTradeParam();
    const double tick = contract->dPriceTick;
    const double over = param.bOverPrice != 0 ? param.nOverTicks * tick : 0;
    return orderentry::PriceOfText(text, direction, quote, tick, over);
}

double GetOrderPriceByType(int type, char direction, const CZebContract* contract,
                           unsigned short market, unsigned short code) {
    if (contract == nullptr) return 0;
    const JSDyn1 quote = QuoteOf(market, code);
    const double over = ReadTradeParam().nCloseOverTicks * contract->dPriceTick;
    return orderentry::PriceOfType(type, direction, quote, over);
}

double GetPanelPrice(const char* text, char direction, const CZebContract* contract) {
    JSDyn1 quote{};
    if (contract != nullptr) GetQuoteByName(&quote, ContractCode(*contract).c_str());
    return orderentry::PanelPriceOfText(text, direction, quote);
}

bool IsUsablePrice(double price) { return std::isfinite(price) && price >= kLeastPrice; }

double SteppedPrice(double price, int delta, double tick) {
    const double stepped = price - static_cast<double>(delta) * tick;
    return std::isfinite(stepped) && stepped > kLeastPrice ? stepped : 0;
}

int DigitsOf(const CHostSymbol& symbol) {
    CHostSymbol known{};
    if (!GetSymbolInfo(symbol.wMarket, symbol.wCode, &known)) return kUsualDigits;
    return UsableDigits(known.nDigits);
}

bool StepPrice(const char* text, int delta, char direction, const CZebContract* contract,
               const CHostSymbol& symbol, char (&stepped)[kPriceTextSize]) {
    if (contract == nullptr) return false;
    const double price = GetOrderPrice(text, direction, contract, symbol.wMarket, symbol.wCode);
    return PrintStep(price, delta, *contract, symbol, stepped);
}

bool StepPanelPrice(const char* text, int delta, const CZebContract* contract,
                    const CHostSymbol& symbol, char (&stepped)[kPriceTextSize]) {
    if (contract == nullptr) return false;
    const double price = GetPanelPrice(text, kDirectionBuy, contract);
    return PrintStep(price, delta, *contract, symbol, stepped);
}

CTradeParam ReadTradeParam() {
    CTradeParam param{};
    if (CUICallBack* const core = GetUICallBack()) core->GetTradeParam(&param);
    return param;
}
