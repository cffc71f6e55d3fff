#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

#include "host/market/made_up.h"
#include "host/market/source.h"
#include "papercore/auction.h"
#include "papercore/contract_terms.h"

namespace market {

struct SimulatorOptions {
    std::uint64_t seed = 1;
    papercore::Day first_day = 20260302;
    double gold = 900;      ///< yuan a gram around which gold moves
    double volatility = 1;  ///< times a calm day
    double silver = 11000;  ///< yuan a kilogram; for contracts whose names begin with "Ag"
};

/// Makes up a market: contracts of a metal follow one mean-reverting walk with bursts. It begins at
/// 09:00 of its first day, with a past of one day, and never ends. Only sums and products: the same
/// ticks everywhere.
class Simulator : public Source {
public:
    Simulator(const papercore::TermsTable& terms, SimulatorOptions options);
    std::optional<Event> Next() override;
    papercore::Instant Start() const override;
    History Before() const override;

private:
    struct Metal {
        double price = 0;
        double away = 0;  ///< from the price, as a share of it
        double burst = 1;
    };
    struct Contract {
        papercore::Quote quote;
        const papercore::ContractTerms* terms = nullptr;
        bool silver = false;
        double away = 0;                         ///< its own, beside its metal's
        std::vector<papercore::Interest> crowd;  ///< of the auction
        MadeBook book;
    };

    void BeginDay(papercore::Day day);
    void FinishDay();
    void MakeTicks();
    void Walk(Metal& metal);
    papercore::MarketPhase PhaseOf(const Contract& contract) const;
    void Tick(Contract& contract);
    void Trade(Contract& contract);
    void Print(Contract& contract, papercore::Price price, std::int64_t volume);
    papercore::Price MiddleOf(const Contract& contract) const;
    void Collect(Contract& contract);
    bool Open(Contract& contract);

    papercore::TermsTable terms_;
    SimulatorOptions options_;
    Random random_;
    Metal gold_;
    Metal silver_;
    std::vector<Contract> contracts_;
    std::deque<Event> ready_;
    papercore::Day day_ = 0;
    papercore::Instant time_ = 0;
    papercore::Instant end_ = 0;
};

}  // namespace market
