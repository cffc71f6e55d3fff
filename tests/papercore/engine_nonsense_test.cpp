#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <limits>

#include "tests/papercore/random_choices.h"
#include "tests/papercore/scenario.h"

namespace papercore_tests {
namespace {

/// Nothing of this makes sense; all that is asked is that the account stays whole.
class Nonsense {
public:
    explicit Nonsense(std::uint64_t seed) : random_(seed) {
        engine_ = std::make_unique<Engine>(SampleTerms(), EngineSettings(), State());
        engine_->OpenSession({"10001", "s", "h"}, 0);
    }

    void Run(int events) {
        for (int i = 0; i < events; ++i) {
            Step();
            ASSERT_EQ("", engine_->BrokenInvariant());
        }
    }

private:
    std::int64_t AnyNumber() {
        const auto bits = static_cast<int>(random_.Below(63));
        const std::int64_t number = random_.Below(std::int64_t{1} << bits | 1);
        return random_.OneIn(3) ? -number : number;
    }

    Price AnyPrice() { return random_.OneIn(3) ? AnyNumber() : random_.Between(1, 400) * 10'000; }

    double AnyDouble() {
        const double odd[] = {std::numeric_limits<double>::quiet_NaN(),
                              std::numeric_limits<double>::infinity(),
                              -1.0,
                              1e308,
                              5.0,
                              1e-300};
        return random_.OneIn(2) ? odd[random_.Below(6)] : static_cast<double>(AnyNumber());
    }

    std::string AnyText() {
        const char* known[] = {kGold, kSilver, kSpot, "SGE", "300.00", "对手价", "市价", "-0", ""};
        if (!random_.OneIn(4)) return known[random_.Below(9)];
        std::string text;
        for (std::int64_t i = random_.Below(40); i > 0; --i) {
            text += static_cast<char>(random_.Below(256));
        }
        return text;
    }

    char AnyByte() {
        return random_.OneIn(3) ? static_cast<char>(random_.Below(256)) : random_.OneOf("012ad");
    }

    void Step() {
        switch (random_.Below(7)) {
            case 0: return SendQuote();
            case 1: return SendQuote();
            case 2: return SendStop();
            case 3: return SendParam();
            case 4: return SendDayEnd();
            case 5:
                engine_->Cancel(static_cast<OrderId>(AnyNumber()), AnyNumber());
                engine_->MaxVolume(AnyText(), AnyByte(), AnyByte(), AnyPrice());
                return;
            default: return SendOrder();
        }
    }

    void SendQuote() {
        Quote quote;
        quote.contract = AnyText();
        quote.trading_day = random_.OneIn(4) ? static_cast<Day>(AnyNumber()) : 20260105;
        quote.phase = static_cast<MarketPhase>(random_.Below(3));
        for (Level& level : quote.bid) level = {AnyPrice(), AnyNumber()};
        for (Level& level : quote.ask) level = {AnyPrice(), AnyNumber()};
        for (Price* price : {&quote.last, &quote.trade_price, &quote.previous_settlement,
                             &quote.previous_close, &quote.upper_limit, &quote.lower_limit}) {
            *price = random_.OneIn(2) ? 0 : AnyPrice();
        }
        if (!random_.OneIn(4)) MakeSane(quote);
        quote.trade_volume = AnyNumber();
        engine_->OnQuote(quote);
    }

    static void MakeSane(Quote& quote) {
        const auto sane = [](Price& price) { price = std::abs(price % kHighestPrice); };
        for (Level& level : quote.bid) sane(level.price);
        for (Level& level : quote.ask) sane(level.price);
        for (Price* price : {&quote.last, &quote.trade_price, &quote.previous_settlement,
                             &quote.previous_close, &quote.upper_limit, &quote.lower_limit}) {
            sane(*price);
        }
    }

    void SendOrder() {
        OrderRequest request;
        request.exchange = random_.OneIn(2) ? "" : AnyText();
        request.contract = AnyText();
        request.price = AnyText();
        request.direction = AnyByte();
        request.offset = AnyByte();
        request.order_type = AnyByte();
        request.volume = random_.OneIn(2) ? random_.Between(1, 9) : AnyNumber();
        request.lot = random_.OneIn(2) ? 0 : static_cast<LotId>(AnyNumber());
        request.price_code = static_cast<int>(AnyNumber());
        engine_->Insert(request, AnyNumber());
    }

    void SendStop() {
        CPresetStop stop{};
        stop.dProfitTicks = AnyDouble();
        stop.dProfitPullback = AnyDouble();
        stop.dStopTicks = AnyDouble();
        stop.dStopFloat = AnyDouble();
        stop.dLongStop = AnyDouble();
        stop.dShortProfit = AnyDouble();
        engine_->SetPreset(AnyText(), AnyText(), stop);
        engine_->SetLotStop(static_cast<LotId>(random_.Below(20)), stop);
        engine_->WakeStops();
    }

    void SendParam() {
        std::array<char, sizeof(CTradeParam)> bytes{};
        for (char& byte : bytes) byte = static_cast<char>(random_.Below(256));
        engine_->SetTradeParam(std::bit_cast<CTradeParam>(bytes));
    }

    void SendDayEnd() {
        DayEnd end;
        end.trading_day = static_cast<Day>(AnyNumber());
        end.next_trading_day = static_cast<Day>(AnyNumber());
        end.settlements.push_back({AnyText(), AnyPrice()});
        engine_->OnDayEnd(end);
    }

    Random random_;
    std::unique_ptr<Engine> engine_;
};

TEST(EngineNonsense, LeavesTheAccountWhole) {
    const std::int64_t streams = Setting("PAPERCORE_STREAMS", 500);
    for (std::int64_t seed = 1; seed <= streams; ++seed) {
        SCOPED_TRACE("stream " + std::to_string(seed));
        Nonsense(static_cast<std::uint64_t>(seed)).Run(80);
        if (HasFailure()) return;
    }
}

}  // namespace
}  // namespace papercore_tests
