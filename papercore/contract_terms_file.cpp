#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <utility>

#include "papercore/contract_terms.h"

namespace papercore {
namespace {

using nlohmann::json;
using SessionTables = std::map<std::string, std::vector<SessionSpan>>;

constexpr int kMinutesOfDay = 24 * 60;
constexpr int kEveningBegins = 18 * 60;
constexpr std::size_t kLongestName = 31;
constexpr double kPercent = 10'000;
constexpr int kDeepest = 8;

[[noreturn]] void Fail(const std::string& where, const std::string& what) {
    throw std::runtime_error(where + ": " + what);
}

const json& Field(const json& object, const char* key, const std::string& where) {
    const auto found = object.find(key);
    if (found == object.end()) Fail(where, std::string("\"") + key + "\" is missing");
    return *found;
}

std::string Text(const json& object, const char* key, const std::string& where) {
    const json& value = Field(object, key, where);
    if (!value.is_string()) Fail(where, std::string("\"") + key + "\" is not a text");
    auto text = value.get<std::string>();
    const auto odd = [](char c) { return c <= ' ' || c > '~'; };
    if (text.empty() || text.size() > kLongestName || std::any_of(text.begin(), text.end(), odd)) {
        Fail(where, std::string("\"") + key + "\" is not 1 to 31 ASCII characters without spaces");
    }
    return text;
}

double Number(const json& object, const char* key, double least, double most,
              const std::string& where) {
    const json& value = Field(object, key, where);
    if (!value.is_number()) Fail(where, std::string("\"") + key + "\" is not a number");
    const auto number = value.get<double>();
    if (!(number >= least && number <= most)) {
        Fail(where, std::string("\"") + key + "\" is out of range");
    }
    return number;
}

std::int64_t Whole(const json& object, const char* key, double least, double most,
                   const std::string& where) {
    const double number = Number(object, key, least, most, where);
    if (number != std::floor(number)) Fail(where, std::string("\"") + key + "\" is not whole");
    return static_cast<std::int64_t>(number);
}

Ppm Rate(const json& object, const char* key, double most, const std::string& where) {
    return std::llround(Number(object, key, 0, most, where) * kPercent);
}

void RefuseUnknown(const json& object, std::initializer_list<std::string_view> known,
                   const std::string& where) {
    if (!object.is_object()) Fail(where, "not an object");
    for (const auto& [key, value] : object.items()) {
        if (std::find(known.begin(), known.end(), key) == known.end()) {
            Fail(where, "unknown field \"" + key + "\"");
        }
    }
}

bool IsDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

int Digits(std::string_view text) {
    int value = 0;
    for (const char c : text) value = value * 10 + (c - '0');
    return value;
}

Day DayOf(const std::string& text, const std::string& where) {
    const std::string_view view = text;
    if (view.size() != 10 || view[4] != '-' || view[7] != '-' || !IsDigits(view.substr(0, 4)) ||
        !IsDigits(view.substr(5, 2)) || !IsDigits(view.substr(8, 2))) {
        Fail(where, "\"from\" is not a day YYYY-MM-DD");
    }
    const int year = Digits(view.substr(0, 4));
    const int month = Digits(view.substr(5, 2));
    const int day = Digits(view.substr(8, 2));
    const std::chrono::year_month_day civil{std::chrono::year{year},
                                            std::chrono::month(static_cast<unsigned>(month)),
                                            std::chrono::day(static_cast<unsigned>(day))};
    if (!civil.ok()) Fail(where, "\"from\" is not a day YYYY-MM-DD");
    return year * 10000 + month * 100 + day;
}

/// Times from 18:00 on are the evening before the trading day.
int MinuteOf(const json& span, const char* key, const std::string& where) {
    const std::string text = Text(span, key, where);
    const std::string_view view = text;
    const bool shaped = view.size() == 5 && view[2] == ':' && IsDigits(view.substr(0, 2)) &&
                        IsDigits(view.substr(3, 2));
    const int hour = shaped ? Digits(view.substr(0, 2)) : 24;
    const int minute = shaped ? Digits(view.substr(3, 2)) : 60;
    if (hour > 23 || minute > 59) Fail(where, std::string("\"") + key + "\" is not a time HH:MM");
    const int of_day = hour * 60 + minute;
    return of_day >= kEveningBegins ? of_day : of_day + kMinutesOfDay;
}

SessionSpan Span(const json& value, const std::string& where) {
    RefuseUnknown(value, {"phase", "begin", "end"}, where);
    SessionSpan span;
    const std::string phase = Text(value, "phase", where);
    if (phase != "auction" && phase != "continuous") {
        Fail(where, "\"phase\" is neither \"auction\" nor \"continuous\"");
    }
    span.kind = phase == "auction" ? PhaseKind::kAuction : PhaseKind::kContinuous;
    span.begin = MinuteOf(value, "begin", where);
    span.end = MinuteOf(value, "end", where);
    if (span.end <= span.begin) Fail(where, "ends before it begins");
    return span;
}

SessionTables Tables(const json& root) {
    const json& tables = Field(root, "session_tables", "file");
    if (!tables.is_object()) Fail("session_tables", "not an object");
    SessionTables result;
    for (const auto& [name, spans] : tables.items()) {
        const std::string where = "session_tables." + name;
        if (!spans.is_array() || spans.empty()) Fail(where, "not a list with entries");
        std::vector<SessionSpan>& table = result[name];
        for (const json& value : spans) {
            const std::string row = where + "[" + std::to_string(table.size()) + "]";
            const SessionSpan span = Span(value, row);
            if (!table.empty() && span.begin < table.back().end) {
                Fail(row, "begins before the one ahead of it ends");
            }
            table.push_back(span);
        }
    }
    return result;
}

DeferredDirection Direction(const json& row, const std::string& where) {
    constexpr std::array<std::string_view, 3> kWords{"nobody", "long", "short"};
    const auto found = std::find(kWords.begin(), kWords.end(), Text(row, "deferred_payer", where));
    if (found == kWords.end()) {
        Fail(where, R"("deferred_payer" is none of "nobody", "long", "short")");
    }
    return static_cast<DeferredDirection>(found - kWords.begin());
}

void ReadRates(const json& row, const std::string& where, ContractTerms& terms) {
    terms.margin = Rate(row, "margin_percent", 100, where);
    if (terms.margin == 0) Fail(where, "\"margin_percent\" is 0");
    terms.limit = Rate(row, "limit_percent", 100, where);
    terms.fee_open = Rate(row, "fee_open_percent", 100, where);
    terms.fee_close = Rate(row, "fee_close_percent", 100, where);
    terms.fee_close_today = Rate(row, "fee_close_today_percent", 100, where);
    terms.deferred = Rate(row, "deferred_percent", 100, where);
    terms.deferred_direction = Direction(row, where);
}

void ReadSizes(const json& row, const std::string& where, ContractTerms& terms) {
    terms.unit = static_cast<int>(Whole(row, "unit", 1, 1'000'000, where));
    terms.digits = static_cast<int>(Whole(row, "digits", 0, 4, where));
    const double tick = Number(row, "tick", 0.0001, 1'000'000, where);
    terms.tick = PriceFromYuan(tick);
    Price step = kPriceScale;
    for (int digit = 0; digit < terms.digits; ++digit) step /= 10;
    if (terms.tick % step != 0) Fail(where, "\"tick\" has more places than \"digits\"");
    terms.smallest_order = Whole(row, "smallest_order", 1, 1e9, where);
    terms.largest_order = Whole(row, "largest_order", 1, 1e9, where);
    if (terms.largest_order < terms.smallest_order) {
        Fail(where, "\"largest_order\" is below \"smallest_order\"");
    }
}

ContractTerms Row(const json& row, const SessionTables& tables, const std::string& where) {
    RefuseUnknown(row,
                  {"contract", "exchange", "market", "from", "unit", "digits", "tick",
                   "smallest_order", "largest_order", "margin_percent", "limit_percent",
                   "fee_open_percent", "fee_close_percent", "fee_close_today_percent",
                   "deferred_percent", "deferred_payer", "sessions"},
                  where);
    ContractTerms terms;
    terms.contract = Text(row, "contract", where);
    terms.exchange = Text(row, "exchange", where);
    terms.market = Text(row, "market", where);
    if (row.contains("from")) terms.from = DayOf(Text(row, "from", where), where);
    ReadSizes(row, where, terms);
    ReadRates(row, where, terms);
    if (terms.IsSpot() && terms.margin != 1'000'000) Fail(where, "a spot contract is paid in full");
    const auto table = tables.find(Text(row, "sessions", where));
    if (table == tables.end()) Fail(where, "\"sessions\" names no session table");
    terms.sessions = table->second;
    return terms;
}

/// What an entry of "dated" says goes before what the contract says for all days.
void ReadContract(json value, const SessionTables& tables, const std::string& where,
                  std::vector<ContractTerms>& rows) {
    if (!value.is_object()) Fail(where, "not an object");
    if (!value.contains("dated")) {
        rows.push_back(Row(value, tables, where));
        return;
    }
    const json dated = value["dated"];
    value.erase("dated");
    if (!dated.is_array() || dated.empty()) Fail(where, "\"dated\" is not a list with entries");
    for (std::size_t index = 0; index < dated.size(); ++index) {
        const std::string at = where + ".dated[" + std::to_string(index) + "]";
        if (!dated[index].is_object()) Fail(at, "not an object");
        if (!dated[index].contains("from")) Fail(at, "\"from\" is missing");
        if (dated[index].contains("contract")) Fail(at, "\"contract\" stands at the contract only");
        json row = value;
        row.update(dated[index]);
        rows.push_back(Row(row, tables, at));
    }
}

std::vector<ContractTerms> Read(std::string_view text) {
    const auto shallow = [](int depth, json::parse_event_t, json&) {
        // Copies of values recurse: what is nested without end would use up the stack.
        if (depth > kDeepest) Fail("file", "nested too deeply");
        return true;
    };
    const json root = json::parse(text, shallow);
    RefuseUnknown(root, {"version", "session_tables", "contracts"}, "file");
    if (Whole(root, "version", 0, 1e6, "file") != 1) Fail("file", "\"version\" is not 1");
    const SessionTables tables = Tables(root);
    const json& contracts = Field(root, "contracts", "file");
    if (!contracts.is_array() || contracts.empty()) {
        Fail("contracts", "not a list with entries");
    }
    std::vector<ContractTerms> rows;
    for (std::size_t index = 0; index < contracts.size(); ++index) {
        ReadContract(contracts[index], tables, "contracts[" + std::to_string(index) + "]", rows);
    }
    return rows;
}

void RefuseDoubles(const std::vector<ContractTerms>& rows) {
    std::map<std::pair<std::string, Day>, int> seen;
    for (const ContractTerms& row : rows) {
        if (seen[{row.contract, row.from}]++ > 0) {
            Fail(row.contract, "two rows for day " + std::to_string(row.from));
        }
    }
}

std::string OneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

}  // namespace

std::string TermsTable::Parse(std::string_view json_text) {
    try {
        std::vector<ContractTerms> rows = Read(json_text);
        RefuseDoubles(rows);
        TermsTable fresh;
        for (ContractTerms& row : rows) fresh.Add(std::move(row));
        *this = std::move(fresh);
        return {};
    } catch (const std::exception& fault) {
        return "contract terms: " + OneLine(fault.what());
    }
}

}  // namespace papercore
