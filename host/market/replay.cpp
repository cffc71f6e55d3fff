#include "host/market/replay.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

#include "host/market/civil_time.h"

namespace market {
namespace {

using papercore::Day;
using papercore::Instant;
using papercore::Price;

constexpr std::int64_t kUsualSize = 10;
constexpr Instant kBarStep = 15'000;
constexpr std::int64_t kMostLots = 1'000'000'000;
constexpr std::size_t kLongestLine = 4096;
/// Limits and levels around a price stay prices themselves.
constexpr double kHighestInFile = 1.0 * papercore::kHighestPrice / papercore::kPriceScale / 2;

/// Memory stays bounded whatever the file is: the rest of a long line is passed over. False at the
/// end of the file.
bool TakeLine(std::istream& input, std::string& line, bool& cut) {
    std::array<char, kLongestLine + 1> piece;
    input.getline(piece.data(), piece.size());
    auto length = static_cast<std::size_t>(input.gcount());
    if (input.bad() || (input.eof() && length == 0)) return false;
    cut = input.fail() && !input.eof();
    if (cut) {
        input.clear();
        input.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    } else if (!input.eof()) {
        --length;
    }
    line.assign(piece.data(), length);
    return true;
}

double HighestOf(const Row& row) {
    double highest = std::max({row.open, row.high, row.last});
    for (const double bid : row.bid) highest = std::max(highest, bid);
    for (const double ask : row.ask) highest = std::max(highest, ask);
    return highest;
}

Price Limit(Price base, papercore::Ppm rate, Price tick, int direction) {
    const Price range = papercore::Share(base, rate) / tick * tick;
    return base / tick * tick + direction * range;
}

}  // namespace

Replay::Replay(std::unique_ptr<std::istream> input, ReplayOptions options,
               const papercore::TermsTable& terms, Report report)
    : input_(std::move(input)),
      options_(std::move(options)),
      terms_(terms),
      report_(std::move(report)) {
    bool cut = false;
    quote_.contract = options_.contract;
    if (!terms_.Find(options_.contract, 0)) {
        fault_ = "no terms for contract " + options_.contract;
    } else if (!(options_.price_factor > 0) || !(options_.volume_factor > 0)) {
        fault_ = "a factor is not above 0";
    } else if (!input_ || !TakeLine(*input_, text_, cut)) {
        fault_ = "the file can't be read or is empty";
    } else if (cut || reader_.ReadHeader(text_) == Layout::kUnknown) {
        fault_ = "the columns are those of no known layout";
    }
    if (!fault_.empty()) {
        finished_ = true;
        return;
    }
    line_ = 1;
    while (ready_.empty() && !finished_) ReadRow();
    if (!ready_.empty()) start_ = TimeOf(ready_.front());
    if (ready_.empty()) fault_ = "the file has no usable row";
}

std::optional<Event> Replay::Next() {
    while (ready_.empty() && !finished_) ReadRow();
    if (ready_.empty()) return std::nullopt;
    Event event = std::move(ready_.front());
    ready_.pop_front();
    return event;
}

void Replay::Malform(const std::string& fault) {
    ++malformed_;
    if (report_) report_(line_, fault);
}

bool Replay::ReadRow() {
    bool cut = false;
    if (!TakeLine(*input_, text_, cut)) {
        finished_ = true;
        if (quote_.trading_day != 0) FinishDay(NextBusinessDay(quote_.trading_day));
        return false;
    }
    ++line_;
    Row row;
    std::string fault = cut ? "line too long" : reader_.Read(text_, row);
    if (fault.empty() && row.trading_day == 0) row.trading_day = TradingDayOf(row.time);
    if (fault.empty() && row.time < last_time_) fault = "earlier than the row before";
    if (fault.empty() && row.trading_day < quote_.trading_day) fault = "an earlier trading day";
    if (fault.empty() && HighestOf(row) * options_.price_factor > kHighestInFile) {
        fault = "price too high";
    }
    if (!fault.empty()) {
        Malform(fault);
        return false;
    }
    AddRow(row);
    return true;
}

void Replay::AddRow(const Row& row) {
    if (row.trading_day != quote_.trading_day) {
        if (quote_.trading_day != 0) FinishDay(row.trading_day);
        BeginDay(row);
    }
    quote_.open_interest = VolumeOf(row.open_interest);
    if (reader_.Kind() == Layout::kBars || reader_.Kind() == Layout::kQuotedBars) {
        AddBar(row);
    } else {
        AddTick(row);
    }
    last_time_ = std::max(last_time_, row.time);
}

Price Replay::PriceOf(double value) const {
    const Price exact = papercore::PriceFromYuan(value * options_.price_factor);
    if (exact <= 0) return 0;
    const Price tick = row_terms_->tick;
    return std::max(tick, (exact + tick / 2) / tick * tick);
}

std::int64_t Replay::VolumeOf(double value) const {
    if (value <= 0) return 0;
    const double lots = std::min(value * options_.volume_factor, double{kMostLots});
    return std::max<std::int64_t>(1, std::llround(lots));
}

/// A size without a price is no level.
papercore::Level Replay::LevelOf(double price, double volume) const {
    const Price at = PriceOf(price);
    if (at == 0) return {};
    return {at, reader_.Kind() == Layout::kQuotes ? kUsualSize : VolumeOf(volume)};
}

/// Yesterday's figures; the first day of a file has only its first price to go by.
void Replay::BeginDay(const Row& row) {
    row_terms_ = terms_.Find(options_.contract, row.trading_day);
    const double shown = row.bid[0] > 0 ? row.bid[0] : row.ask[0];
    const double value = row.open > 0 ? row.open : row.last > 0 ? row.last : shown;
    if (quote_.previous_close == 0) quote_.previous_close = PriceOf(value);
    if (quote_.previous_settlement == 0) quote_.previous_settlement = PriceOf(value);
    const Price base = row_terms_->IsSpot() ? quote_.previous_close : quote_.previous_settlement;
    quote_.upper_limit = Limit(base, row_terms_->limit, row_terms_->tick, 1);
    quote_.lower_limit = Limit(base, row_terms_->limit, row_terms_->tick, -1);
    quote_.trading_day = row.trading_day;
    quote_.open = quote_.high = quote_.low = 0;
    quote_.volume = 0;
    quote_.turnover = 0;
    file_volume_ = -1;
}

void Replay::FinishDay(Day next) {
    const std::int64_t units = quote_.volume * row_terms_->unit;
    Price price = quote_.last > 0 ? quote_.last : quote_.previous_settlement;
    if (units > 0) {
        constexpr double kPricePerFen = 100;
        const double average = static_cast<double>(quote_.turnover) / static_cast<double>(units);
        const Price tick = row_terms_->tick;
        price = (std::llround(average * kPricePerFen) + tick / 2) / tick * tick;
    }
    papercore::DayEnd end;
    end.time = std::max(last_time_, emitted_);
    end.trading_day = quote_.trading_day;
    end.next_trading_day = next;
    end.settlements.push_back({quote_.contract, price});
    ready_.emplace_back(std::move(end));
    quote_.previous_settlement = price;
    if (quote_.last > 0) quote_.previous_close = quote_.last;
}

void Replay::Trade(Price price, std::int64_t volume) {
    quote_.last = price;
    if (quote_.open == 0) quote_.open = price;
    quote_.high = std::max(quote_.high, price);
    quote_.low = quote_.low == 0 ? price : std::min(quote_.low, price);
    quote_.trade_price = volume > 0 ? price : 0;
    quote_.trade_volume = volume;
    quote_.volume += volume;
    quote_.turnover += papercore::Turnover(price, row_terms_->unit, volume);
}

void Replay::LevelsAround(Price price) {
    for (std::size_t level = 0; level < papercore::kLevels; ++level) {
        const Price away = row_terms_->tick * static_cast<Price>(level + 1);
        quote_.bid[level] = {std::max<Price>(price - away, 0), kUsualSize};
        quote_.ask[level] = {price + away, kUsualSize};
        if (quote_.bid[level].price == 0) quote_.bid[level].volume = 0;
    }
}

void Replay::Emit(Instant time) {
    quote_.time = emitted_ = std::max(time, emitted_);
    ready_.emplace_back(quote_);
    quote_.trade_price = 0;
    quote_.trade_volume = 0;
}

void Replay::AddTick(const Row& row) {
    if (reader_.Kind() == Layout::kTrades) {
        Trade(PriceOf(row.last), VolumeOf(row.volume));
        LevelsAround(quote_.last);
        Emit(row.time);
        return;
    }
    for (std::size_t level = 0; level < papercore::kLevels; ++level) {
        quote_.bid[level] = LevelOf(row.bid[level], row.bid_volume[level]);
        quote_.ask[level] = LevelOf(row.ask[level], row.ask_volume[level]);
    }
    if (reader_.Kind() == Layout::kDepth) {
        const double more = file_volume_ < 0 ? 0 : std::max(0.0, row.volume - file_volume_);
        file_volume_ = row.volume;
        if (row.last > 0) Trade(PriceOf(row.last), VolumeOf(more));
    } else {
        // A dealer's quotes have no trades; the middle stands for the last price.
        const double bid = row.bid[0] > 0 ? row.bid[0] : row.ask[0];
        const double ask = row.ask[0] > 0 ? row.ask[0] : row.bid[0];
        Trade(PriceOf((bid + ask) / 2), 0);
    }
    Emit(row.time);
}

/// Open, the nearer end of the range, the other end, close: a quarter of the minute and of the
/// volume each, the rest of the volume with the close.
void Replay::AddBar(const Row& row) {
    const bool rose = row.last >= row.open;
    const std::array<double, 4> path{row.open, rose ? row.low : row.high, rose ? row.high : row.low,
                                     row.last};
    const std::int64_t volume = VolumeOf(row.volume);
    for (std::size_t step = 0; step < path.size() && row.last > 0; ++step) {
        const bool closing = step + 1 == path.size();
        Trade(PriceOf(path[step]), closing ? volume - volume / 4 * 3 : volume / 4);
        LevelsAround(quote_.last);
        if (closing && row.bid[0] > 0 && row.ask[0] > 0) break;
        Emit(row.time + static_cast<Instant>(step) * kBarStep);
    }
    if (row.bid[0] <= 0 && row.ask[0] <= 0) return;
    const Price bid = PriceOf(row.bid[0]);
    const Price ask = PriceOf(row.ask[0]);
    LevelsAround(bid > 0 ? bid : ask);
    for (std::size_t level = 0; level < papercore::kLevels; ++level) {
        const Price away = row_terms_->tick * static_cast<Price>(level);
        quote_.bid[level].price = std::max<Price>(0, bid > 0 ? bid - away : 0);
        quote_.ask[level].price = ask > 0 ? ask + away : 0;
        if (quote_.bid[level].price == 0) quote_.bid[level].volume = 0;
        if (quote_.ask[level].price == 0) quote_.ask[level].volume = 0;
    }
    quote_.bid[0] = LevelOf(row.bid[0], row.bid_volume[0]);
    quote_.ask[0] = LevelOf(row.ask[0], row.ask_volume[0]);
    Emit(row.time + 3 * kBarStep);
}

}  // namespace market
