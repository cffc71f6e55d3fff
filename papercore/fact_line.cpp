#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <utility>

#include "papercore/json_fields.h"
#include "papercore/store.h"
#include "platform/text/gbk.h"

namespace papercore {
namespace {

constexpr char kHex[] = "0123456789abcdef";

/// In the order of the variant; never change one, only add.
constexpr const char* kFactNames[] = {
    "account_created",  "password_changed", "session_opened",  "money_moved",
    "day_begun",        "order_accepted",   "order_ended",     "order_became_limit",
    "order_filled",     "preset_set",       "lot_stop_set",    "stop_triggered",
    "float_base_moved", "stops_woken",      "trade_param_set", "day_settled"};
static_assert(std::size(kFactNames) == std::variant_size_v<Fact>);

template <std::size_t Index = 0>
bool ReadFact(const std::string& name, const json& from, Fact& fact) {
    if constexpr (Index < std::variant_size_v<Fact>) {
        if (name != kFactNames[Index]) return ReadFact<Index + 1>(name, from, fact);
        std::variant_alternative_t<Index, Fact> read;
        FromJson(from, read);
        fact = std::move(read);
        return true;
    }
    return false;
}

int DigitOf(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    throw std::invalid_argument("no hexadecimal digit");
}

/// False for bytes that are no text, or would not come back.
bool ToUtf8(const std::string& text, std::string& utf8) {
    const auto is_plain = [](char c) { return c >= ' ' && c <= '~'; };
    if (std::ranges::all_of(text, is_plain)) {
        utf8 = text;
        return true;
    }
    const auto is_control = [](char c) { return static_cast<unsigned char>(c) < ' '; };
    if (std::ranges::any_of(text, is_control)) return false;
    bool replaced = false;
    utf8 = text::Utf8FromGbk(text, &replaced);
    if (replaced) return false;
    return text::GbkFromUtf8(utf8, &replaced) == text && !replaced;
}

}  // namespace

void WriteInteger(std::int64_t value, std::string& to) {
    std::array<char, 24> digits{};
    to.append(digits.data(), std::to_chars(digits.begin(), digits.end(), value).ptr);
}

void WriteHex(std::span<const char> bytes, std::string& to) {
    const std::size_t begin = to.size() + 1;
    to.resize(begin + bytes.size() * 2 + 1, '"');
    to[begin - 1] = '"';
    char* at = to.data() + begin;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        *at++ = kHex[byte >> 4];
        *at++ = kHex[byte & 15];
    }
}

void WriteText(const std::string& text, std::string& to) {
    std::string utf8;
    if (!ToUtf8(text, utf8)) {
        to += "{\"hex\":";
        WriteHex(text, to);
        to += '}';
        return;
    }
    to += '"';
    for (const char c : utf8) {
        if (c == '"' || c == '\\') to += '\\';
        to += c;
    }
    to += '"';
}

void BytesFromHex(const std::string& hex, char* bytes, std::size_t size) {
    if (hex.size() != size * 2) throw std::invalid_argument("another number of bytes");
    for (std::size_t at = 0; at < size; ++at) {
        bytes[at] = static_cast<char>(DigitOf(hex[at * 2]) * 16 + DigitOf(hex[at * 2 + 1]));
    }
}

std::string TextFromJson(const json& value) {
    if (value.is_string()) return text::GbkFromUtf8(value.get_ref<const std::string&>());
    const std::string& hex = value.at("hex").get_ref<const std::string&>();
    std::string text(hex.size() / 2, '\0');
    BytesFromHex(hex, text.data(), text.size());
    return text;
}

std::int64_t IntegerFromJson(const json& value, std::int64_t least, std::int64_t most) {
    if (!value.is_number_integer()) throw std::invalid_argument("no integer");
    if (value.is_number_unsigned() &&
        value.get<std::uint64_t>() >
            static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
        throw std::out_of_range("too large");
    }
    const auto number = value.get<std::int64_t>();
    if (number < least || number > most) throw std::out_of_range("out of range");
    return number;
}

std::string FactLine(const Fact& fact) {
    Fact copy = fact;
    constexpr std::size_t kUsualLine = 4096;
    std::string line;
    line.reserve(kUsualLine);
    FieldWriter writer{line};
    std::string name = kFactNames[copy.index()];
    writer("fact", name);
    std::visit([&](auto& what) { Fields(writer, what); }, copy);
    line += '}';
    return line;
}

bool ReadFactLine(std::string_view line, Fact& fact) {
    const json object = json::parse(line, nullptr, false);
    if (!object.is_object()) return false;
    try {
        return ReadFact(object.at("fact").get_ref<const std::string&>(), object, fact);
    } catch (const std::exception&) {
        return false;
    }
}

std::string StateText(const State& state) {
    State copy = state;
    std::string text;
    Write(copy, text);
    return text;
}

bool ReadStateText(std::string_view text, State& state) {
    const json object = json::parse(text, nullptr, false);
    if (!object.is_object()) return false;
    try {
        State read;
        FromJson(object, read);
        state = std::move(read);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace papercore
