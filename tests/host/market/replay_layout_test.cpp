#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <sstream>

#include "host/market/replay.h"
#include "tests/host/market/market_fixture.h"

// What rows of each layout become.

namespace market {
namespace {

using papercore::PriceFromYuan;
using papercore::Quote;

struct Told {
    std::vector<Quote> quotes;
    std::vector<std::pair<std::size_t, std::string>> malformed;
    std::size_t counted = 0;
    std::string fault;
};

Told TellOf(const std::string& text, ReplayOptions options = {}) {
    Told told;
    if (options.contract.empty()) options.contract = kGold;
    Replay replay(std::make_unique<std::istringstream>(text), options, TableOf({kGold, "Ag(T+D)"}),
                  [&](std::size_t line, const std::string& fault) {
                      told.malformed.emplace_back(line, fault);
                  });
    while (const auto event = replay.Next()) {
        if (const auto* quote = std::get_if<Quote>(&*event)) told.quotes.push_back(*quote);
    }
    told.fault = replay.Fault();
    told.counted = replay.Malformed();
    return told;
}

/// "09:00:00 last 300.00 3@299.99/4@300.01 traded 5@300.00"
std::string Words(const Quote& quote) {
    const auto yuan = [](papercore::Price price) {
        char text[32];
        std::snprintf(text, sizeof text, "%.2f",
                      static_cast<double>(price) / papercore::kPriceScale);
        return std::string(text);
    };
    const auto level = [&](const papercore::Level& shown) {
        return std::to_string(shown.volume) + "@" + yuan(shown.price);
    };
    std::string words = TimeText(quote.time).substr(11) + " last " + yuan(quote.last) + " " +
                        level(quote.bid[0]) + "/" + level(quote.ask[0]);
    if (quote.trade_volume > 0) {
        words += " traded " + std::to_string(quote.trade_volume) + "@" + yuan(quote.trade_price);
    }
    return words;
}

using Lines = std::vector<std::string>;

Lines AllWords(const Told& told) {
    Lines lines;
    for (const Quote& quote : told.quotes) lines.push_back(Words(quote));
    return lines;
}

TEST(ReplayLayout, RowsBecomeQuotes) {
    struct Case {
        const char* what;
        const char* text;
        Lines quotes;
    };
    const Case cases[] = {
        {"a bar goes to the near end of its range first, its volume in quarters",
         "time,open,high,low,close,volume\n2026-03-02T09:00:00,300,303,299,302,10\n"
         "2026-03-02T09:01:00,302,303,299,300,3\n",
         {"09:00:00 last 300.00 10@299.99/10@300.01 traded 2@300.00",
          "09:00:15 last 299.00 10@298.99/10@299.01 traded 2@299.00",
          "09:00:30 last 303.00 10@302.99/10@303.01 traded 2@303.00",
          "09:00:45 last 302.00 10@301.99/10@302.01 traded 4@302.00",
          "09:01:00 last 302.00 10@301.99/10@302.01", "09:01:15 last 303.00 10@302.99/10@303.01",
          "09:01:30 last 299.00 10@298.99/10@299.01",
          "09:01:45 last 300.00 10@299.99/10@300.01 traded 3@300.00"}},
        {"a bar without a trade only moves the price",
         "time,open,high,low,close,volume\n2026-03-02T09:00:00,300,300,300,300,0\n",
         {"09:00:00 last 300.00 10@299.99/10@300.01", "09:00:15 last 300.00 10@299.99/10@300.01",
          "09:00:30 last 300.00 10@299.99/10@300.01", "09:00:45 last 300.00 10@299.99/10@300.01"}},
        {"a quoted bar ends with its closing quote, also with one side only",
         "time,open,high,low,close,volume,bid_close,bid_qty,ask_close,ask_qty\n"
         "2026-03-02T09:00:00,300,300,300,300,4,299.5,7,300.5,8\n"
         "2026-03-02T09:01:00,,,,,,,,301,2\n2026-03-02T09:02:00,,,,,0,298,3,,\n",
         {"09:00:00 last 300.00 10@299.99/10@300.01 traded 1@300.00",
          "09:00:15 last 300.00 10@299.99/10@300.01 traded 1@300.00",
          "09:00:30 last 300.00 10@299.99/10@300.01 traded 1@300.00",
          "09:00:45 last 300.00 7@299.50/8@300.50 traded 1@300.00",
          "09:01:45 last 300.00 0@0.00/2@301.00", "09:02:45 last 300.00 3@298.00/0@0.00"}},
        {"depth: a rise of the day's volume is a trade, a fall is none",
         "time,last,volume,bid1,bid1_qty,ask1,ask1_qty,bid2,bid2_qty,ask2,ask2_qty\n"
         "2026-03-02T09:00:00,300,70,299,4,301,5,298,1,,\n"
         "2026-03-02T09:00:01,301,75,,,301,5,,,302,6\n2026-03-02T09:00:02,301,10,,,301,5,,,,\n"
         "2026-03-02T09:00:03,301,12,,,301,5,,,,\n",
         {"09:00:00 last 300.00 4@299.00/5@301.00",
          "09:00:01 last 301.00 0@0.00/5@301.00 traded 5@301.00",
          "09:00:02 last 301.00 0@0.00/5@301.00",
          "09:00:03 last 301.00 0@0.00/5@301.00 traded 2@301.00"}},
        {"quotes: a crossed, a locked and a one-sided one come through",
         "time,bid,ask\n2026-03-02T09:00:00,300,301\n2026-03-02T09:00:00,302,301\n"
         "2026-03-02T09:00:01,301,301\n2026-03-02T09:00:02,,305\n",
         {"09:00:00 last 300.50 10@300.00/10@301.00", "09:00:00 last 301.50 10@302.00/10@301.00",
          "09:00:01 last 301.00 10@301.00/10@301.00", "09:00:02 last 305.00 0@0.00/10@305.00"}},
        {"trades of one moment keep their order",
         "time,price,qty\n2026-03-02T09:00:00,300,2\n2026-03-02T09:00:00,299,1\n",
         {"09:00:00 last 300.00 10@299.99/10@300.01 traded 2@300.00",
          "09:00:00 last 299.00 10@298.99/10@299.01 traded 1@299.00"}},
        {"columns in another order, unknown ones, a byte order mark, ends of line with returns",
         "\xEF\xBB\xBFqty,exchange,price,time\r\n2,X,300,2026-03-02T01:00:00.250Z\r\n\r\n"
         "1,,301,2026-03-02 09:00:01\r\n",
         {"09:00:00 last 300.00 10@299.99/10@300.01 traded 2@300.00",
          "09:00:01 last 301.00 10@300.99/10@301.01 traded 1@301.00"}},
        {"prices are brought to the tick, the least of them too",
         "time,price,qty\n2026-03-02T09:00:00,300.004,1\n2026-03-02T09:00:01,300.006,1\n"
         "2026-03-02T09:00:02,0.001,1\n",
         {"09:00:00 last 300.00 10@299.99/10@300.01 traded 1@300.00",
          "09:00:01 last 300.01 10@300.00/10@300.02 traded 1@300.01",
          "09:00:02 last 0.01 0@0.00/10@0.02 traded 1@0.01"}},
    };
    for (const Case& each : cases) {
        const Told told = TellOf(each.text);
        EXPECT_EQ(each.quotes, AllWords(told)) << each.what << told.fault;
    }
}

TEST(ReplayLayout, UnitAndCurrencyFactorsGoForPricesAndSizes) {
    struct Case {
        ReplayOptions options;
        const char* told;
    };
    const double ounce = OunceFactor(6.12);
    const Case cases[] = {
        {{kGold, 1, 1}, "09:00:00 last 1300.00 8@1299.00/3@1301.00"},
        {{kGold, ounce, 1}, "09:00:00 last 255.79 8@255.59/3@255.99"},
        {{kGold, ounce, 3.11}, "09:00:00 last 255.79 25@255.59/9@255.99"},
        {{kGold, 0.5, 0.001}, "09:00:00 last 650.00 1@649.50/1@650.50"},
        {{"Ag(T+D)", 10, 1}, "09:00:00 last 13000.00 8@12990.00/3@13010.00"},
    };
    for (const Case& each : cases) {
        const Told told = TellOf(
            "time,last,volume,bid1,bid1_qty,ask1,ask1_qty\n"
            "2026-03-02T09:00:00,1300,70,1299,8,1301,3\n",
            each.options);
        EXPECT_EQ(Lines{each.told}, AllWords(told));
        ASSERT_FALSE(told.quotes.empty());
        EXPECT_EQ(each.options.contract, told.quotes[0].contract);
    }
}

TEST(ReplayLayout, RecordedGapsGoBeyondTheLimitsThatTheTermsGive) {
    const Told told =
        TellOf("time,price,qty\n2026-03-02T09:00:00,300,1\n2026-03-02T09:00:01,400,1\n");
    ASSERT_EQ(2U, told.quotes.size());
    EXPECT_EQ(PriceFromYuan(345), told.quotes[1].upper_limit);
    EXPECT_EQ(PriceFromYuan(255), told.quotes[1].lower_limit);
    EXPECT_EQ(PriceFromYuan(400), told.quotes[1].last);
}

TEST(ReplayLayout, MalformedRowsAreNamedAndCountedAndTheRestGoesOn) {
    struct Case {
        const char* row;
        const char* fault;
    };
    const Case cases[] = {
        {"", "wrong number of fields"},
        {",,", "wrong number of fields"},
        {"2026-03-02T09:00:00,300,302,299,301,5,6", "wrong number of fields"},
        {"2026-03-02T09:00:00,300,302,299,301,x", "not a number: x"},
        {"2026-03-02T09:00:00,300,302,299,301,-1", "not a number: -1"},
        {"2026-03-02T09:00:00,nan,302,299,301,1", "not a number: nan"},
        {"2026-03-02T09:00:00,inf,302,299,301,1", "not a number: inf"},
        {"2026-03-02T09:00:00,300,1e16,299,301,1", "not a number: 1e16"},
        {"2026-03-02T09:00:00, 300,302,299,301,1", "not a number:  300"},
        {"2026-03-02T09:00:00,300,1e14,299,301,1", "price too high"},
        {"2026-03-02T09:00:00,300,299,299,301,1", "prices outside low and high"},
        {"2026-03-02T09:00:00,300,302,,301,1", "no prices"},
        {"2026-03-02T24:00:00,300,302,299,301,1", "no time"},
        {"2026-02-29T09:00:00,300,302,299,301,1", "no time"},
        {"2026-03-02T09:00:00+08:00,300,302,299,301,1", "no time"},
        {"2026-03-02T09:00,300,302,299,301,1", "no time"},
        {"2026-03-02T08:00:00,300,302,299,301,1", "earlier than the row before"},
    };
    const std::string good = "2026-03-02T09:00:00,300,302,299,301,5";
    std::string text = "time,open,high,low,close,volume\n" + good + "\n";
    for (const Case& each : cases) text += std::string(each.row) + "\n" + good + "\n";
    const Told told = TellOf(text);
    ASSERT_EQ(std::size(cases), told.malformed.size());
    for (std::size_t at = 0; at < std::size(cases); ++at) {
        EXPECT_EQ(3 + 2 * at, told.malformed[at].first) << cases[at].row;
        EXPECT_EQ(cases[at].fault, told.malformed[at].second) << cases[at].row;
    }
    EXPECT_EQ(std::size(cases), told.counted);
    EXPECT_EQ(4 * (std::size(cases) + 1), told.quotes.size());
}

TEST(ReplayLayout, FilesThatNothingCanComeOfAreRefused) {
    struct Case {
        const char* text;
        ReplayOptions options;
        const char* fault;
    };
    const char* good = "time,bid,ask\n2026-03-02T09:00:00,1,2\n";
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Case cases[] = {
        {good, {kGold, 1, 1}, ""},
        {"", {kGold, 1, 1}, "the file can't be read or is empty"},
        {"time,bid\n2026-03-02T09:00:00,1\n", {kGold, 1, 1}, "no known layout"},
        {"time,time,bid,ask\n", {kGold, 1, 1}, "no known layout"},
        {"Zeit;Geld;Brief\n", {kGold, 1, 1}, "no known layout"},
        {"time,bid,ask\n", {kGold, 1, 1}, "no usable row"},
        {"time,bid,ask\nx,1,2\n,,\n", {kGold, 1, 1}, "no usable row"},
        {good, {"Pt99.95", 1, 1}, "no terms for contract Pt99.95"},
        {good, {kGold, 0, 1}, "factor"},
        {good, {kGold, nan, 1}, "factor"},
        {good, {kGold, 1, -1}, "factor"},
    };
    for (const Case& each : cases) {
        const Told told = TellOf(each.text, each.options);
        EXPECT_NE(std::string::npos, told.fault.find(each.fault)) << told.fault;
        EXPECT_EQ(told.fault.empty(), !told.quotes.empty()) << each.fault;
    }
}

/// Makes its rows as they are read, and knows how much of them was.
class EndlessRows : public std::streambuf {
public:
    explicit EndlessRows(std::uint64_t rows) : left_(rows), row_("time,price,qty\n") { Rewind(); }

private:
    void Rewind() { setg(row_.data(), row_.data(), row_.data() + row_.size()); }
    int_type underflow() override {
        if (left_-- == 0) return traits_type::eof();
        row_ = "2026-03-02T09:00:00,300,1\n";
        Rewind();
        return traits_type::to_int_type(row_[0]);
    }
    std::uint64_t left_;
    std::string row_;
};

TEST(ReplayLayout, ReadsNoFurtherThanItIsAsked) {
    EndlessRows rows(100'000'000'000);
    Replay replay(std::make_unique<std::istream>(&rows), {kGold, 1, 1}, TableOf({kGold}), {});
    for (int row = 0; row < 1000; ++row) ASSERT_TRUE(replay.Next());
    EXPECT_EQ("", replay.Fault());
}

TEST(ReplayLayout, WhoHearsOfAMalformedRowMayReadTheMarket) {
    std::unique_ptr<Market> market;
    papercore::Instant seen = 0;
    market = std::make_unique<Market>(std::make_unique<Replay>(
        std::make_unique<std::istringstream>("time,price,qty\n2026-03-02T09:00:00,300,1\n"
                                             "2026-03-02T09:00:01,300,1\nx\n"
                                             "2026-03-02T09:00:02,300,1\n"),
        ReplayOptions{kGold, 1, 1}, TableOf({kGold}),
        [&](std::size_t, const std::string&) { seen = market ? market->Now() : 1; }));
    market->Step(kMinute);
    EXPECT_GT(seen, 1);
}

}  // namespace
}  // namespace market
