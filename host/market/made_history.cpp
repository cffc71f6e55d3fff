#include "host/market/made_history.h"

#include <algorithm>
#include <cmath>

#include "host/market/civil_time.h"
#include "host/market/made_up.h"

namespace market {
namespace {

using papercore::ContractTerms;
using papercore::Price;

constexpr int kFirstMinute = 18 * 60;
constexpr int kLastMinute = 48 * 60;
/// Moves of a minute, each as far as ten of the simulator's steps lead.
constexpr int kMoves = 12;
constexpr double kMove = 0.0000632;
constexpr double kOwnMove = 0.000008;
/// Lots that change hands in a calm move.
constexpr double kCalmVolume = 4.4;
constexpr std::uint64_t kOtherNumbers = 0x5DEECE66D;

/// How far a metal is from where it began, as a share, and how busy its market, move by move.
struct Walk {
    std::vector<double> away;
    std::vector<double> burst;
};

Walk WalkOf(double volatility, Random& random) {
    Walk walk;
    double away = 0;
    double burst = 1;
    for (int move = 0; move < (kLastMinute - kFirstMinute) * kMoves; ++move) {
        if (random.Uniform() < 0.008) burst = 6;
        burst += (1 - burst) * 0.1;
        away += -0.0005 * away + kMove * volatility * burst * random.Bell();
        walk.away.push_back(away);
        walk.burst.push_back(burst);
    }
    return walk;
}

class Contract {
public:
    Contract(const ContractTerms& terms, const Walk& walk, double close)
        : terms_(terms), walk_(walk), close_(close) {
        for (const papercore::SessionSpan& span : terms.sessions) {
            if (span.kind == papercore::PhaseKind::kContinuous) last_ = MoveOf(span.end) - 1;
        }
    }

    std::vector<Bar> Bars(papercore::Day day, Random& random) {
        std::vector<Bar> bars;
        for (const papercore::SessionSpan& span : terms_.sessions) {
            if (span.kind != papercore::PhaseKind::kContinuous) continue;
            const papercore::Instant begin = MomentOf(day, span.begin);
            for (int minute = span.begin; minute < span.end; ++minute) {
                bars.push_back(BarOf(minute, random));
                bars.back().time = begin + (minute - span.begin) * kMinute;
            }
        }
        return bars;
    }

private:
    static std::size_t MoveOf(int minute) {
        const int within = std::clamp(minute, kFirstMinute + 1, kLastMinute) - kFirstMinute;
        return static_cast<std::size_t>(within) * kMoves;
    }

    Bar BarOf(int minute, Random& random) {
        Bar bar;
        double volume = 0;
        const std::size_t end = std::min(MoveOf(minute + 1), walk_.away.size());
        for (std::size_t move = end - kMoves; move < end; ++move) {
            const Price price = PriceAt(move, random);
            if (bar.open == 0) bar = {0, price, price, price, price, 0};
            bar.high = std::max(bar.high, price);
            bar.low = std::min(bar.low, price);
            bar.close = price;
            volume += kCalmVolume * (0.5 + 0.5 * walk_.burst[move]) * 2 * random.Uniform();
        }
        bar.volume = std::llround(volume);
        return bar;
    }

    Price PriceAt(std::size_t move, Random& random) {
        own_ += -0.01 * own_ + kOwnMove * random.Bell();
        if (move == last_) own_ = 0;
        const double value = close_ * (1 + walk_.away[move] - walk_.away[last_] + own_);
        return std::max(papercore::PriceFromYuan(value) / terms_.tick * terms_.tick, terms_.tick);
    }

    const ContractTerms& terms_;
    const Walk& walk_;
    double close_;
    double own_ = 0;        ///< beside its metal's
    std::size_t last_ = 0;  ///< move
};

}  // namespace

History MakeHistory(const papercore::TermsTable& terms, papercore::Day day,
                    const SimulatorOptions& options) {
    Random random(options.seed ^ kOtherNumbers);
    const Walk gold = WalkOf(options.volatility, random);
    const Walk silver = WalkOf(options.volatility, random);
    History history;
    for (const std::string& name : terms.Contracts()) {
        const bool is_silver = name.starts_with("Ag");
        Contract contract(*terms.Find(name, day), is_silver ? silver : gold,
                          is_silver ? options.silver : options.gold);
        history[name] = contract.Bars(day, random);
    }
    return history;
}

}  // namespace market
