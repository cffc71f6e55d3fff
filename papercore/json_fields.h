#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <limits>
#include <map>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "papercore/record_fields.h"

// Facts and state as JSON.

namespace papercore {

using nlohmann::json;

/// A GBK text stands there as UTF-8; bytes that are none, or would not come back, in hexadecimal.
/// Throw std::exception for what is no such value.
std::string TextFromJson(const json& value);
void BytesFromHex(const std::string& hex, char* bytes, std::size_t size);

// Writing: straight to the text, because every order waits for it.

void WriteInteger(std::int64_t value, std::string& to);
void WriteText(const std::string& text, std::string& to);
void WriteHex(std::span<const char> bytes, std::string& to);

struct FieldWriter {
    std::string& to;
    char next = '{';
    template <class T>
    void operator()(const char* name, T& value);
};

template <class T>
requires std::is_arithmetic_v<T>
void Write(T value, std::string& to) {
    if constexpr (std::same_as<T, bool>) {
        to += value ? "true" : "false";
    } else if constexpr (std::same_as<T, char>) {
        WriteInteger(static_cast<unsigned char>(value), to);
    } else {
        static_assert(std::is_integral_v<T>);
        WriteInteger(value, to);
    }
}
template <class T>
requires std::is_enum_v<T>
void Write(T value, std::string& to) { WriteInteger(static_cast<int>(value), to); }
inline void Write(const std::string& value, std::string& to) { WriteText(value, to); }
inline void Write(const CPresetStop& value, std::string& to) {
    WriteHex({reinterpret_cast<const char*>(&value), sizeof value}, to);
}
template <std::size_t N>
void Write(const std::array<char, N>& value, std::string& to) {
    WriteHex(value, to);
}
template <class T>
void Write(std::vector<T>& values, std::string& to);
template <class Key, class T>
void Write(std::map<Key, T>& values, std::string& to);
template <class T>
requires requires(FieldWriter& f, T& x) { Fields(f, x); }
void Write(T& value, std::string& to) {
    FieldWriter writer{to};
    Fields(writer, value);
    to += '}';
}
template <class T>
void Write(std::vector<T>& values, std::string& to) {
    to += '[';
    for (T& value : values) {
        if (&value != &values.front()) to += ',';
        Write(value, to);
    }
    to += ']';
}
/// As a list of pairs: keys need not be texts.
template <class Key, class T>
void Write(std::map<Key, T>& values, std::string& to) {
    to += '[';
    const char* between = "[";
    for (auto& [key, value] : values) {
        to += between;
        Write(key, to);
        to += ',';
        Write(value, to);
        to += ']';
        between = ",[";
    }
    to += ']';
}
template <class T>
void FieldWriter::operator()(const char* name, T& value) {
    to += std::exchange(next, ',');
    to += '"';
    to += name;
    to += "\":";
    Write(value, to);
}

// Reading: every function throws std::exception for a value of another kind or range.

struct FieldReader {
    const json& object;
    template <class T>
    void operator()(const char* name, T& value);
};

/// An integer inside [least, most].
std::int64_t IntegerFromJson(const json& value, std::int64_t least, std::int64_t most);

template <class T>
requires std::is_arithmetic_v<T>
void FromJson(const json& from, T& value) {
    if constexpr (std::same_as<T, bool>) {
        value = from.get_ref<const json::boolean_t&>();
    } else if constexpr (std::same_as<T, char>) {
        value = static_cast<char>(IntegerFromJson(from, 0, 255));
    } else {
        value = static_cast<T>(
            IntegerFromJson(from, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
    }
}
template <class T>
requires std::is_enum_v<T>
void FromJson(const json& from, T& value) {
    constexpr int kMostValues = 8;  // of any of the enumerations
    value = static_cast<T>(IntegerFromJson(from, 0, kMostValues - 1));
}
inline void FromJson(const json& from, std::string& value) { value = TextFromJson(from); }
inline void FromJson(const json& from, CPresetStop& value) {
    BytesFromHex(from.get_ref<const std::string&>(), reinterpret_cast<char*>(&value), sizeof value);
}
template <std::size_t N>
void FromJson(const json& from, std::array<char, N>& value) {
    BytesFromHex(from.get_ref<const std::string&>(), value.data(), N);
}
template <class T>
void FromJson(const json& from, std::vector<T>& values);
template <class Key, class T>
void FromJson(const json& from, std::map<Key, T>& values);
template <class T>
requires requires(FieldReader& f, T& x) { Fields(f, x); }
void FromJson(const json& from, T& value) {
    FieldReader reader{from};
    Fields(reader, value);
}
template <class T>
void FromJson(const json& from, std::vector<T>& values) {
    values.clear();
    for (const json& item : from.get_ref<const json::array_t&>()) {
        FromJson(item, values.emplace_back());
    }
}
template <class Key, class T>
void FromJson(const json& from, std::map<Key, T>& values) {
    values.clear();
    for (const json& pair : from.get_ref<const json::array_t&>()) {
        Key key{};
        FromJson(pair.at(0), key);
        FromJson(pair.at(1), values[key]);
    }
}
template <class T>
void FieldReader::operator()(const char* name, T& value) {
    FromJson(object.at(name), value);
}

}  // namespace papercore
