#pragma once

#include <deque>
#include <functional>
#include <istream>
#include <memory>
#include <string>

#include "host/market/replay_rows.h"
#include "host/market/source.h"
#include "papercore/contract_terms.h"

namespace market {

inline constexpr double kGramsPerOunce = 31.1034768;

/// What the rows of a file stand for.
struct ReplayOptions {
    std::string contract;      ///< must be in the terms
    double price_factor = 1;   ///< price of the contract for a price of 1 in the file
    double volume_factor = 1;  ///< lots of the contract for a lot of the file
};

/// A file's prices per ounce in another currency, as yuan per gram.
constexpr double OunceFactor(double yuan_per_currency) {
    return yuan_per_currency / kGramsPerOunce;
}

/// Reads a recorded file row by row. A malformed row is reported, counted and passed over.
class Replay : public Source {
public:
    /// Line number (the header is 1) and what is wrong with it; English.
    using Report = std::function<void(std::size_t line, const std::string& fault)>;

    /// Reads the header and the first row. `terms` is copied.
    Replay(std::unique_ptr<std::istream> input, ReplayOptions options,
           const papercore::TermsTable& terms, Report report);

    /// Why the file can't be replayed at all; empty when it can.
    const std::string& Fault() const { return fault_; }
    std::size_t Malformed() const { return malformed_; }

    std::optional<Event> Next() override;
    papercore::Instant Start() const override { return start_; }

private:
    bool ReadRow();
    void Malform(const std::string& fault);
    void BeginDay(const Row& row);
    void FinishDay(papercore::Day next);
    void AddRow(const Row& row);
    void AddBar(const Row& row);
    void AddTick(const Row& row);
    void Emit(papercore::Instant time);
    void Trade(papercore::Price price, std::int64_t volume);
    void LevelsAround(papercore::Price price);
    papercore::Price PriceOf(double value) const;
    std::int64_t VolumeOf(double value) const;
    papercore::Level LevelOf(double price, double volume) const;

    std::unique_ptr<std::istream> input_;
    ReplayOptions options_;
    papercore::TermsTable terms_;
    Report report_;
    RowReader reader_;
    std::string fault_;
    std::size_t line_ = 0;
    std::size_t malformed_ = 0;
    papercore::Instant start_ = 0;
    papercore::Instant last_time_ = 0;
    papercore::Instant emitted_ = 0;  ///< bars closer than a minute must not send time back
    const papercore::ContractTerms* row_terms_ = nullptr;
    papercore::Quote quote_;
    double file_volume_ = -1;  ///< of the row before, where the file counts from the day's start
    std::deque<Event> ready_;
    std::string text_;
    bool finished_ = false;
};

}  // namespace market
