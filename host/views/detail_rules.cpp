#include "host/views/detail_rules.h"

#include <algorithm>
#include <cstdlib>

#include "host/views/quote_rules.h"
#include "platform/text/bounded_text.h"

namespace views {
namespace {

constexpr char kNothing[] = "--";
constexpr int kMinutesOfDay = 24 * 60;

Detail Priced(const char* label, papercore::Price price, const papercore::Quote& quote,
              int digits) {
    return {label, PriceText(price, digits), Tendency(price, Reference(quote))};
}

/// What a price unit cost on average; 0 when nobody can tell.
papercore::Price AveragePrice(const papercore::Quote& quote, int unit) {
    if (unit <= 0 || quote.volume <= 0 || quote.turnover <= 0) return 0;
    const double yuan = static_cast<double>(quote.turnover) / 100 /
                        (static_cast<double>(quote.volume) * static_cast<double>(unit));
    return papercore::PriceFromYuan(yuan);
}

/// Between the day's extremes, in percent of its reference.
std::string SwingText(const papercore::Quote& quote) {
    const papercore::Price reference = Reference(quote);
    if (reference <= 0 || quote.low <= 0 || quote.high < quote.low) return kNothing;
    char text[32];
    text::FormatText(
        text, sizeof text, "%.2f%%",
        100.0 * static_cast<double>(quote.high - quote.low) / static_cast<double>(reference));
    return text;
}

std::string SpreadText(const papercore::Quote& quote, int digits) {
    const papercore::Price bid = quote.bid[0].price;
    const papercore::Price ask = quote.ask[0].price;
    return bid > 0 && ask > bid ? PriceText(ask - bid, digits) : kNothing;
}

std::string CountOrNothing(std::int64_t count) { return count > 0 ? CountText(count) : kNothing; }

std::string ClockText(int minutes) {
    const int of_day = (minutes % kMinutesOfDay + kMinutesOfDay) % kMinutesOfDay;
    char text[16];
    text::FormatText(text, sizeof text, "%02d:%02d", of_day / 60, of_day % 60);
    return text;
}

}  // namespace

std::vector<Detail> DayDetails(const papercore::Quote& quote, int digits, int unit) {
    return {Priced("今开", quote.open, quote, digits),
            Priced("最高", quote.high, quote, digits),
            Priced("最低", quote.low, quote, digits),
            {"昨结", PriceText(quote.previous_settlement, digits)},
            {"昨收", PriceText(quote.previous_close, digits)},
            Priced("均价", AveragePrice(quote, unit), quote, digits),
            Priced("涨停", quote.upper_limit, quote, digits),
            Priced("跌停", quote.lower_limit, quote, digits),
            {"振幅", SwingText(quote)},
            {"持仓量", CountOrNothing(quote.open_interest)},
            {"成交额", quote.turnover > 0 ? MoneyText(quote.turnover) : kNothing},
            {"价差", SpreadText(quote, digits)}};
}

std::vector<Detail> TermsDetails(const papercore::ContractTerms& terms) {
    const bool spot = terms.IsSpot();
    return {{"每手", CountText(terms.unit)},
            {"价位", PriceText(terms.tick, terms.digits)},
            {"保证金", spot ? "全额" : RateText(terms.margin)},
            {"开仓费", RateText(terms.fee_open)},
            {"平仓费", RateText(terms.fee_close)},
            {"平今费", RateText(terms.fee_close_today)},
            {"涨跌限", RateText(terms.limit)},
            {"单笔限", CountOrNothing(terms.largest_order)},
            {"递延费", terms.deferred > 0 ? RateText(terms.deferred) : kNothing}};
}

std::string SessionsText(const std::vector<papercore::SessionSpan>& sessions) {
    std::string text;
    for (const papercore::SessionSpan& span : sessions) {
        if (span.kind != papercore::PhaseKind::kContinuous) continue;
        if (!text.empty()) text += "  ";
        text += ClockText(span.begin) + "-" + ClockText(span.end);
    }
    return text.empty() ? kNothing : text;
}

std::string RateText(papercore::Ppm rate) {
    const papercore::Ppm size = std::abs(rate);
    char text[40];
    text::FormatText(text, sizeof text, "%s%lld.%04lld", rate < 0 ? "-" : "",
                     static_cast<long long>(size / 10'000), static_cast<long long>(size % 10'000));
    std::string shortest = text;
    while (shortest.back() == '0') shortest.pop_back();
    if (shortest.back() == '.') shortest.pop_back();
    return shortest + "%";
}

std::string MoneyText(papercore::Fen money) {
    constexpr double kTenThousand = 1e4;
    constexpr double kHundredMillion = 1e8;
    const double yuan = papercore::YuanFromFen(money);
    const double size = std::abs(yuan);
    char text[40];
    if (size >= kHundredMillion) {
        text::FormatText(text, sizeof text, "%.2f亿", yuan / kHundredMillion);
    } else if (size >= kTenThousand) {
        text::FormatText(text, sizeof text, "%.2f万", yuan / kTenThousand);
    } else {
        text::FormatText(text, sizeof text, "%.2f", yuan);
    }
    return text;
}

}  // namespace views
