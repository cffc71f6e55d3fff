#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <random>
#include <string>

#include "papercore/engine.h"
#include "tests/papercore/quote_maker.h"
#include "tests/papercore/random_choices.h"

// Any bytes in every field of what reaches the engine: it refuses or does, and its sums hold.

namespace papercore_tests {
namespace {

using papercore::Engine;
using papercore::Price;
using papercore::Quote;

/// More streams than a test run takes: PAPERCORE_STREAMS.
std::int64_t Streams(std::int64_t usual) { return Setting("PAPERCORE_STREAMS", usual); }

papercore::TermsTable TwoContracts() {
    papercore::TermsTable table;
    papercore::ContractTerms terms;
    terms.exchange = "SGE";
    terms.contract = "Au(T+D)";
    terms.from = 20240101;
    terms.unit = 1000;
    terms.tick = 100;
    terms.digits = 2;
    terms.margin = 160'000;
    terms.limit = 150'000;
    terms.fee_open = terms.fee_close = terms.fee_close_today = 150;
    terms.deferred = 200;
    terms.largest_order = 1000;
    terms.sessions = {{1200, 2370, papercore::PhaseKind::kContinuous}};
    table.Add(terms);
    terms.contract = "Au99.99";
    terms.market = "GT-S";
    terms.unit = 10;
    terms.margin = 1'000'000;
    table.Add(terms);
    return table;
}

class Bytes {
public:
    explicit Bytes(unsigned seed) : random_(seed) {}

    int Pick(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }
    bool Seldom() { return Pick(0, 9) == 0; }
    std::string Text(std::size_t most) {
        std::string text(static_cast<std::size_t>(Pick(0, static_cast<int>(most))), '\0');
        for (char& byte : text) byte = Byte();
        return text;
    }
    char Byte() { return static_cast<char>(Pick(-128, 127)); }
    std::int64_t Number() { return std::bit_cast<std::int64_t>(random_()) >> Pick(0, 60); }

    template <class Record>
    Record Any() {
        std::array<char, sizeof(Record)> bytes;
        for (char& byte : bytes) byte = Byte();
        return std::bit_cast<Record>(bytes);
    }
    template <std::size_t N, class Value = std::string>
    Value OneOf(const Value (&values)[N]) {
        return values[static_cast<std::size_t>(Pick(0, static_cast<int>(N) - 1))];
    }

private:
    std::mt19937_64 random_;
};

const std::string kContracts[] = {"Au(T+D)", "Au99.99"};
const std::string kPrices[] = {"300",    "299.98", "300.02", "对手价", "挂单价",
                               "最新价", "涨停价", "跌停价", "市价",   "挂单价超一个价位"};
const std::string kNumbers[] = {
    "1e308", "-1e308", "nan",  "inf",   "0x10",     "9223372036854775808",
    "",      " 300",   "300.", "300,5", "00000300", "1e-320"};

/// A request of which some fields are any bytes, and the others such that it gets far.
papercore::OrderRequest RequestOf(Bytes& bytes) {
    papercore::OrderRequest request;
    request.exchange = "SGE";
    request.contract = bytes.OneOf(kContracts);
    request.price = bytes.OneOf(kPrices);
    request.direction = static_cast<char>('0' + bytes.Pick(0, 1));
    request.offset = bytes.Pick(0, 3) == 0 ? '\0' : static_cast<char>('0' + bytes.Pick(0, 2));
    request.order_type = "01abcdef"[bytes.Pick(0, 7)];
    request.volume = bytes.Pick(1, 4);
    if (bytes.Seldom()) request.exchange = bytes.Text(40);
    if (bytes.Seldom()) request.contract = bytes.Text(40);
    if (bytes.Seldom()) request.price = bytes.Text(40);
    if (bytes.Seldom()) request.price = bytes.OneOf(kNumbers);
    if (bytes.Seldom()) request.direction = bytes.Byte();
    if (bytes.Seldom()) request.offset = bytes.Byte();
    if (bytes.Seldom()) request.hedge = bytes.Byte();
    if (bytes.Seldom()) request.order_type = bytes.Byte();
    if (bytes.Seldom()) request.volume = bytes.Number();
    if (bytes.Seldom()) request.lot = static_cast<papercore::LotId>(bytes.Number());
    if (bytes.Seldom()) request.lot = bytes.Pick(1, 9);
    if (bytes.Seldom()) request.source = static_cast<int>(bytes.Number());
    if (bytes.Seldom()) request.price_code = static_cast<int>(bytes.Number());
    if (bytes.Pick(0, 4) == 0) request.source = 5;
    request.note = bytes.Text(64);
    request.bytes = bytes.Text(900);
    return request;
}

Quote QuoteOf(Bytes& bytes, Price middle) {
    Quote quote;
    quote.contract = bytes.OneOf(kContracts);
    quote.trading_day = 20240301;
    quote.last = middle;
    quote.previous_close = quote.previous_settlement = Yuan(300);
    quote.upper_limit = Yuan(345);
    quote.lower_limit = Yuan(255);
    for (std::size_t i = 0; i < papercore::kLevels; ++i) {
        const Price distance = static_cast<Price>(i + 1) * 100;
        quote.bid.at(i) = {middle - distance, bytes.Pick(0, 9)};
        quote.ask.at(i) = {middle + distance, bytes.Pick(0, 9)};
    }
    if (bytes.Pick(0, 2) == 0) {
        quote.trade_price = middle + bytes.Pick(-3, 3) * 100;
        quote.trade_volume = bytes.Pick(1, 9);
    }
    return quote;
}

/// Values that a broken source could show.
void Break(Quote& quote, Bytes& bytes) {
    if (bytes.Seldom()) quote.last = bytes.Number();
    if (bytes.Seldom()) quote.upper_limit = bytes.Number();
    if (bytes.Seldom()) quote.lower_limit = bytes.Number();
    if (bytes.Seldom()) quote.previous_settlement = bytes.Number();
    if (bytes.Seldom()) quote.previous_close = bytes.Number();
    if (bytes.Seldom()) quote.trade_price = bytes.Number();
    if (bytes.Seldom()) quote.trade_volume = bytes.Number();
    if (bytes.Seldom()) quote.contract = bytes.Text(40);
    if (bytes.Seldom()) quote.phase = static_cast<papercore::MarketPhase>(bytes.Pick(0, 2));
    if (bytes.Seldom()) quote.bid.at(0) = {bytes.Number(), bytes.Number()};
    if (bytes.Seldom()) quote.ask.at(2) = {bytes.Number(), bytes.Number()};
}

CPresetStop StopOf(Bytes& bytes) {
    if (bytes.Seldom()) return bytes.Any<CPresetStop>();
    CPresetStop record{};
    record.dStopTicks = bytes.Pick(0, 5);
    record.dStopFloat = bytes.Pick(0, 5);
    record.dProfitTicks = bytes.Pick(0, 5);
    record.dProfitPullback = bytes.Pick(0, 5);
    if (bytes.Seldom()) record.dLongStop = bytes.Pick(299, 301);
    return record;
}

class Fuzz {
public:
    Fuzz(unsigned seed, bool broken_quotes)
        : bytes_(seed), terms_(TwoContracts()), broken_(broken_quotes) {
        engine_.OpenSession({"fuzz", "", ""}, 0);
    }

    void Step() {
        switch (bytes_.Pick(0, 19)) {
            case 0: engine_.SetTradeParam(Param()); break;
            case 1: engine_.SetPreset("SGE", bytes_.OneOf(kContracts), StopOf(bytes_)); break;
            case 2: engine_.SetLotStop(bytes_.Pick(0, 9), StopOf(bytes_)); break;
            case 3: engine_.WakeStops(); break;
            case 4:
            case 5: engine_.Cancel(bytes_.Pick(0, 30), 0); break;
            case 6:
            case 7:
            case 8:
            case 9:
            case 10: Insert(); break;
            case 11: Ask(); break;
            default: Update(); break;
        }
        ASSERT_EQ(engine_.BrokenInvariant(), "");
    }
    const papercore::State& Kept() const { return engine_.Kept(); }

private:
    CTradeParam Param() {
        auto param = bytes_.Any<CTradeParam>();
        if (bytes_.Pick(0, 1)) param.nStopTicks = param.nProfitTicks = 1;
        return param;
    }
    void Insert() {
        const papercore::Answer answer = engine_.Insert(RequestOf(bytes_), 0);
        ASSERT_EQ(answer.code == 0, answer.order > 0);
        ASSERT_EQ(answer.code == 0, answer.text.empty()) << "never silent";
    }
    void Ask() {
        const auto most =
            engine_.MaxVolume(bytes_.Seldom() ? bytes_.Text(40) : bytes_.OneOf(kContracts),
                              bytes_.Byte(), bytes_.Byte(), bytes_.Number());
        ASSERT_GE(most, 0);
        engine_.FundsNow();
    }
    void Update() {
        middle_ += bytes_.Pick(-3, 3) * 100;
        Quote quote = QuoteOf(bytes_, middle_);
        if (broken_) Break(quote, bytes_);
        engine_.OnQuote(quote);
    }

    Bytes bytes_;
    papercore::TermsTable terms_;
    bool broken_;
    Engine engine_{terms_, {}, {}};
    Price middle_ = Yuan(300);
};

TEST(EngineFuzz, RequestsWithAnyBytesAreDoneOrRefusedAndTheSumsHold) {
    std::size_t trades = 0;
    std::size_t orders = 0;
    for (std::int64_t seed = 0; seed < Streams(150); ++seed) {
        Fuzz fuzz(static_cast<unsigned>(seed), false);
        for (int step = 0; step < 200 && !HasFatalFailure(); ++step) fuzz.Step();
        ASSERT_FALSE(HasFatalFailure()) << "seed " << seed;
        trades += fuzz.Kept().trades.size();
        orders += fuzz.Kept().orders.size();
    }
    EXPECT_GT(trades, 100U) << "a run in which nothing gets far tests nothing";
    EXPECT_GT(orders, trades / 10);
}

TEST(EngineFuzz, QuotesWithAnyNumbersBreakNothing) {
    for (std::int64_t seed = 0; seed < Streams(150); ++seed) {
        Fuzz fuzz(static_cast<unsigned>(seed) + 500'000, true);
        for (int step = 0; step < 200 && !HasFatalFailure(); ++step) fuzz.Step();
        ASSERT_FALSE(HasFatalFailure()) << "seed " << seed;
    }
}

}  // namespace
}  // namespace papercore_tests
