#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "platform/text/gbk.h"

namespace testing_support {

inline std::string_view AsView(const char* text) { return text ? text : "(null)"; }
inline std::string_view AsView(std::string_view text) { return text; }

/// A text as a terminal shows it: UTF-8, with the bytes that are no GBK text and the control
/// characters as <hex>.
inline std::string Readable(std::string_view gbk) {
    std::string readable;
    const auto append_hex = [&readable](char byte) {
        constexpr char kDigits[] = "0123456789ABCDEF";
        const auto value = static_cast<unsigned char>(byte);
        readable += {'<', kDigits[value >> 4], kDigits[value & 15], '>'};
    };
    while (!gbk.empty()) {
        const std::string_view character = gbk.substr(0, text::CharLength(gbk));
        bool replaced = false;
        const std::string utf8 = text::Utf8FromGbk(character, &replaced);
        const bool control = static_cast<unsigned char>(character[0]) < 0x20;
        if (replaced || control) {
            for (const char byte : character) append_hex(byte);
        } else {
            readable += utf8;
        }
        gbk.remove_prefix(character.size());
    }
    return readable;
}

template <class Expected, class Actual>
::testing::AssertionResult GbkEqual(const char* expected_expression, const char* actual_expression,
                                    const Expected& expected, const Actual& actual) {
    const std::string_view wanted = AsView(expected);
    const std::string_view got = AsView(actual);
    if (wanted == got) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << actual_expression << "\n  is     \"" << Readable(got) << "\"\n  not    \""
           << Readable(wanted) << "\"\n  of     " << expected_expression;
}

}  // namespace testing_support

/// Compares GBK texts (pointers, strings, views) and shows them as UTF-8 when they differ.
#define EXPECT_GBK_EQ(expected, actual) \
    EXPECT_PRED_FORMAT2(::testing_support::GbkEqual, expected, actual)
#define ASSERT_GBK_EQ(expected, actual) \
    ASSERT_PRED_FORMAT2(::testing_support::GbkEqual, expected, actual)
