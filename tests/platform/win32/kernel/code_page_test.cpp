#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "tests/support/gbk_text.h"

namespace {

using Units = std::vector<unsigned>;

Units Wide(UINT code_page, DWORD flags, const std::string& text) {
    WCHAR buffer[16];
    const int count = MultiByteToWideChar(code_page, flags, text.data(),
                                          static_cast<int>(text.size()), buffer, 16);
    return Units(buffer, buffer + count);
}

TEST(CodePage, GbkToUtf16) {
    const struct {
        const char* gbk;
        Units utf16;
        bool valid;
    } cases[] = {
        {"\xD6\xD0", {0x4E2D}, true}, {"\xD6", {0x3F}, false},      {"a\xD6", {0x61, 0x3F}, false},
        {"\xD6 ", {0x3F}, false},     {"\xD6\x61", {0x8B05}, true}, {"\x80", {0x20AC}, true},
        {"\x81\x30", {0x3F}, false},  {"\xD6\xFF", {0x3F}, false},  {"\xD6\x7F", {0x3F}, false},
        {"\xA0", {0x3F}, false},      {"\xA2\xA0", {0xE585}, true}, {"\xFE\xFE", {0xE4C5}, true},
    };
    for (const auto& c : cases) {
        const std::string label = testing_support::Readable(c.gbk);
        EXPECT_EQ(Wide(936, 0, c.gbk), c.utf16) << label;
        SetLastError(0);
        EXPECT_EQ(Wide(936, MB_ERR_INVALID_CHARS, c.gbk), c.valid ? c.utf16 : Units()) << label;
        EXPECT_EQ(GetLastError(), c.valid ? 0u : DWORD{ERROR_NO_UNICODE_TRANSLATION}) << label;
    }
}

TEST(CodePage, LengthsAndBuffers) {
    WCHAR wide[8];
    EXPECT_EQ(MultiByteToWideChar(936, 0, "abc", -1, nullptr, 0), 4);
    EXPECT_EQ(MultiByteToWideChar(936, 0, "abc", -1, wide, 4), 4);
    SetLastError(0);
    EXPECT_EQ(MultiByteToWideChar(936, 0, "abc", -1, wide, 3), 0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(MultiByteToWideChar(936, 0, "abc", 0, wide, 8), 0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
    char narrow[4];
    const WCHAR text[] = {0x4E2D, 0x6587, 0};
    EXPECT_EQ(WideCharToMultiByte(936, 0, text, 2, narrow, 2, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(WideCharToMultiByte(936, 0, text, -1, nullptr, 0, nullptr, nullptr), 5);
}

TEST(CodePage, Utf16ToGbk) {
    const struct {
        WCHAR unit;
        const char* gbk;
        bool default_used;
    } cases[] = {{0x20AC, "\x80", false},     {0xE9, "\xA8\xA6", false}, {0xD83D, "?", true},
                 {0xA0, "?", true},           {0x2022, "?", true},       {0x3400, "?", true},
                 {0xFF5E, "\xA1\xAB", false}, {0xB7, "\xA1\xA4", false}};
    for (const auto& c : cases) {
        for (const DWORD flags : {DWORD{0}, DWORD{WC_NO_BEST_FIT_CHARS}}) {
            char buffer[4] = {};
            BOOL used = -1;
            const int length =
                WideCharToMultiByte(CP_ACP, flags, &c.unit, 1, buffer, 4, nullptr, &used);
            EXPECT_GBK_EQ(c.gbk, buffer) << std::hex << unsigned{c.unit};
            EXPECT_EQ(static_cast<std::size_t>(length), std::string(c.gbk).size());
            EXPECT_EQ(used != FALSE, c.default_used) << std::hex << unsigned{c.unit};
        }
    }
}

TEST(CodePage, DefaultCharacterOfTheCaller) {
    const WCHAR text[] = {0x61, 0x3400, 0x62, 0};
    char buffer[8];
    WideCharToMultiByte(936, 0, text, -1, buffer, 8, "_", nullptr);
    EXPECT_STREQ(buffer, "a_b");
}

TEST(CodePage, Utf8) {
    const struct {
        const char* utf8;
        Units utf16;
        bool valid;
    } cases[] = {{"a\xC3\xA9\xE4\xB8\xAD", {0x61, 0xE9, 0x4E2D}, true},
                 {"\xF0\x9F\x98\x80", {0xD83D, 0xDE00}, true},
                 {"\xEF\xBF\xBD", {0xFFFD}, true},
                 {"\x80", {0xFFFD}, false},
                 {"\xC3", {0xFFFD}, false},
                 {"\xE4\xB8z", {0xFFFD, 0x7A}, false}};
    for (const auto& c : cases) {
        EXPECT_EQ(Wide(CP_UTF8, 0, c.utf8), c.utf16);
        EXPECT_EQ(Wide(CP_UTF8, MB_ERR_INVALID_CHARS, c.utf8).empty(), !c.valid);
        if (!c.valid) continue;
        const std::vector<WCHAR> units(c.utf16.begin(), c.utf16.end());
        char buffer[16] = {};
        WideCharToMultiByte(CP_UTF8, 0, units.data(), static_cast<int>(units.size()), buffer, 15,
                            nullptr, nullptr);
        EXPECT_STREQ(buffer, c.utf8);
    }
    // Forms that are too long and halves of pairs never pass.
    for (const char* bad : {"\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80"}) {
        EXPECT_TRUE(Wide(CP_UTF8, MB_ERR_INVALID_CHARS, bad).empty());
    }
}

}  // namespace
