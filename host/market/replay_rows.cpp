#include "host/market/replay_rows.h"

#include <algorithm>
#include <charconv>
#include <chrono>

#include "host/market/civil_time.h"

namespace market {
namespace {

using papercore::Day;
using papercore::Instant;

enum Field : int {
    kIgnored,
    kTime,
    kTradingDay,
    kOpen,
    kHigh,
    kLow,
    kLast,
    kVolume,
    kTurnover,
    kInterest,
    kBid,
    kBidVolume,
    kAsk,
    kAskVolume,
};

struct Name {
    std::string_view text;
    int field;
};

constexpr Name kNames[] = {
    {"time", kTime},
    {"trading_day", kTradingDay},
    {"open", kOpen},
    {"high", kHigh},
    {"low", kLow},
    {"close", kLast},
    {"last", kLast},
    {"price", kLast},
    {"volume", kVolume},
    {"qty", kVolume},
    {"turnover", kTurnover},
    {"open_interest", kInterest},
    {"bid", kBid},
    {"ask", kAsk},
    {"bid_close", kBid},
    {"ask_close", kAsk},
    {"bid_qty", kBidVolume},
    {"ask_qty", kAskVolume},
    {"highest", kHigh},
    {"lowest", kLow},
    {"average", kIgnored},
    {"open_interest_start", kIgnored},
    {"open_interest_end", kInterest},
};
constexpr double kMost = 1e15;
constexpr Instant kAheadOfUniversal = 8 * 60 * kMinute;

bool ReadDigits(std::string_view text, std::size_t at, std::size_t count, int& value) {
    if (at + count > text.size()) return false;
    value = 0;
    for (std::size_t index = at; index < at + count; ++index) {
        if (text[index] < '0' || text[index] > '9') return false;
        value = value * 10 + (text[index] - '0');
    }
    return true;
}

/// Digits after the seconds, cut to milliseconds.
bool ReadFraction(std::string_view text, Instant& millis) {
    millis = 0;
    if (text.empty()) return true;
    if (text.size() < 2 || text.size() > 10 || text[0] != '.') return false;
    int value = 0;
    if (!ReadDigits(text, 1, text.size() - 1, value)) return false;
    Instant scaled = value;
    for (std::size_t digits = text.size() - 1; digits < 9; ++digits) scaled *= 10;
    millis = scaled / 1'000'000;
    return true;
}

std::string_view Trimmed(std::string_view line) {
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

std::string_view TakeField(std::string_view& line) {
    const std::size_t end = line.find(',');
    const std::string_view field = line.substr(0, end);
    line = end == std::string_view::npos ? std::string_view() : line.substr(end + 1);
    return field;
}

bool ReadNumber(std::string_view text, double& value) {
    if (text.empty()) return true;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
    return fault == std::errc() && end == text.data() + text.size() && value >= 0 && value <= kMost;
}

/// "bid3" and "bid3_qty" of the depth files.
bool LevelOf(std::string_view name, int& field, std::size_t& level) {
    if (name.size() < 4 || name[3] < '1' || name[3] > '5') return false;
    const bool bid = name.starts_with("bid");
    if (!bid && !name.starts_with("ask")) return false;
    const std::string_view rest = name.substr(4);
    if (!rest.empty() && rest != "_qty") return false;
    level = static_cast<std::size_t>(name[3] - '1');
    if (rest.empty()) {
        field = bid ? kBid : kAsk;
    } else {
        field = bid ? kBidVolume : kAskVolume;
    }
    return true;
}

double* Place(int field, std::size_t level, Row& row) {
    switch (field) {
        case kOpen: return &row.open;
        case kHigh: return &row.high;
        case kLow: return &row.low;
        case kLast: return &row.last;
        case kVolume: return &row.volume;
        case kTurnover: return &row.turnover;
        case kInterest: return &row.open_interest;
        case kBid: return &row.bid[level];
        case kBidVolume: return &row.bid_volume[level];
        case kAsk: return &row.ask[level];
        case kAskVolume: return &row.ask_volume[level];
        default: return nullptr;
    }
}

/// What a row of its layout must have.
const char* Missing(Layout layout, const Row& row) {
    if (row.time == 0) return "no time";
    const bool quoted = row.bid[0] > 0 || row.ask[0] > 0;
    if (layout == Layout::kQuotes && !quoted) return "no price";
    if (layout == Layout::kDepth && !quoted && row.last <= 0) return "no price";
    if (layout == Layout::kTrades && row.last <= 0) return "no price";
    if (layout != Layout::kBars && layout != Layout::kQuotedBars) return nullptr;
    const bool traded = row.open > 0 && row.high > 0 && row.low > 0 && row.last > 0;
    if (!traded && (layout == Layout::kBars || row.volume > 0)) return "no prices";
    if (!traded && !quoted) return "no prices";
    const bool inside =
        row.low <= std::min(row.open, row.last) && row.high >= std::max(row.open, row.last);
    return !traded || inside ? nullptr : "prices outside low and high";
}

}  // namespace

bool ReadDay(std::string_view text, Day& day) {
    int year = 0;
    int month = 0;
    int date = 0;
    if (text.size() != 10 || text[4] != '-' || text[7] != '-') return false;
    if (!ReadDigits(text, 0, 4, year) || !ReadDigits(text, 5, 2, month)) return false;
    if (!ReadDigits(text, 8, 2, date) || year < 1900) return false;
    const std::chrono::year_month_day civil{std::chrono::year{year},
                                            std::chrono::month(static_cast<unsigned>(month)),
                                            std::chrono::day(static_cast<unsigned>(date))};
    if (!civil.ok()) return false;
    day = year * 10000 + month * 100 + date;
    return true;
}

bool ReadTime(std::string_view text, Instant& time) {
    Day day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (text.size() < 19 || (text[10] != 'T' && text[10] != ' ')) return false;
    if (text[13] != ':' || text[16] != ':' || !ReadDay(text.substr(0, 10), day)) return false;
    if (!ReadDigits(text, 11, 2, hour) || !ReadDigits(text, 14, 2, minute)) return false;
    if (!ReadDigits(text, 17, 2, second) || hour > 23 || minute > 59 || second > 59) return false;
    const bool universal = text.back() == 'Z';
    if (universal) text.remove_suffix(1);
    Instant millis = 0;
    if (!ReadFraction(text.substr(19), millis)) return false;
    time = MidnightOf(day) + (hour * 60 + minute) * kMinute + second * 1000 + millis;
    if (universal) time += kAheadOfUniversal;
    return true;
}

Layout RowReader::ReadHeader(std::string_view line) {
    columns_.clear();
    std::array<int, kAskVolume + 1> seen{};
    bool levels = false;
    bool price = false;
    line = Trimmed(line);
    if (line.starts_with("\xEF\xBB\xBF")) line.remove_prefix(3);
    while (!line.empty()) {
        const std::string_view name = TakeField(line);
        Column column;
        if (LevelOf(name, column.field, column.level)) {
            levels = true;
        } else {
            for (const Name& known : kNames) {
                if (known.text == name) column.field = known.field;
            }
        }
        price = price || name == "price";
        ++seen[static_cast<std::size_t>(column.field)];
        columns_.push_back(column);
    }
    layout_ = Layout::kUnknown;
    if (seen[kTime] != 1) return layout_;
    const bool bar = seen[kOpen] && seen[kHigh] && seen[kLow] && seen[kLast];
    const bool quoted = seen[kBid] && seen[kAsk];
    if (levels && quoted && seen[kLast]) {
        layout_ = Layout::kDepth;
    } else if (bar) {
        layout_ = quoted ? Layout::kQuotedBars : Layout::kBars;
    } else if (price && seen[kVolume]) {
        layout_ = Layout::kTrades;
    } else if (quoted) {
        layout_ = Layout::kQuotes;
    }
    return layout_;
}

std::string RowReader::Read(std::string_view line, Row& row) const {
    line = Trimmed(line);
    row = {};
    const auto commas = std::count(line.begin(), line.end(), ',');
    if (static_cast<std::size_t>(commas) + 1 != columns_.size()) return "wrong number of fields";
    for (const Column& column : columns_) {
        const std::string_view field = TakeField(line);
        if (column.field == kTime) {
            if (!ReadTime(field, row.time)) return "no time";
        } else if (column.field == kTradingDay) {
            if (!ReadDay(field, row.trading_day)) return "no trading day";
        } else if (double* place = Place(column.field, column.level, row)) {
            if (!ReadNumber(field, *place))
                return "not a number: " + std::string(field.substr(0, 40));
        }
    }
    const char* missing = Missing(layout_, row);
    return missing ? missing : "";
}

}  // namespace market
